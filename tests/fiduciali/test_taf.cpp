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

TEST_F(Taf, CaricaPieffe8) {
    const QStringList libretto = {
        "0|x|",
        "9|20|",
        "1|100|1.500|Note: |",
        "2|PF03/0100/A001|12.3456|",
        "2|PF01/0100/A001|",
        "5|PF02/0100/A001|1.0|",
        "2|PF01/0100/A001|",   // twice: once in the list
        "2|PF77/0100/A001|",   // not in the TAF: no row, no message
        "8|PF05/012A/A001|1|", // rows 8 are not looked at
        "2|PF01/0100/G224|",   // no TAF for this municipality
        "2|PF01/0100/A00|",    // 13 characters: not a fiducial code
    };
    EXPECT_EQ(CaricaPieffe8(s, libretto, false),
              QStringList({"8|PF01/0100/A001|-12345.670|23456.780|01|SPIGOLO FABBRICATO LATO "
                           "NORD-EST|",
                           "8|PF02/0100/A001|-12512.110|23790.420|02|PALO ENEL IN CEMENTO "
                           "'CENTRO'|",
                           "8|PF03/0100/A001|-12120.005|23102.300|01|CHIODO SU CORDOLO "
                           "MARCIAPIEDE|"}));
    const QStringList conQuote = CaricaPieffe8(s, libretto, true);
    ASSERT_EQ(conQuote.size(), 6);
    EXPECT_EQ(conQuote[1], "8|PF01/0100/A001|12.450|02|BASE SPIGOLO|");
    // Blank height, reliability and reference take their fillers.
    EXPECT_EQ(conQuote[3], "8|PF02/0100/A001|9999.000|04|NOTE:|");
    // <QUOTA> becomes the corner base, reliability 04.
    EXPECT_EQ(conQuote[5], "8|PF03/0100/A001|11.980|04|Base Spigolo|");
    EXPECT_TRUE(p.eventi.isEmpty());

    // Imported, they take the place of the old rows 8.
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
