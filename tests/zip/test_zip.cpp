// The ZIP writer: records field by field, and archives that Debian's unzip accepts.
#include "zip.h"

#include "supporto.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <zlib.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

uint32_t L32(const QByteArray& b, qsizetype i) {
    return uint32_t(uint8_t(b[i])) | uint32_t(uint8_t(b[i + 1])) << 8 |
           uint32_t(uint8_t(b[i + 2])) << 16 | uint32_t(uint8_t(b[i + 3])) << 24;
}
uint16_t L16(const QByteArray& b, qsizetype i) {
    return uint16_t(uint8_t(b[i]) | uint8_t(b[i + 1]) << 8);
}

// Fields one after the other from where a record starts, as a struct format gives them:
// I four bytes, H two, little-endian.
void Campi(const QByteArray& b, qsizetype dove, const char* formato, QList<uint32_t> valori) {
    ASSERT_EQ(qsizetype(strlen(formato)), valori.size());
    for (qsizetype k = 0; k < valori.size(); dove += formato[k++] == 'I' ? 4 : 2)
        EXPECT_EQ(formato[k] == 'I' ? L32(b, dove) : L16(b, dove), valori[k]) << "byte " << dove;
}

struct Zip : ::testing::Test {
    QTemporaryDir dir;
    QString P(const QString& nome) const { return dir.filePath(nome); }
    QString Scrivi(const QString& nome, const QByteArray& byte, const QDateTime& quando = {}) {
        QFile f(P(nome));
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(byte);
        f.flush();
        if (quando.isValid()) f.setFileTime(quando, QFileDevice::FileModificationTime);
        return P(nome);
    }
};

} // namespace

TEST_F(Zip, RecordCampoPerCampo) {
    const QByteArray testo = QByteArray("8|1%|-5672.5828004894|-3732.6739706833|\r\n").repeated(50);
    const QDateTime quando(QDate(2024, 3, 15), QTime(14, 37, 43));
    ZipClass z;
    ASSERT_TRUE(z.AddFile(Scrivi("a.EMP", testo, quando)));
    ASSERT_TRUE(z.AddFile(Scrivi("b.bin", "xyz", quando), "DENTRO.TXT", "nota"));
    EXPECT_EQ(z.FileCount(), 2);
    z.Comment("Tavolet");
    ASSERT_TRUE(z.WriteZip(P("out.zip"), false));
    const QByteArray b = LeggiFile(P("out.zip"));

    // The compressed size as the local record gives it; the central record must agree (the
    // stream itself is unzip's, below).
    const uint32_t compresso = L32(b, 18);
    const uint16_t ora = (43 / 2) | (37 << 5) | (14 << 11);
    const uint16_t data = 15 | (3 << 5) | ((2024 - 1980) << 9);

    const uint32_t crc =
        uint32_t(crc32(0, reinterpret_cast<const Bytef*>(testo.constData()), uInt(testo.size())));
    const uint32_t dimensione = uint32_t(testo.size());
    const qsizetype secondo = 35 + compresso;
    const qsizetype centrale = secondo + 40 + L32(b, secondo + 18), centrale2 = centrale + 51;
    const qsizetype fine = centrale2 + 46 + 14;
    // The local record of a.EMP, the second's signature, the central records (internal
    // attributes 32, as Pregeo's tools write them), the end record.
    Campi(b, 0, "IHHHHHIIIHH", {0x04034B50, 20, 2, 8, ora, data, crc, compresso, dimensione, 5, 0});
    Campi(b, secondo, "I", {0x04034B50});
    Campi(b, centrale, "IHHHHHHIIIHHHHHII",
          {0x02014B50, 20, 20, 2, 8, ora, data, crc, compresso, dimensione, 5, 0, 0, 0, 32, 0, 0});
    Campi(b, centrale2 + 32, "HHHII", {4, 0, 32, 0, uint32_t(secondo)});
    Campi(b, fine, "IHHHHIIH",
          {0x06054B50, 0, 0, 2, 2, uint32_t(fine - centrale), uint32_t(centrale), 7});
    EXPECT_EQ(b.mid(30, 5), "a.EMP");
    EXPECT_EQ(b.mid(secondo + 30, 10), "DENTRO.TXT");
    EXPECT_EQ(b.mid(centrale2 + 46, 14), "DENTRO.TXTnota");
    EXPECT_EQ(b.mid(fine + 22), "Tavolet");
}

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
    // A member that is not there: nothing is written, exit status 1.
    EXPECT_EQ(Esegui({"zip", P("nuovo.zip"), P("manca.txt")}).codice, 1);
    EXPECT_FALSE(QFile::exists(P("nuovo.zip")));
}
