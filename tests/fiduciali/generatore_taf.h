// Generated TAF and .DDD texts for the tests and the benchmark, laid out by the columns of the
// registry's files, and the plain reference version of the report's search.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <random>

namespace tavolet::test {

struct CampiTaf {
    QString comune = QStringLiteral("A001"), foglio = QStringLiteral("10"), allegato,
            numero = QStringLiteral("1"), mappa = QStringLiteral("125"),
            rifPlan = QStringLiteral("SPIGOLO FABBRICATO"), nord = QStringLiteral("-12345.670"),
            est = QStringLiteral("23456.780"), attPlan = QStringLiteral("01"),
            data1 = QStringLiteral("2003"), data2 = QStringLiteral("0156"),
            aggiornamento = QStringLiteral("12/03/2009"), rifAltim = QStringLiteral("BASE"),
            attAltim = QStringLiteral("02"), quota = QStringLiteral("12.450");
};
// One line of 240 columns and more, each field in its columns.
QString RigaTafCampi(const CampiTaf& c);

// A TAF of n fiducials of municipality comune, spread over sheets; codes "PFnn/sss0/comune".
QString TafGenerata(int n, const QString& comune, std::mt19937& rng);
// A .DDD of n distances between the fiducials of the TAF (codes PF01..PF99 of sheets 1..).
QString DddGenerato(int n, int fiduciali, const QString& comune, std::mt19937& rng);
// Code of fiducial i of TafGenerata.
QString CodiceGenerato(int i, const QString& comune);

// Compares bytes with a golden file of tests/dati; with TAVOLET_RIGENERA set the golden file is
// written anew first (then look at it before committing).
void ConfrontaGolden(const QByteArray& byte, const QString& nome);

// The plain search of the archive: for each pair of names (i < j), the lines that hold both,
// the file read into lines first.
QHash<quint64, QStringList> CoppieRiferimento(const QByteArray& byte, const QStringList& nomi);
// What CoppieNellArchivio found, in the same shape.
QHash<quint64, QStringList> CoppieTrovate(const QByteArray& byte, const QStringList& nomi);

} // namespace tavolet::test
