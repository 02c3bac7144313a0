// The printed selection of the grid, the rows 8 from the TAF and the mean height.
#include "fiduciali.h"
#include "generatore_taf.h"
#include "supporto.h"

namespace tavolet::test {

namespace {

struct Taf : ConPregeo {
    void SetUp() override {
        ConPregeo::SetUp();
        radice.Scrivi("C:\\fiducial\\DATI\\A001.TAF", Dati("fiduciali/A001.TAF"));
    }
};

QList<RigaTaf> Campione() {
    return LeggiTaf(DaWindows1252(Dati("fiduciali/A001.TAF")));
}

} // namespace

TEST_F(Taf, StampaSelezioneGolden) {
    const QList<QStringList> g = GrigliaTaf(Campione());
    // Only the header row: nothing is written.
    EXPECT_FALSE(StampaSelezioneTaf(s, g, 0, 0));
    EXPECT_FALSE(EsisteFile(s.amb.CartellaLavoro + "\\temp\\Stampa_TAF.CSV"));
    // The two ends in either order give the rows between them.
    ASSERT_TRUE(StampaSelezioneTaf(s, g, 3, 1));
    const QString stelo = s.amb.CartellaLavoro + "\\temp\\Stampa_TAF";
    ConfrontaGolden(LeggiByte(stelo + ".CSV"), "fiduciali/Stampa_TAF.CSV");
    ConfrontaGolden(LeggiByte(stelo + ".TXT"), "fiduciali/Stampa_TAF.TXT");
    // Showing them is the screen's business: nothing is opened from here.
    EXPECT_TRUE(p.eventi.isEmpty());
}

// The rows 8 themselves are the command line's "taf righe8"; imported, they take the place of
// the old rows 8.
TEST_F(Taf, ImportaRighe8) {
    s.doc.TestoLibretto = "0|x|\r\n9|20|\r\n8|PF09/0100/A001|1|2|\r\n2|PF01/0100/A001|\r\n"
                          "8|OLD|1|2|\r\n";
    CaricaLibrettoInList1(s);
    const QStringList nuove = CaricaPieffe8(s, s.doc.RigheLibretto.Righe(), false);
    ImportaRighe8(s, nuove);
    EXPECT_EQ(s.doc.TestoLibretto,
              "0|x|\r\n9|20|\r\n2|PF01/0100/A001|\r\n8|PF01/0100/A001|-12345.670|23456.780|01|"
              "SPIGOLO FABBRICATO LATO NORD-EST|\r\n");
}

TEST_F(Taf, QuotaMediaUltimaRigaVince) {
    s.testata.CodiceComuneLibretto = "A001";
    EXPECT_FALSE(LeggiQuotaMediaComune(s)); // no file: nothing happens
    radice.Scrivi(s.amb.CartellaProgramma + "\\QUOTAMEDIA.TXT",
                  Righe({"A001|ABANO TERME|14|", "G224|PADOVA|12|", "A001|ABANO TERME|15.5|"}));
    s.testata.QuotaMedia = "0";
    EXPECT_TRUE(LeggiQuotaMediaComune(s));
    EXPECT_EQ(s.testata.QuotaMedia, "15.5");
    s.testata.CodiceComuneLibretto = "Z999";
    EXPECT_FALSE(LeggiQuotaMediaComune(s));
    EXPECT_EQ(s.testata.QuotaMedia, "15.5");
}

} // namespace tavolet::test
