// Printing: the lines of any report of the program, poured into a rich-text template of the
// surveyor's own, printed, sent to a spreadsheet; the font of the print screen.
#pragma once

#include "piattaforma.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace tavolet {

struct Stato;

// The folder of the templates and their names, sorted.
QString CartellaModelli(const Stato& stato);
QStringList ElencoModelli(const Stato& stato);
// A working folder without templates takes those the program ships in its own folder.
void PreparaModelli(Stato& stato);

// The lines of the list as the body of a rich-text document: right-trimmed, each behind
// "\cf1\line ".
QString CorpoStampa(const QStringList& righe);
// The template with its placeholders replaced, in the order of the table; the head rows of the
// libretto must be decoded first.
QByteArray RiempiModello(const Stato& stato, const QByteArray& modello, const QStringList& righe);
// Where the filled template goes: the libretto's file name, "_" and the template's name; with
// no libretto open, in the working folder under "_" and the template's name.
QString PercorsoModelloCompilato(const Stato& stato, const QString& modello);
// Command 10: decodes the head rows, fills the template, writes it, opens it with the default
// program. Returns the path written, empty after an error report.
QString CompilaModello(Stato& stato, const QString& modello, const QStringList& righe);

// \CarattereStampa.ini in the working folder: size, "name", bold, italic.
std::optional<Carattere> LeggiCarattereStampa(Stato& stato);
void ScriviCarattereStampa(Stato& stato, const Carattere& carattere);

// The viewer of the spreadsheet files, kept under Tabulino\VisualizzatoreXLS.
inline const QString kSezioneVisualizzatore = QStringLiteral("Tabulino/VisualizzatoreXLS");
inline const QString kChiaveVisualizzatore = QStringLiteral("Visualizzatore");
// "Default" when none is chosen, else its file name.
QString EtichettaVisualizzatore(Stato& stato);
// Command 12; returns false when nothing was chosen.
bool SelezionaVisualizzatore(Stato& stato);
// Command 13.
void UsaVisualizzatorePredefinito(Stato& stato);
// Command 14 on stem + ".CSV": Tabulino.EXE of the program folder, or the chosen viewer, or the
// default program. Nothing without a stem.
void Invia(Stato& stato, const QString& radiceFile, bool comeXls);

// Commands 2, 6, 7, 8, 9 on the lines of the list.
void CopiaRigheStampa(Stato& stato, const QStringList& righe);
void SpostaASinistra(QStringList& righe);
void SpostaADestra(QStringList& righe);
// Removes the selected line when it stands past the first; true when one went.
bool EliminaRigaStampa(QStringList& righe, int selezionata);
void AggiungiRigaStampa(QStringList& righe);

// The lines as a PDF document in Courier, A4, portrait or landscape, as command 1 prints them.
QByteArray PdfDaRighe(const QStringList& righe, const Carattere& carattere, bool orizzontale);
// The page layout shared by the printer and the PDF: margins and line height in points.
struct Impaginazione {
    double larghezza = 595.276, altezza = 841.89; // A4 in points
    double margine = 36;
    double interlinea = 12;
    int righePerPagina = 1;
};
Impaginazione ImpaginaA4(const Carattere& carattere, bool orizzontale);

} // namespace tavolet
