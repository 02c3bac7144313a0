// The ZIP writer: an empty archive, targets kept or replaced, and archives that Debian's unzip
// accepts.
#include "zip.h"

#include "supporto.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

uint16_t L16(const QByteArray& b, qsizetype i) {
    return uint16_t(uint8_t(b[i]) | uint8_t(b[i + 1]) << 8);
}

struct Zip : ::testing::Test {
    QTemporaryDir dir;
    QString P(const QString& nome) const { return dir.filePath(nome); }
    QString Scrivi(const QString& nome, const QByteArray& byte) {
        QFile f(P(nome));
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(byte);
        return P(nome);
    }
};

} // namespace

TEST_F(Zip, ArchivioVuotoEFileMancanti) {
    ZipClass z;
    EXPECT_FALSE(z.AddFile(P("manca.txt")));
    EXPECT_FALSE(z.AddFile(dir.path())); // a folder is no file
    EXPECT_EQ(z.FileCount(), 0);
    ASSERT_TRUE(z.WriteZip(P("vuoto.zip"), false));
    EXPECT_EQ(LeggiFile(P("vuoto.zip")), QByteArray("PK\x05\x06", 4) + QByteArray(18, '\0'));

    // An existing target is kept unless overwriting is asked for.
    EXPECT_FALSE(z.WriteZip(P("vuoto.zip"), false));
    EXPECT_EQ(z.UltimoErrore(), 0);
    Scrivi("vecchio.zip", QByteArray(1000, 'x'));
    ASSERT_TRUE(z.AddFile(Scrivi("uno.txt", "uno")));
    EXPECT_FALSE(z.WriteZip(P("vecchio.zip"), false));
    EXPECT_EQ(LeggiFile(P("vecchio.zip")), QByteArray(1000, 'x'));
    EXPECT_TRUE(z.WriteZip(P("vecchio.zip"), true));
    EXPECT_TRUE(LeggiFile(P("vecchio.zip")).startsWith("PK\x03\x04"));
    // A folder that is not there: the caller reports error 75.
    EXPECT_FALSE(z.WriteZip(P("manca/a.zip"), true));
    EXPECT_EQ(z.UltimoErrore(), 75);
    EXPECT_EQ(ZipClass::DataDos(QDate(1970, 1, 1)), (1 | (1 << 5)));
}

// As a user meets it: the command line's archive, with the comment, tested, listed and
// unpacked by Debian's unzip, member by member.
TEST_F(Zip, UnzipLoAccettaERestituisceIByte) {
    if (!QFile::exists("/usr/bin/unzip")) GTEST_SKIP() << "unzip is not installed";
    QByteArray casuale(300000, '\0');
    QRandomGenerator rng(42);
    for (char& c : casuale) c = char(rng.bounded(256));
    QByteArray estratto;
    for (int i = 0; i < 20000; ++i)
        estratto += "8|" + QByteArray::number(i + 1) + "%|-5672.58" + QByteArray::number(i % 97) +
                    "|-3732.67" + QByteArray::number(i % 89) + "|\r\n";
    const QList<std::pair<QString, QByteArray>> file = {{"ESTRATTO.EMP", estratto},
                                                        {"casuale.bin", casuale},
                                                        {"vuoto.txt", QByteArray()},
                                                        {"uno.txt", "1"}};
    Scrivi("prova.zip", "non un archivio"); // replaced
    QStringList argomenti = {"zip", P("prova.zip"), "--commento", "Estratti di mappa"};
    for (const auto& [nome, byte] : file) argomenti << Scrivi(nome, byte);
    const Esito cli = Esegui(argomenti);
    ASSERT_EQ(cli.codice, 0) << cli.err.toStdString();

    const Esito prova = EseguiProgramma("/usr/bin/unzip", {"-t", P("prova.zip")}, 30000);
    EXPECT_EQ(prova.codice, 0) << prova.out.toStdString();
    EXPECT_TRUE(prova.out.contains("No errors detected")) << prova.out.toStdString();
    const Esito elenco = EseguiProgramma("/usr/bin/unzip", {"-l", P("prova.zip")}, 30000);
    EXPECT_TRUE(elenco.out.contains("Estratti di mappa") && elenco.out.contains("4 files"))
        << elenco.out.toStdString();
    for (const auto& [nome, byte] : file) {
        QProcess p;
        p.start("/usr/bin/unzip", {"-p", P("prova.zip"), nome});
        ASSERT_TRUE(p.waitForFinished(30000));
        EXPECT_EQ(p.exitCode(), 0);
        EXPECT_EQ(p.readAllStandardOutput(), byte) << nome.toStdString();
    }
    // Every central record with the internal attributes 32, as Pregeo's tools write them.
    const QByteArray b = LeggiFile(P("prova.zip"));
    int centrali = 0;
    for (qsizetype c = b.indexOf("PK\x01\x02"); c >= 0;
         c = b.indexOf("PK\x01\x02", c + 4), ++centrali)
        EXPECT_EQ(L16(b, c + 36), 32);
    EXPECT_EQ(centrali, 4);
    // A member that is not there: nothing is written, exit status 1.
    EXPECT_EQ(Esegui({"zip", P("nuovo.zip"), P("manca.txt")}).codice, 1);
    EXPECT_FALSE(QFile::exists(P("nuovo.zip")));
}
