// The TAF reader, the second composition of a code, the grid and its printed selection, the
// rows 8 from the TAF and the mean height.
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

TEST(LetturaTaf, CampiPerColonna) {
    const QList<RigaTaf> r = Campione();
    ASSERT_EQ(r.size(), 8);
    EXPECT_EQ(r[0].Codice(), "PF01/0100/A001");
    EXPECT_EQ(r[0].mappa, "125");
    EXPECT_EQ(r[0].rifPlan, "SPIGOLO FABBRICATO LATO NORD-EST");
    EXPECT_EQ(r[0].nord, "-12345.670");
    EXPECT_DOUBLE_EQ(r[0].estN, 23456.78);
    EXPECT_EQ(r[0].attPlan, "01");
    EXPECT_EQ(r[0].dataProt, "20030156");
    EXPECT_EQ(r[0].aggiornamento, "12/03/2009");
    EXPECT_EQ(r[0].rifAltim, "BASE SPIGOLO");
    EXPECT_EQ(r[0].attAltim, "02");
    EXPECT_EQ(r[0].quota, "12.450");
    // A double quote of the reference never reaches a row.
    EXPECT_EQ(r[1].rifPlan, "PALO ENEL IN CEMENTO 'CENTRO'");
    // Annex letter; a number of three digits keeps its last two.
    EXPECT_EQ(r[3].Codice(), "PF05/012A/A001");
    EXPECT_EQ(r[4].Codice(), "PF12/012A/A001");
    // A line cut short at column 130 gives empty fields behind it.
    EXPECT_EQ(r[7].Codice(), "PF09/0150/A001");
    EXPECT_EQ(r[7].attPlan, "02");
    EXPECT_TRUE(r[7].dataProt.isEmpty());
    EXPECT_TRUE(r[7].quota.isEmpty());
    EXPECT_EQ(r[7].quotaN, 0);
}

TEST(LetturaTaf, CodiceCompostoConBianchi) {
    CampiTaf c;
    c.foglio = QStringLiteral("7");
    c.numero = QStringLiteral("3");
    const QString riga = RigaTafCampi(c);
    EXPECT_EQ(LeggiRigaTaf(riga).Codice(), "PF03/0070/A001");
    EXPECT_EQ(CodiceComposto(riga), "PF03/0070/A001");
    // A code written with blanks in the sheet: only the second composition zero-fills it.
    QString conBianchi = riga;
    conBianchi.replace(5, 5, QStringLiteral("    7"));
    EXPECT_EQ(CodiceComposto(conBianchi), "PF03/0070/A001");
    EXPECT_EQ(ComuneDelPF("PF03/0070/A001"), "A001");
    EXPECT_EQ(ComuneDelPF("PF03"), "");
    EXPECT_EQ(CodiceComposto(QString()), "PF/0/");
}

TEST_F(Taf, TrovaPFNellaTAF) {
    PFNellaTaf pf = TrovaPFNellaTAF(s, QStringLiteral(" PF05/012A/A001 "));
    ASSERT_TRUE(pf.trovato);
    EXPECT_EQ(pf.nord, "-13010.500");
    EXPECT_EQ(pf.est, "24010.250");
    EXPECT_FALSE(TrovaPFNellaTAF(s, QStringLiteral("PF77/0100/A001")).trovato);
    // Another municipality has no TAF: not found, and no message.
    EXPECT_FALSE(TrovaPFNellaTAF(s, QStringLiteral("PF01/0100/G224")).trovato);
    EXPECT_TRUE(p.eventi.isEmpty());
}

TEST(GrigliaTaf, ColonneEEtichette) {
    const QList<QStringList> g = GrigliaTaf(Campione());
    ASSERT_EQ(g.size(), 9);
    EXPECT_EQ(g[0].join(u'|'), "PF|Map|Att.Plan.|Nord|Est|Rif.Plan|Att.Altim.|Quota|Rif.Altim.|"
                               "Aggiornamento");
    EXPECT_EQ(g[3].join(u'|'), "PF03/0100/A001|88|01|-12120.005|23102.300|CHIODO SU CORDOLO "
                               "MARCIAPIEDE||11.980|<QUOTA>|05/06/2010");
    EXPECT_EQ(MezziLarghezzeGriglia().size(), IntestazioniGriglia().size());
    EXPECT_EQ(EtichettaComune("ABANO TERME", "A001"), "Comune di ABANO TERME A001");
    EXPECT_EQ(EtichettaTotali(8), "PF Totali 8");
    EXPECT_EQ(EtichettaProvincia("PD"), "Provincia di PD");
}

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

TEST(GrigliaTaf, Monografia) {
    EXPECT_EQ(IndirizzoMonografia("A001", "PF01/0100/A001"),
              "https://www1.agenziaentrate.gov.it/servizi/Monografie/"
              "risultato.php?comune=A001&co=PF01/0100/A001");
    EXPECT_TRUE(IndirizzoMonografia("A 01", "PF 1").contains("comune=A%2001&co=PF%201"));
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
}

TEST_F(Taf, ImportaRighe8SostituisceLeVecchie) {
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

TEST_F(Taf, ComuniDellaProvincia) {
    radice.Scrivi("C:\\pregeo\\arch\\PADOVA.TXT",
                  Righe({"|A|001|D3AB| ABANO TERME |", "|G|224|D3PD|PADOVA|"}));
    EXPECT_TRUE(FileProvince(s).contains("PADOVA.TXT"));
    const QList<ComuneTaf> comuni = LeggiComuniProvincia(s, "PADOVA.TXT");
    ASSERT_EQ(comuni.size(), 2);
    EXPECT_EQ(comuni[0].codice, "A001");
    EXPECT_EQ(comuni[0].nome, "ABANO TERME");
    EXPECT_EQ(LeggiTafComune(s, comuni[0].codice).size(), 8);
    EXPECT_TRUE(LeggiTafComune(s, comuni[1].codice).isEmpty());
}

} // namespace tavolet::test
