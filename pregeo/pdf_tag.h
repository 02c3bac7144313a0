// A Pregeo act reopened from the PDF that Pregeo printed: the [TAG blocks into the libretto,
// the owners and the associated extract.
#pragma once

#include <QString>

namespace tavolet {

struct Stato;

struct AttoDaPdf {
    QString Libretto1000, Libretto2000; // rows joined with CRLF
    QString TipoAtto;                   // field 0 of block 3000
    QString NomeEstratto;               // field 2 of block 3000 as written: the protocol
    QString TestataEstratto;            // fields of 3000, then those of 5000, with CRLF
    QString Possessori;                 // block 4000
    QString EstrattoTrovato;            // the extract of that protocol in Pregeo's folder, or empty
};

inline const QString kAutoallestito = QStringLiteral("AUTOALLESTITO");

// Reads the blocks of the PDF and looks for its extract by protocol among the .EMP files of
// Pregeo's folder, with the message when it is missing.
AttoDaPdf LeggiBlocchiTag(Stato& stato, const QString& percorso);
// The drop of a PDF once confirmed: the libretto becomes blocks 1000 and 2000, the owners block
// 4000, the extract the one found; the path turns to .TXT. True when it ran.
bool CaricaLibrettoDaPdf(Stato& stato, const QString& percorso);
// Installs the PDF drop into the state.
void InstallaPregeo(Stato& stato);

} // namespace tavolet
