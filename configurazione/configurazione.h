// The head-data dialog "Configura Libretto " without its window: what it shows on opening,
// the rules on leaving a field, its commands by index, and the confirmation that composes
// rows 0 and 9.
#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

#include <array>
#include <functional>

namespace tavolet {

struct Stato;

constexpr int kCampiConfigurazione = 20;
inline const QString kNomeFormConfigurazione = QStringLiteral("FormCatasto1TXT");
inline const QString kTitoloConfigurazione = QStringLiteral("Configura Libretto ");

// The labels of the 20 fields, by index.
const QStringList& EtichetteCampi();
// Qualifiche (Combo1) and tipologie (Combo2), fixed.
const QStringList& ElencoQualifiche();
const QStringList& ElencoTipologie();
// The built-in lists used when their file does not exist.
const QStringList& StrumentazioniPredefinite();
const QStringList& CommentiPredefiniti();

// What the screen opens from the logic: the archive of comuni and the extracts. Each returns
// EsitoDialogo; a missing one is a screen that was not confirmed.
struct SchermiConfigurazione {
    std::function<int(Stato&)> ApriComuni;
    std::function<int(Stato&)> ApriEstratti;
};

// The form's content: its fields, check boxes, lists and labels.
struct FormConfigurazione {
    std::array<QString, kCampiConfigurazione> Campi;
    bool Check1 = true;         // "Aggiorna su Pregeo.INI [Default di Pregeo ]"
    bool Check2 = true;         // "Aggiorna alla Data di Oggi in Automatico alla Conferma"
    QStringList Province;       // Combo6
    QStringList Strumentazioni; // Combo9
    QStringList Commenti;       // Combo10
    QString TestoCombo1, TestoCombo6, TestoCombo9, TestoCombo10;
    int IndiceCombo2 = -1;
    QStringList FileTecnici;   // the .PFS of CartellaLavoro\tecnici, names only
    QString FileTecnicoScelto; // the one chosen in that list
    QString EtichettaEstratto; // the extract associated with the libretto
    QString EtichettaMisurate; // the misurate file and its second label
    QString EtichettaMisurate2;
    QString NomeBackup;            // the name field of the archive's backup
    bool ApertaPerComando = false; // opened by a confirmed command of the command line
    SchermiConfigurazione schermi;
};

// Opening the form: technician of PREGEO.INI, check boxes, lists, Catasto1.txt, the rows of
// the libretto, the technician's record and the fields that are always fixed.
FormConfigurazione ApriConfigurazione(Stato& stato);
// "CFDaPregeoINI": the technician of PREGEO.INI into fields 16, 17, 5, 19, 6, 7.
void CFDaPregeoINI(Stato& stato, FormConfigurazione& f);
// "CaricaCatasto1TXT": the saved default head, when the file exists.
void CaricaCatasto1TXT(Stato& stato, FormConfigurazione& f);
// The text "Salva &Default" writes.
QString TestoCatasto1TXT(const FormConfigurazione& f);
QString PercorsoCatasto1(const Stato& stato);
// "CaricaStrumentazione": Combo9 from TIPOLOGIASTRUMENTAZIONE.INI or the built-in list.
void CaricaStrumentazione(Stato& stato, FormConfigurazione& f);
void CaricaCommenti(Stato& stato, FormConfigurazione& f);
// The .PFS files of the technicians, sorted.
QStringList ElencoFileTecnici(const Stato& stato);

// Leaving field indice: the field's rule (date, foglio, parcels, the fixed ones...).
void EsciDalCampo(Stato& stato, FormConfigurazione& f, int indice);
// Choosing an item of Combo2: its first two characters go to TipologiaRilievo and field 13.
void ScegliTipologia(Stato& stato, FormConfigurazione& f, int indice);
// Choosing in the other lists copies the text to the field (1 -> 6, 6 -> 7, 9 -> 14, 10 -> 15).
void ScegliVoce(FormConfigurazione& f, int combo, const QString& testo);
// A click on a .PFS of the list: that technician into the fields.
void ScegliFileTecnico(Stato& stato, FormConfigurazione& f, const QString& nomeFile);

// The click handler of the form's commands, by index. Returns true when the form closes.
bool ComandoConfigurazione(Stato& stato, FormConfigurazione& f, int indice);

// "da Righe8": half sum of the extremes of field 2 of the short rows 8. Empty when none.
QString QuotaMediaDaRighe8(const Stato& stato);
// "EstMedioDaRighe8": the same over field 3; stored in EstMedio, which it returns.
QString EstMedioDaRighe8(Stato& stato);
// "ImportaDatiEstratto": comune, foglio and parcels of the associated extract into the head
// and fields 2, 3 (and 4 unless kept).
void ImportaDatiEstratto(Stato& stato, FormConfigurazione& f, bool tieniMappali);

// "&Conferma": validates, fills what is blank, composes rows 0, 9 and the comment row, saves
// the technician and updates PREGEO.INI. Returns true when the form closes.
bool ConfermaConfigurazione0(Stato& stato, FormConfigurazione& f);

// "SalvaTecnico": Tecnico from Cognome and Nome, the technician's file written,
// INCLUDIDATITECNICO stored, and when asked PREGEO.INI rewritten.
void SalvaTecnico(Stato& stato, bool riscriviPregeoIni = true);

// The conditions the confirmation warns about, which the act's check reports as well.
// A ddmmyyyy text as a date ("32012026" is the first of February).
QDate DataDaTesto(const QString& ddmmyyyy);
// "Protocollo non numerico!": a protocol whose value is below 1.
bool ProtocolloNonNumerico(const QString& protocollo);
// "Formato Data Errato!!" unless the date has its eight characters.
bool DataNelFormato(const QString& data);
// The row that opens the technical report.
inline const QString kRelazioneTecnica = QStringLiteral("***** Relazione  Tecnica *****");

// Today as the form writes it: ddmmyyyy.
QString DataDiOggi(const Stato& stato);

} // namespace tavolet
