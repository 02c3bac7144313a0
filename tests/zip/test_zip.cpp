// The ZIP writer: records field by field, and archives that Debian's unzip accepts.
#include "zip.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <zlib.h>

using namespace tavolet;

namespace {

uint32_t L32(const QByteArray& b, qsizetype i) {
    return uint32_t(uint8_t(b[i])) | uint32_t(uint8_t(b[i + 1])) << 8 |
           uint32_t(uint8_t(b[i + 2])) << 16 | uint32_t(uint8_t(b[i + 3])) << 24;
}
uint16_t L16(const QByteArray& b, qsizetype i) {
    return uint16_t(uint8_t(b[i]) | uint8_t(b[i + 1]) << 8);
}

QByteArray Gonfia(const QByteArray& crudo, qsizetype dimensione) {
    QByteArray out(dimensione, '\0');
    z_stream s{};
    EXPECT_EQ(inflateInit2(&s, -15), Z_OK);
    s.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(crudo.constData()));
    s.avail_in = uInt(crudo.size());
    s.next_out = reinterpret_cast<Bytef*>(out.data());
    s.avail_out = uInt(out.size());
    EXPECT_EQ(inflate(&s, Z_FINISH), Z_STREAM_END);
    EXPECT_EQ(s.total_out, uLong(dimensione));
    inflateEnd(&s);
    return out;
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
    static QByteArray Leggi(const QString& p) {
        QFile f(p);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
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
    const QByteArray b = Leggi(P("out.zip"));

    // The size compress() gives for the same data, less its head and checksum.
    uLongf atteso = compressBound(uLong(testo.size()));
    QByteArray tmp(qsizetype(atteso), '\0');
    ASSERT_EQ(compress(reinterpret_cast<Bytef*>(tmp.data()), &atteso,
                       reinterpret_cast<const Bytef*>(testo.constData()), uLong(testo.size())),
              Z_OK);
    const uint32_t compresso = uint32_t(atteso - 6);
    const uint16_t ora = (43 / 2) | (37 << 5) | (14 << 11);
    const uint16_t data = 15 | (3 << 5) | ((2024 - 1980) << 9);

    EXPECT_EQ(L32(b, 0), 0x04034B50u);
    EXPECT_EQ(L16(b, 4), 20);
    EXPECT_EQ(L16(b, 6), 2);
    EXPECT_EQ(L16(b, 8), 8);
    EXPECT_EQ(L16(b, 10), ora);
    EXPECT_EQ(L16(b, 12), data);
    EXPECT_EQ(L32(b, 14), uint32_t(crc32(0, reinterpret_cast<const Bytef*>(testo.constData()),
                                         uInt(testo.size()))));
    EXPECT_EQ(L32(b, 18), compresso);
    EXPECT_EQ(L32(b, 22), uint32_t(testo.size()));
    EXPECT_EQ(L16(b, 26), 5);
    EXPECT_EQ(L16(b, 28), 0);
    EXPECT_EQ(b.mid(30, 5), "a.EMP");
    EXPECT_EQ(Gonfia(b.mid(35, compresso), testo.size()), testo);

    const qsizetype secondo = 35 + compresso;
    EXPECT_EQ(L32(b, secondo), 0x04034B50u);
    EXPECT_EQ(b.mid(secondo + 30, 10), "DENTRO.TXT");
    const uint32_t compresso2 = L32(b, secondo + 18);
    const qsizetype centrale = secondo + 40 + compresso2;

    EXPECT_EQ(L32(b, centrale), 0x02014B50u);
    EXPECT_EQ(L16(b, centrale + 4), 20);
    EXPECT_EQ(L16(b, centrale + 6), 20);
    EXPECT_EQ(L16(b, centrale + 8), 2);
    EXPECT_EQ(L16(b, centrale + 10), 8);
    EXPECT_EQ(L16(b, centrale + 12), ora);
    EXPECT_EQ(L16(b, centrale + 14), data);
    EXPECT_EQ(L32(b, centrale + 16), L32(b, 14));
    EXPECT_EQ(L32(b, centrale + 20), compresso);
    EXPECT_EQ(L32(b, centrale + 24), uint32_t(testo.size()));
    EXPECT_EQ(L16(b, centrale + 28), 5);
    EXPECT_EQ(L16(b, centrale + 30), 0);
    EXPECT_EQ(L16(b, centrale + 32), 0);
    EXPECT_EQ(L16(b, centrale + 34), 0);
    EXPECT_EQ(L16(b, centrale + 36), 32); // internal attributes, as Pregeo's tools write them
    EXPECT_EQ(L32(b, centrale + 38), 0u);
    EXPECT_EQ(L32(b, centrale + 42), 0u);
    const qsizetype centrale2 = centrale + 46 + 5;
    EXPECT_EQ(L16(b, centrale2 + 32), 4);
    EXPECT_EQ(L32(b, centrale2 + 42), uint32_t(secondo));
    EXPECT_EQ(b.mid(centrale2 + 46, 14), "DENTRO.TXTnota");

    const qsizetype fine = centrale2 + 46 + 14;
    EXPECT_EQ(L32(b, fine), 0x06054B50u);
    EXPECT_EQ(L16(b, fine + 4), 0);
    EXPECT_EQ(L16(b, fine + 6), 0);
    EXPECT_EQ(L16(b, fine + 8), 2);
    EXPECT_EQ(L16(b, fine + 10), 2);
    EXPECT_EQ(L32(b, fine + 12), uint32_t(fine - centrale));
    EXPECT_EQ(L32(b, fine + 16), uint32_t(centrale));
    EXPECT_EQ(L16(b, fine + 20), 7);
    EXPECT_EQ(b.mid(fine + 22), "Tavolet");
}

TEST_F(Zip, ArchivioVuotoEFileMancanti) {
    ZipClass z;
    EXPECT_FALSE(z.AddFile(P("manca.txt")));
    EXPECT_FALSE(z.AddFile(dir.path())); // a folder is no file
    EXPECT_EQ(z.FileCount(), 0);
    ASSERT_TRUE(z.WriteZip(P("vuoto.zip"), false));
    EXPECT_EQ(Leggi(P("vuoto.zip")), QByteArray("PK\x05\x06", 4) + QByteArray(18, '\0'));

    // An existing target is kept unless overwriting is asked for.
    EXPECT_FALSE(z.WriteZip(P("vuoto.zip"), false));
    EXPECT_EQ(z.UltimoErrore(), 0);
    Scrivi("vecchio.zip", QByteArray(1000, 'x'));
    ASSERT_TRUE(z.AddFile(Scrivi("uno.txt", "uno")));
    EXPECT_FALSE(z.WriteZip(P("vecchio.zip"), false));
    EXPECT_EQ(Leggi(P("vecchio.zip")), QByteArray(1000, 'x'));
    EXPECT_TRUE(z.WriteZip(P("vecchio.zip"), true));
    EXPECT_TRUE(Leggi(P("vecchio.zip")).startsWith("PK\x03\x04"));
    // A folder that is not there: the caller reports error 75.
    EXPECT_FALSE(z.WriteZip(P("manca/a.zip"), true));
    EXPECT_EQ(z.UltimoErrore(), 75);
    EXPECT_EQ(ZipClass::DataDos(QDate(1970, 1, 1)), (1 | (1 << 5)));
}

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
    ZipClass z;
    for (const auto& [nome, byte] : file) ASSERT_TRUE(z.AddFile(Scrivi(nome, byte)));
    z.Comment("Estratti di mappa");
    ASSERT_TRUE(z.WriteZip(P("prova.zip"), true));

    QProcess prova;
    prova.start("/usr/bin/unzip", {"-t", P("prova.zip")});
    ASSERT_TRUE(prova.waitForFinished(30000));
    const QString uscita = QString::fromLocal8Bit(prova.readAll());
    EXPECT_EQ(prova.exitCode(), 0) << uscita.toStdString();
    EXPECT_TRUE(uscita.contains("No errors detected")) << uscita.toStdString();
    for (const auto& [nome, byte] : file) {
        QProcess p;
        p.start("/usr/bin/unzip", {"-p", P("prova.zip"), nome});
        ASSERT_TRUE(p.waitForFinished(30000));
        EXPECT_EQ(p.exitCode(), 0);
        EXPECT_EQ(p.readAllStandardOutput(), byte) << nome.toStdString();
    }
}

TEST_F(Zip, ComandoZipConCommento) {
    if (!QFile::exists("/usr/bin/unzip")) GTEST_SKIP() << "unzip is not installed";
    Scrivi("A.EMP", "8|1%|0|0|\r\n");
    Scrivi("A.PNG", QByteArray(5000, '\x7f'));
    Scrivi("vecchio.zip", "non un archivio");
    QProcess cli;
    cli.start(TAVOLET_CLI,
              {"zip", P("vecchio.zip"), P("A.EMP"), "--commento", "Estratto A", P("A.PNG")});
    ASSERT_TRUE(cli.waitForFinished(30000));
    EXPECT_EQ(cli.exitCode(), 0) << cli.readAllStandardError().constData();
    QProcess unzip;
    unzip.start("/usr/bin/unzip", {"-l", P("vecchio.zip")});
    ASSERT_TRUE(unzip.waitForFinished(30000));
    const QString elenco = QString::fromLocal8Bit(unzip.readAll());
    EXPECT_EQ(unzip.exitCode(), 0);
    EXPECT_TRUE(elenco.contains("Estratto A")) << elenco.toStdString();
    EXPECT_TRUE(elenco.contains("A.EMP") && elenco.contains("A.PNG") && elenco.contains("2 files"));

    // A member that is not there: nothing is written, exit status 1.
    QProcess manca;
    manca.start(TAVOLET_CLI, {"zip", P("nuovo.zip"), P("manca.txt")});
    ASSERT_TRUE(manca.waitForFinished(30000));
    EXPECT_EQ(manca.exitCode(), 1);
    EXPECT_FALSE(QFile::exists(P("nuovo.zip")));
}
