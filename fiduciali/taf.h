// The TAF archive of fiducial points: the code of a point, the line reader by columns, the
// grid of the browser, its printed selection, and the rows 8 of a libretto from the TAF.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

// One line of a TAF file, each field trimmed as the columns give it.
struct RigaTaf {
    QString comune;        // 1-5
    QString foglio;        // 6-10, zero-filled, last three characters
    QString allegato;      // 11-12, last character of "00" and the field
    QString numero;        // 14-17, "PF" and the last two characters of "00" and the field
    QString mappa;         // 18-26
    QString rifPlan;       // 30-94, double quotes turned into '
    QString nord, est;     // 102-113, 115-126
    QString attPlan;       // 128-129
    QString dataProt;      // 130-133 and 139-142
    QString aggiornamento; // 143-164
    QString rifAltim;      // 165-224
    QString attAltim;      // 237-238
    QString quota;         // 240 to the end
    double nordN = 0, estN = 0, quotaN = 0;
    // number "/" sheet annex "/" municipality: "PF01/0010/A001".
    QString Codice() const;
};

// Val, with an overflowing number read as 0 instead of the error.
double ValSicuro(const QString& testo);

RigaTaf LeggiRigaTaf(const QString& riga);
// Every line of a TAF text, in file order; lines blank after trimming are skipped.
QList<RigaTaf> LeggiTaf(const QString& testo);

// The municipality of a fiducial code: from its eleventh character on, trimmed.
QString ComuneDelPF(const QString& codice);
// The folder of the archive: UnitaPregeoDati, then fiducial, DATI.
QString CartellaFiduciali(const Stato& stato);
// The TAF of a municipality (".TAF"; names are matched without regard to case).
QString PercorsoTaf(const Stato& stato, const QString& comune);
// The TAF lines of a municipality; none when the file is missing.
QList<RigaTaf> LeggiTafComune(Stato& stato, const QString& comune);

// The second composition of a line's code: "PF", columns 16-17, "/", columns 8-10, column 12
// (or "0"), "/", columns 1-5 trimmed, with every blank turned into "0".
QString CodiceComposto(const QString& riga);

struct PFNellaTaf {
    bool trovato = false;
    QString nord, est;
};
// Looks the code up in the TAF of its municipality by the second composition.
PFNellaTaf TrovaPFNellaTAF(Stato& stato, const QString& codice);
// The same for many codes, one answer a code: each TAF is read once.
QList<PFNellaTaf> TrovaPFNellaTAF(Stato& stato, const QStringList& codici);

// The grid of the browser: headers, widths in base units (halves), print widths.
const QStringList& IntestazioniGriglia();
const QList<int>& MezziLarghezzeGriglia(); // widths in halves of the base unit
inline const QString kLarghezzeStampaTaf = QStringLiteral("15|5|2|12|12|60|2|8|60|15");
// The ten cells of a TAF line in the grid's column order.
QStringList CelleGriglia(const RigaTaf& r);
// The whole grid: row 0 the headers, then one row a TAF line.
QList<QStringList> GrigliaTaf(const QList<RigaTaf>& righe);

// The labels above the grid.
QString EtichettaProvincia(const QString& provincia);
QString EtichettaComune(const QString& nome, const QString& codice);
QString EtichettaTotali(int righe);

// The printed selection: rows da..a of the grid (either order, row 0 the headers) to
// CartellaLavoro\temp\Stampa_TAF.CSV and .TXT; the .TXT opens with the editor of the system.
// Returns false when only the header row was chosen.
bool StampaSelezioneTaf(Stato& stato, const QList<QStringList>& griglia, int da, int a);
// The texts of the two files, for tests.
QString TestoCsv(const QList<QStringList>& righe);
QString TestoColonne(const QStringList& intestazioni, const QList<QStringList>& righe,
                     const QString& larghezze);

// The registry's monograph page of a fiducial.
QString IndirizzoMonografia(const QString& comune, const QString& codice);
void ApriMonografia(Stato& stato, const QString& codice);

// The word that the browser and the distances send for installing the archives. The
// dispatcher has no entry for it: it is meant for the sibling program, and does nothing here.
inline const QString kParolaImportTaf = QStringLiteral("IMPORT-INST_TAF-MISURATE");
void ParolaImportTaf(Stato& stato);

// The browser's first screen: the province files of UnitaPregeoDati\pregeo\arch.
QString CartellaProvince(const Stato& stato);
QStringList FileProvince(const Stato& stato);
struct ComuneTaf {
    QString codice, nome, riga;
};
// Rows of a province file: fields 1 and 2 joined are the code, field 4 trimmed the name.
QList<ComuneTaf> LeggiComuniProvincia(Stato& stato, const QString& file);

// The rows 8 of the fiducials of the libretto's rows 2 and 5 from the TAF; with quote, each
// point also gets its height row.
QStringList CaricaPieffe8(Stato& stato, const QStringList& righeLibretto, bool quote);
// Command 0 of the import: the main list loses its rows 8 (not the first row), gains these,
// and the document is rebuilt from it.
void ImportaRighe8(Stato& stato, const QStringList& righe8);

// The mean height of the libretto's municipality from QUOTAMEDIA.TXT of the program folder:
// field 2 of the last line that holds its code goes to QuotaMedia. False when nothing matched.
bool LeggiQuotaMediaComune(Stato& stato);

} // namespace tavolet
