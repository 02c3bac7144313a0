// tavolet-cli's commands of the head dialog and of the archives of comuni.
#include "supporto.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct CliConfigurazione : ::testing::Test {
    QTemporaryDir radice;
    void SetUp() override { CopiaDemo(radice.path()); }
    Esito Esegui(const QStringList& argomenti) {
        return test::Esegui(radice.path(), argomenti, "21112026");
    }
    QByteArray Leggi(const QString& relativo) const { return LeggiFile(radice.filePath(relativo)); }
};

} // namespace

TEST_F(CliConfigurazione, CampiEConferma) {
    Esito e = Esegui({"configura", "campi", "C:\\Libretti\\ESEMPIO.DAT"});
    ASSERT_EQ(e.codice, 0) << e.err.toStdString();
    EXPECT_EQ(e.out.toUtf8(), Dati("configurazione/campi_esempio.txt"));

    e = Esegui({"configura", "conferma", "C:\\Libretti\\ESEMPIO.DAT", "C:\\Libretti\\OUT.DAT",
                "--campo", "4=12,3,12", "--campo", "3=12a", "--campo", "15=DEROGA", "--campo",
                "17=RSSMRA80A01G224W", "--check1", "0", "--check2", "1"});
    ASSERT_EQ(e.codice, 0) << e.err.toStdString();
    EXPECT_EQ(Leggi("drive_c/Libretti/OUT.DAT"), Dati("configurazione/conferma_esempio.dat"));
    // PREGEO.INI untouched with --check1 0.
    EXPECT_EQ(Leggi("drive_c/windows/PREGEO.INI"),
              LeggiFile(qEnvironmentVariable("TAVOLET_DEMO") + "/drive_c/windows/PREGEO.INI"));

    e = Esegui({"configura", "conferma", "C:\\Libretti\\ESEMPIO.DAT", "C:\\Libretti\\OUT.DAT",
                "--campo", "25=X"});
    EXPECT_EQ(e.codice, 2);
}

TEST_F(CliConfigurazione, CodiceFiscaleEComuni) {
    Esito e = Esegui({"codicefiscale", "RSSMRA80A01G224W", "rssmra80a01g224w", "RSSMRA80A01G224",
                      "BNCLCU70A01G224X"});
    EXPECT_EQ(e.codice, 0);
    EXPECT_EQ(e.out, "RSSMRA80A01G224W CORRETTO\nrssmra80a01g224w CORRETTO\n"
                     "RSSMRA80A01G224 ERRATO\nBNCLCU70A01G224X ERRATO\n");
    e = Esegui({"codicefiscale", "RSSMRA80A01G2#4W"});
    EXPECT_EQ(e.codice, 1);
    EXPECT_EQ(e.out, "RSSMRA80A01G2#4W ERRATO\n");
    EXPECT_TRUE(e.err.contains("VerificaCodiceFiscale"));

    e = Esegui({"comuni", "cerca", "pad"});
    ASSERT_EQ(e.codice, 0) << e.err.toStdString();
    EXPECT_EQ(e.out.toUtf8(), Dati("configurazione/comuni_pad.txt"));
    e = Esegui({"comuni", "cerca", "|G693", "--generale"});
    const QStringList righe = e.out.split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(righe.size(), 2);
    EXPECT_EQ(righe[0], "Nome Comune                            C.Cat C.Fis Prov.");
    EXPECT_TRUE(righe[1].contains("|G693 |"));
}
