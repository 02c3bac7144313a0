// The .DDD archive of a province: distances measured between its fiducial points, one a line,
// the two codes in the first 33 characters and the distance from column 34.
#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

namespace tavolet {

struct Stato;

struct MisuraDdd {
    QString codice1, codice2;
    double distanza = 0;
};
// A short or odd line gives empty codes and a distance of 0.
MisuraDdd LeggiRigaDdd(const QString& riga);

// The .DDD files of the archive folder, sorted by name.
QStringList FileDdd(const Stato& stato);
// The abbreviation of the province of a municipality code, from the table of comuni.
QString SiglaProvinciaDelComune(Stato& stato, const QString& comune);
// The archive of a province: walking the files from last to first, the first whose name
// begins with the abbreviation; the bare abbreviation when none does.
QString ArchivioMisurate(const Stato& stato, const QString& sigla);
QString PercorsoArchivio(const Stato& stato, const QString& nome);

// The lines of an archive (its bytes) that hold two or more of the names, decoded, in file
// order; for every pair of names (i < j, indices into nomi), the indices into those lines of
// the ones that hold both. A name that begins with "PF" is found by lookup at each "PF" of a
// line, any other by search; an empty name is never found.
struct CoppieArchivio {
    QStringList righe;
    QHash<quint64, QList<int>> coppie;
};
CoppieArchivio CoppieNellArchivio(const QByteArray& byte, const QStringList& nomi);
inline quint64 ChiaveCoppia(int i, int j) {
    return (quint64(quint32(i)) << 32) | quint32(j);
}

} // namespace tavolet
