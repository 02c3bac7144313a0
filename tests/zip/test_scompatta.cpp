// Unpacking: the bytes of every member, archives of another writer, and hostile archives
// that must neither escape the folder nor leave anything behind.
#include "scompatta.h"
#include "zip.h"

#include "supporto.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

using Membri = QList<std::pair<QString, QByteArray>>;

void Metti32(QByteArray& b, qsizetype i, uint32_t v) {
    for (int k = 0; k < 4; ++k) b[i + k] = char((v >> (8 * k)) & 0xFF);
}

struct Scompatta : ::testing::Test {
    QTemporaryDir base;
    QString dentro, fuori;

    void SetUp() override {
        QDir(base.path()).mkdir("dentro");
        QDir(base.path()).mkdir("fuori");
        dentro = QFileInfo(base.filePath("dentro")).canonicalFilePath();
        fuori = QFileInfo(base.filePath("fuori")).canonicalFilePath();
        Scrivi(fuori + "/sentinella.txt", "non toccare");
    }
    static void Scrivi(const QString& p, const QByteArray& b) {
        QFile f(p);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly)) << p.toStdString();
        f.write(b);
    }
    // The archive's bytes, written by ZipClass with these stored names.
    QByteArray Archivio(const Membri& membri) {
        QTemporaryDir sorgenti;
        ZipClass z;
        int i = 0;
        for (const auto& [nome, byte] : membri) {
            const QString p = sorgenti.filePath(QString::number(i++));
            Scrivi(p, byte);
            EXPECT_TRUE(z.AddFile(p, nome));
        }
        const QString zip = sorgenti.filePath("a.zip");
        EXPECT_TRUE(z.WriteZip(zip, true));
        return LeggiFile(zip);
    }
    QString ZipDa(const QByteArray& byte) {
        const QString p = base.filePath("archivio.zip");
        Scrivi(p, byte);
        return p;
    }
    // Every file and folder under the base with its bytes: what a run may have changed.
    QMap<QString, QByteArray> Fotografia() const {
        QMap<QString, QByteArray> tutto;
        QDirIterator it(base.path(),
                        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                        QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString p = it.next();
            tutto[p] = QFileInfo(p).isDir() ? QByteArray("<cartella>") : LeggiFile(p);
        }
        return tutto;
    }
    // The promise for any archive: an error leaves everything as it was (archive aside), a
    // success writes only inside the folder.
    void ControllaEsito(const EsitoScompatta& e, QMap<QString, QByteArray> prima,
                        const std::string& caso) {
        QMap<QString, QByteArray> dopo = Fotografia();
        for (auto* m : {&prima, &dopo}) m->remove(base.filePath("archivio.zip"));
        if (!e.Riuscito()) {
            EXPECT_TRUE(e.file.isEmpty()) << caso;
            EXPECT_EQ(dopo, prima) << caso;
            return;
        }
        for (auto it = dopo.begin(); it != dopo.end(); ++it)
            if (!it.key().startsWith(dentro + '/')) {
                EXPECT_EQ(prima.value(it.key()), it.value());
            }
        for (const QString& f : e.file) EXPECT_TRUE(f.startsWith(dentro + '/')) << caso;
    }
};

// Offsets of the first local and central records of a ZipClass archive.
qsizetype Centrale(const QByteArray& b) {
    return b.indexOf(QByteArray("PK\x01\x02", 4));
}

} // namespace

TEST_F(Scompatta, OgniVoceConISuoiByte) {
    QByteArray casuale(300000, '\0');
    QRandomGenerator rng(7);
    for (char& c : casuale) c = char(rng.bounded(256));
    const Membri membri = {{"ESTRATTO.EMP", Dati("estratti/realistico.EMP")},
                           {"Sub\\Foglio.PNG", Dati("estratti/realistico.PNG")},
                           {"./vuoto.txt", QByteArray()},
                           {"casuale.bin", casuale}};
    Scrivi(dentro + "/ESTRATTO.EMP", "vecchio"); // replaced
    const EsitoScompatta e = ScompattaZip(ZipDa(Archivio(membri)), dentro);
    ASSERT_TRUE(e.Riuscito()) << e.descrizione.toStdString();
    EXPECT_EQ(e.file, QStringList({dentro + "/ESTRATTO.EMP", dentro + "/Sub/Foglio.PNG",
                                   dentro + "/vuoto.txt", dentro + "/casuale.bin"}));
    for (int i = 0; i < membri.size(); ++i)
        EXPECT_EQ(LeggiFile(e.file[i]), membri[i].second) << e.file[i].toStdString();

    // Another writer's archive (a folder entry, data descriptors, a stored member) is the
    // command line's copy.
    // An archive without members unpacks to nothing.
    const EsitoScompatta vuoto = ScompattaZip(ZipDa(Archivio({})), base.filePath("fuori"));
    EXPECT_TRUE(vuoto.Riuscito()) << vuoto.descrizione.toStdString();
    EXPECT_TRUE(vuoto.file.isEmpty());
}

TEST_F(Scompatta, NomiOstiliRifiutatiSenzaScrivereNulla) {
    EXPECT_EQ(PercorsoVoceSicuro("a\\b.EMP"), "a/b.EMP");
    EXPECT_EQ(PercorsoVoceSicuro("./a//b.EMP"), "a/b.EMP");
    EXPECT_EQ(PercorsoVoceSicuro("..a..EMP"), "..a..EMP"); // dots inside a name are no step up
    EXPECT_EQ(PercorsoVoceSicuro("Cartella/"), "Cartella");
    EXPECT_EQ(PercorsoVoceSicuro("CONSORZIO.EMP"), "CONSORZIO.EMP");

    const QStringList ostili = {"../evil.EMP",
                                "..\\evil.EMP",
                                "Sub/../../evil.EMP",
                                "Sub/./../../fuori/evil.EMP",
                                fuori + "/assoluto.EMP", // honoured, it would land in fuori
                                "\\fuori\\evil.EMP",
                                "C:\\evil.EMP",
                                "C:evil.EMP",
                                "a/b.EMP:flusso",
                                "CON",
                                "Sub/nul.txt",
                                "lpt1.EMP",
                                QString("a") + QChar(1) + "b.EMP",
                                "./"};
    for (const QString& nome : ostili) {
        const auto prima = Fotografia();
        // A good member first: it must not stay behind either.
        const EsitoScompatta e =
            ScompattaZip(ZipDa(Archivio({{"buono.EMP", "8|1|0|0|\r\n"}, {nome, "male"}})), dentro);
        EXPECT_EQ(e.errore, 321) << nome.toStdString() << " " << e.descrizione.toStdString();
        ControllaEsito(e, prima, nome.toStdString());
        EXPECT_FALSE(QFile::exists(dentro + "/buono.EMP"));
    }
}

TEST_F(Scompatta, ArchiviDanneggiatiNeCrashNeResti) {
    const QByteArray buono =
        Archivio({{"A.EMP", Dati("estratti/realistico.EMP")}, {"Sub/A.PNG", QByteArray(999, 'p')}});

    // Cut anywhere, the end record is gone: always an error, nothing left.
    for (qsizetype n = 0; n < buono.size(); ++n) {
        const auto prima = Fotografia();
        const EsitoScompatta e = ScompattaZip(ZipDa(buono.left(n)), dentro);
        EXPECT_EQ(e.errore, 321) << n << " di " << buono.size();
        ControllaEsito(e, prima, "troncato a " + std::to_string(n));
    }
    // Every byte flipped in turn: a checksum, a size, a signature, the stream itself.
    QRandomGenerator rng(2024);
    QList<QByteArray> casi;
    for (qsizetype i = 0; i < buono.size(); ++i) {
        QByteArray b = buono;
        b[i] = char(b[i] ^ (1 << rng.bounded(8)));
        casi.append(b);
    }
    for (int k = 0; k < casi.size(); ++k) {
        const auto prima = Fotografia();
        const EsitoScompatta e = ScompattaZip(ZipDa(casi[k]), dentro);
        ControllaEsito(e, prima, "caso " + std::to_string(k));
        if (e.Riuscito()) {
            for (const QString& f : e.file) QFile::remove(f);
            QDir(dentro + "/Sub").removeRecursively();
        }
    }
}

TEST_F(Scompatta, LimitiCifraturaECartelleMancanti) {
    const QByteArray mille = Archivio({{"a.bin", QByteArray(600, 'a')}, {"b.bin", "x"}});
    const QString zip = ZipDa(mille);
    EXPECT_TRUE(ScompattaZip(zip, dentro, {601, 2}).Riuscito());
    const auto prima = Fotografia();
    const EsitoScompatta grande = ScompattaZip(zip, dentro, {600, 2});
    EXPECT_EQ(grande.errore, 321);
    EXPECT_EQ(grande.descrizione, "Archivio troppo grande da scompattare");
    ControllaEsito(grande, prima, "grande");
    const EsitoScompatta troppe = ScompattaZip(zip, dentro, {601, 1});
    EXPECT_EQ(troppe.errore, 321);
    EXPECT_EQ(troppe.descrizione, "L'archivio ha più di 1 voci");

    // A bomb: 64 MB of zeros in a few kilobytes, refused by its declared size before writing.
    QTemporaryDir altra;
    const QByteArray bomba = Archivio({{"zeri.EMP", QByteArray(64 << 20, '\0')}});
    ASSERT_LT(bomba.size(), 100000);
    EXPECT_EQ(ScompattaZip(ZipDa(bomba), altra.path(), {1 << 20, 10}).errore, 321);
    EXPECT_TRUE(QDir(altra.path()).isEmpty());
    // The same lie the other way: 4 GB declared for a small member.
    QByteArray bugiardo = Archivio({{"a.EMP", "8|1|0|0|\r\n"}});
    Metti32(bugiardo, Centrale(bugiardo) + 24, 0xFFFFFFFF);
    EXPECT_EQ(ScompattaZip(ZipDa(bugiardo), altra.path()).descrizione,
              "Archivio troppo grande da scompattare");

    QByteArray cifrato = Archivio({{"a.EMP", "8|1|0|0|\r\n"}});
    cifrato[6] = char(cifrato[6] | 1);
    cifrato[Centrale(cifrato) + 8] = char(cifrato[Centrale(cifrato) + 8] | 1);
    EXPECT_EQ(ScompattaZip(ZipDa(cifrato), altra.path()).descrizione,
              "Voce protetta da password: a.EMP");
    EXPECT_TRUE(QDir(altra.path()).isEmpty());

    EXPECT_EQ(ScompattaZip(base.filePath("manca.zip"), dentro).errore, 53);
    EXPECT_EQ(ScompattaZip(dentro, dentro).errore, 53); // a folder is no archive
    EXPECT_EQ(ScompattaZip(zip, base.filePath("manca")).errore, 76);
}

TEST_F(Scompatta, CollegamentiEArchivioNellaCartella) {
    // A link to a folder elsewhere is not followed.
    ASSERT_TRUE(QFile::link(fuori, dentro + "/link"));
    auto prima = Fotografia();
    EsitoScompatta e = ScompattaZip(ZipDa(Archivio({{"link/evil.EMP", "male"}})), dentro);
    EXPECT_EQ(e.errore, 75);
    ControllaEsito(e, prima, "link a cartella");
    // A link to a file is replaced by the member, its target untouched.
    ASSERT_TRUE(QFile::link(fuori + "/sentinella.txt", dentro + "/f.EMP"));
    e = ScompattaZip(ZipDa(Archivio({{"f.EMP", "nuovo"}})), dentro);
    ASSERT_TRUE(e.Riuscito()) << e.descrizione.toStdString();
    EXPECT_FALSE(QFileInfo(dentro + "/f.EMP").isSymLink());
    EXPECT_EQ(LeggiFile(dentro + "/f.EMP"), "nuovo");
    EXPECT_EQ(LeggiFile(fuori + "/sentinella.txt"), "non toccare");

    // The archive lies in the folder and holds a member of its own name: it is not
    // overwritten while it is read.
    const QByteArray a = Archivio({{"A.ZIP", "non io"}, {"A.EMP", "8|1|0|0|\r\n"}});
    Scrivi(dentro + "/A.ZIP", a);
    e = ScompattaZip(dentro + "/A.ZIP", dentro);
    ASSERT_TRUE(e.Riuscito()) << e.descrizione.toStdString();
    EXPECT_EQ(e.file, QStringList({dentro + "/A.EMP"}));
    EXPECT_EQ(LeggiFile(dentro + "/A.ZIP"), a);
}
