// The particle archive: one .MAP file of one row for each parcel the surveyor works on, in
// \FIDUCIAL\PARTICELLE\ of Pregeo's data drive. The row is a "6|PARTICELLA|" row of an
// extract: number, classe, quality, registered and graphic area, incomes, flag.
#pragma once

#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

inline const QString kRigaParticellaVuota =
    QStringLiteral("6|PARTICELLA|  |  |            |    |    | | |");

// The fields of the archive screen; the censuary screens read them while they run.
struct CampiParticella {
    QString Comune, Foglio, Mappale, Qualita, Classe, SupCatastale, SupGrafica;
    QString RedditoDominicale, RedditoAgrario, Flag, CodiceQualita;
};

// UnitaPregeoDati + "\FIDUCIAL\PARTICELLE\".
QString CartellaParticelle(const Stato& stato);

// The file names of the folder that match the pattern ("*.MAP", "A001_00012*.MAP"), case
// ignored, in alphabetical order.
QStringList ElencoParticelle(const Stato& stato, const QString& modello);
// Pattern of "Particelle in Libretto": comune + "_0" + foglio + "*.MAP".
QString ModelloParticelleLibretto(const QString& comune, const QString& foglio);
// "Mappali in Libretto Misure": the file name each parcel of the comma-separated list would
// have.
QStringList MappaliInLibretto(const QString& comune, const QString& foglio, const QString& mappali);
// "Mappali in Proposta": the items whose halves differ, in their order.
QStringList MappaliInProposta(const QStringList& modello);

// "Elimina Particella" and "Azzera Archivio Particelle" (every file by the pattern *.MAP*).
void EliminaFileParticella(Stato& stato, const QString& nomeFile);
int AzzeraArchivioParticelle(Stato& stato);

// The fields from a file name (comune_foglio_numero.MAP) and its first line. The quality code
// comes from the first lookup of the table of qualities.
CampiParticella CampiDaParticella(const QString& nomeFile, const QString& riga,
                                  const QStringList& tabellaQualita);
// What every composition needs of a parcel: its number, quality and registered area. A file
// that lacks one ("6|PARTICELLA|35", an empty file) gets the error report (13) instead of rows
// with the table's first quality, a classe of 1 or an area of 0.
void ControllaParticella(const CampiParticella& campi);
// The fields of a parcel's row alone, its number taken from field 2 (the fusione's way).
CampiParticella CampiDaRigaParticella(const QString& riga, const QStringList& tabellaQualita);
// The first line of a parcel file of the folder; empty when it is absent.
QString LeggiRigaParticella(const Stato& stato, const QString& nomeFile);

// Field rules of the screen.
QString NormalizzaFoglio(const QString& foglio);
QString NormalizzaClasse(const QString& classe);
QString InvertiFlag(const QString& flag); // "SN" (any case) -> "SR", anything else -> "SN"

// The row of a parcel as "Archivia" composes it (an empty graphic area takes the registered
// one), and the file name comune_foglio_numero.MAP upper-cased.
QString ComponiRigaParticella(CampiParticella& campi);
QString NomeFileParticella(const CampiParticella& campi);

// The associated extract with the new row of a parcel: rows regrouped as heads (0, 7, 8,
// DITTA), parcels (the same parcel replaced), distances and the like, then the framing row.
QString AggiornaTestoEstratto(const QString& testoEstratto, const QString& nuovaRiga);

// Archives the parcel: writes its file and updates the associated extract when there is one.
// Returns the row written.
QString ArchiviaParticella(Stato& stato, CampiParticella& campi);

// The parcel files a libretto's model of a frazionamento gives: file name and row, for each
// row "C" of the 51FTP blocks (stralci and fusioni are not read).
struct FileParticella {
    QString nome;
    QString riga;
};
QList<FileParticella> ParticelleDaModello(const QString& testoLibretto, const QString& comune,
                                          const QString& foglio, const QStringList& tabellaQualita);
// The parcel files of an extract: its "6|PARTICELLA|" rows as they stand, or, without them,
// a row for each simple outline on the libretto's comune and foglio.
QList<FileParticella> ParticelleDaEstratto(const QStringList& righeEstratto,
                                           const QString& comuneLibretto,
                                           const QString& foglioLibretto);
// Writes them into the folder, each replacing its file; returns how many.
int ScriviParticelle(Stato& stato, const QList<FileParticella>& file);

// "Genera Particelle da Fraz. in Censuario" on the document (tag "Decozero_102").
int GeneraParticelleDaCensuario(Stato& stato);
// "Genera Particelle da Estratto" on the associated extract (or the given path), with the
// messages of a missing association or file. Returns how many files were written.
int GeneraParticelleDaEstratto(Stato& stato, const QString& nomeEstratto);

} // namespace tavolet
