// Start-up: working folders, the Pregeo installation, the tables, the folder tree.
#pragma once

#include "piattaforma.h"

#include <QString>

namespace tavolet {

struct Stato;

inline const QString kVersioneMinore = QStringLiteral("0");
inline const QString kRevisione = QStringLiteral("1");
inline const QString kVersionePregeo = QStringLiteral("PREGEO 10.00-G,APAG 2.12");
inline const QString kEtichettaPregeo = QStringLiteral("Pregeo 10-G,STDA ");
inline const QStringList kProcessiPregeo = {"pregeo.exe", "fire.exe", "elab.exe", "moduli.exe"};

// Special folders, CartellaLavoro, and %temp%\CARTELLADOCUMENTI.TXT for the sibling tools.
void Inizializza(Stato& stato);
// pi and the two angle factors (angles are in gon).
void CalcolaCostantiAngoli(Stato& stato);
// Finds Pregeo through PREGEO.INI; warns and stays on C: when it is missing.
void CaricaConfig(Stato& stato);
// Comuni from comunt.dat and province from prosigle; each loads once.
void CaricaComuni(Stato& stato);
void CaricaProvince(Stato& stato);
// The first five characters, trimmed, of the first quality entry that holds testo.
QString CodiceQualita(const Stato& stato, const QString& testo);
// Makes a folder when missing; a failure is reported and stops nothing else.
void NuovaCartella(Stato& stato, const QString& percorso);
// The folders of the working tree, in the order they are made at start.
QStringList CartelleDiLavoro(const Stato& stato);
void CreaAlberoCartelle(Stato& stato);
void ScriviVersioneTavolino(Stato& stato);
// The font of the row list, kept in CONFIGURACARATTERE.INI as four comma-separated values.
std::optional<Carattere> LeggiConfiguraCarattere(Stato& stato);
void ScriviConfiguraCarattere(Stato& stato, const Carattere& carattere);
// Terminates Pregeo's four processes, with a message for each one terminated.
void KillPregeo(Stato& stato);
// The owners' file of the libretto into TestoPossessori, blank lines cut at both ends.
void CaricaPossessori(Stato& stato);
// The command line: a libretto to open. Returns false when nothing was opened.
bool ComandoTag(Stato& stato, const QString& rigaComando);
// The title of the main form at start.
QString TitoloIniziale();

// The start of the main form with no window: false when the program must end (another
// instance was running).
bool AvvioProgramma(Stato& stato, const QString& rigaComando);
// Closing the main form: the document is rebuilt and saved. False when the save failed: the
// form then stays open with the document as it is.
bool ChiusuraProgramma(Stato& stato);

} // namespace tavolet
