// The [TAG blocks that Pregeo's PDF carries, and the answers given to a calling sibling tool.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

// One block: its number and its pieces after the removals of that number
// (1000, 2000: rows; 3000, 5000: fields; 4000: owners' lines without "9|", bars, backslashes).
struct BloccoTag {
    int numero = 0;
    QStringList pezzi;
};

struct BlocchiTag {
    QList<BloccoTag> blocchi; // in file order; pieces of unknown numbers are skipped
    // Pieces of every block of that number, in file order.
    QStringList Pezzi(int numero) const;
    // The pieces of the last block of that number joined with CRLF; empty when there is none.
    QString Testo(int numero) const;
    bool Vuoto() const { return blocchi.isEmpty(); }
};

// Reads the blocks from the bytes of a file taken as one Windows-1252 text. When the raw bytes
// hold no "[TAG", every Flate stream is inflated (bounded) and read as well, so that a PDF that
// a viewer rewrote with compressed objects still gives its blocks. Blocks of more than 8 MB
// in all are no act's: error 7 (out of memory), thrown, rather than the machine's memory.
BlocchiTag LeggiBlocchiTagDaDati(const QByteArray& dati);
// The same on a file in Windows form; a missing or unreadable file gives no blocks.
BlocchiTag LeggiBlocchiTagDaFile(const QString& percorso);

// Answer to the sibling tool: clipboard, last result, CartellaLavoro\temp\TagUno.tag.
void RispondiTag(Stato& stato, const QString& testo);
// Last result and TagUno.tag only.
void ScriviTag(Stato& stato, const QString& testo);
// Path of the answer file in Windows form.
QString PercorsoTagUno(const Stato& stato);

} // namespace tavolet
