// The censuario and particelle commands of tavolet-cli, as a script would call them.
#include "supporto.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct CliCensuario : ::testing::Test {
    RadiceProva radice;
    QTemporaryDir dir;
    void SetUp() override {
        radice.PregeoMinimo();
        radice.Scrivi("C:\\pregeo\\exe\\qualita.txt", Dati("censuario/qualita.txt"));
        Scrivi("A001_00012_35.MAP",
               "6|PARTICELLA|35|02|SEMINATIVO  |29380|29380|120.50|80.25|SN|\r\n");
        Scrivi("A001_00012_36.MAP", "6|PARTICELLA|36|00|ENTE URBANO |1200|1200|0|0|SN|\r\n");
        Scrivi("A001_00012_37.MAP", "6|PARTICELLA|37|  |PRATO       |500|500|1.00|2.00|SN|\r\n");
    }
    void Scrivi(const QString& nome, const QByteArray& byte) {
        QFile f(dir.filePath(nome));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(byte);
    }
    Esito Esegui(const QStringList& argomenti) {
        QProcess p;
        p.setWorkingDirectory(dir.path());
        p.start(TAVOLET_CLI, QStringList{"--radice", radice.Percorso()} + argomenti);
        p.waitForFinished(60000);
        return {p.exitCode(), QString::fromUtf8(p.readAllStandardOutput()),
                QString::fromUtf8(p.readAllStandardError())};
    }
};

QString Uscita(const QString& nome) {
    return RigheDiTesto(DaWindows1252(Dati("censuario/" + nome))).join(u'\n') + u'\n';
}

} // namespace

TEST_F(CliCensuario, AreeDellaProposta) {
    const Esito e = Esegui({"censuario", "aree", PercorsoDati("censuario/proposta.txt")});
    EXPECT_EQ(e.codice, 0) << e.err.toStdString();
    EXPECT_EQ(e.out, Uscita("aree_attese.txt") + "--\n" + Uscita("modello_atteso.txt"));
}

TEST_F(CliCensuario, FrazionamentoEStralcioDaSchema) {
    Scrivi("schema.txt", "Operazione|Particella|Area Catast|RA|RD|Prop.Aree|SR/SN|Area FISSA|\n"
                         "C|a||||15000.4|SN||AAA\r\nC|b||||14389.6|SN||AAB\r\n");
    Esito e = Esegui({"censuario", "frazionamento", "A001_00012_35.MAP", "schema.txt"});
    EXPECT_EQ(e.codice, 0) << e.err.toStdString();
    EXPECT_EQ(e.out, Uscita("frazionamento_341.txt"));

    // The stralcio's memo takes the head "51FTP" as the screen's memo does; with no parcel
    // chosen for the urban, the derived parcels inherit quality and classe.
    e = Esegui({"censuario", "stralcio", "A001_00012_35.MAP", "schema.txt"});
    EXPECT_EQ(e.codice, 0) << e.err.toStdString();
    const QStringList righe = e.out.split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(righe.size(), 6);
    EXPECT_TRUE(righe[1].startsWith("6|51FTP|004|"));
    EXPECT_EQ(righe[5], "6|C|     |000|b |AAB  |000014385|SN|  |     |001|2 |                 |");

    // A schema of no derived rows, an area of 1e12 on every row.
    Scrivi("vuoto.txt", "O|35\n");
    e = Esegui({"censuario", "frazionamento", "A001_00012_35.MAP", "vuoto.txt"});
    EXPECT_EQ(e.codice, 1);
    EXPECT_TRUE(e.err.contains("Impossibile continuare"));
    Scrivi("enorme.txt", "C|a||||1e12|SN||\nC|b||||-5|SR|FISSA|\n");
    e = Esegui({"censuario", "frazionamento", "A001_00012_35.MAP", "enorme.txt"});
    for (const QString& r : e.out.split(u'\n', Qt::SkipEmptyParts)) EXPECT_EQ(r.size(), 70);
}

TEST_F(CliCensuario, NuovaCostruzioneVariazioneFusione) {
    Esito e =
        Esegui({"censuario", "nuovacostruzione", "A001_00012_35.MAP", "--identificativo", "AAC"});
    EXPECT_EQ(e.codice, 0) << e.err.toStdString();
    EXPECT_EQ(e.out, Uscita("nuova_costruzione.txt"));
    e = Esegui({"censuario", "variazione", "A001_00012_36.MAP", "--sr"});
    EXPECT_EQ(e.out, Uscita("variazione.txt"));
    e = Esegui({"censuario", "fusione", "--tipo", "TM", "A001_00012_35.MAP", "A001_00012_36.MAP",
                "A001_00012_37.MAP"});
    EXPECT_EQ(e.out, Uscita("fusione_tm.txt"));
    e = Esegui({"censuario", "fusione", "--tipo", "AUSILIARIO", "--mantieni", "A001_00012_35.MAP",
                "A001_00012_36.MAP", "A001_00012_37.MAP"});
    EXPECT_TRUE(e.out.startsWith(Uscita("fusione_ausiliario.txt").left(70 + 1 + 8)));
    EXPECT_EQ(Esegui({"censuario", "fusione", "--tipo", "XX", "A001_00012_35.MAP"}).codice, 2);
    // A parcel file of one field is refused with the error report: no row made up.
    Scrivi("A001_00012_9.MAP", "6\r\n");
    e = Esegui({"censuario", "nuovacostruzione", "A001_00012_9.MAP"});
    EXPECT_EQ(e.codice, 1);
    EXPECT_EQ(e.out, "");
}

TEST_F(CliCensuario, ParticelleDaEstrattoEDaModello) {
    Scrivi("X.EMP", "0|01012020|PD1/2020|A001|00012|35|PD|\r\n"
                    "6|PARTICELLA|35|01|SEMINATIVO  |29380|29380|0|0|\r\n"
                    "6|PARTICELLA|3/6|00|ENTE URBANO |1200|1200|0|0|\r\n");
    Esito e = Esegui({"particelle", "da-estratto", "X.EMP", "archivio"});
    EXPECT_EQ(e.codice, 0) << e.err.toStdString();
    EXPECT_EQ(e.out, "A001_00012_35.Map\nA001_00012_3_6.Map\n");
    QFile f(dir.filePath("archivio/A001_00012_35.Map"));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), QByteArray("6|PARTICELLA|35|01|SEMINATIVO  |29380|29380|0|0|\r\n"));

    Scrivi("L.DAT", Dati("censuario/libretto.dat") + Dati("censuario/frazionamento_341.txt"));
    e = Esegui({"particelle", "da-modello", "L.DAT", "modello"});
    EXPECT_EQ(e.codice, 0) << e.err.toStdString();
    EXPECT_EQ(e.out, "A001_00012_AAA.MAP\nA001_00012_AAB.MAP\n");
}
