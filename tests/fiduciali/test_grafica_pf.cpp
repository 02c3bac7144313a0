// The plot of the fiducials: selection commands, the printed list, the measures between the
// selected points and the copy into the drawing.
#include "fiduciali.h"
#include "generatore_taf.h"
#include "supporto.h"

namespace tavolet::test {

namespace {

struct GraficaPF : ConPregeo {
    TabellaPF t;
    void SetUp() override {
        ConPregeo::SetUp();
        radice.Scrivi("C:\\fiducial\\DATI\\A001.TAF", Dati("fiduciali/A001.TAF"));
        radice.Scrivi("C:\\fiducial\\DATI\\PD2020.DDD", Dati("fiduciali/PD2020.DDD"));
        t = TabellaDaTaf(LeggiTafComune(s, "A001"));
    }
    QStringList Scelti() const {
        QStringList c;
        for (const RecordPF& r : t.record)
            if (r.selezionato) c << r.codice;
        return c;
    }
};

} // namespace

// The selection commands are clicked on the plot's screen; here the national point they leave
// out and the marks of a replaced fiducial.
TEST_F(GraficaPF, Selezioni) {
    ASSERT_EQ(t.Conta(), 8);
    SelezionaTutti(t);
    TogliGaussiane(t);
    EXPECT_EQ(t.Selezionati(), 7);
    InvertiSelezione(t);
    EXPECT_EQ(Scelti(), QStringList({"PF07/0140/A001"}));
    SelezionaNessuno(t);
    SelezionaExPF(t);
    EXPECT_EQ(Scelti(), QStringList({"PF12/012A/A001"}));
    SelezionaIntorno(t, 99, 400); // no such record: nothing changes
    EXPECT_EQ(t.Selezionati(), 1);
    EXPECT_EQ(RecordVicino(TabellaPF(), 0, 0), -1);
}

TEST_F(GraficaPF, MisureECopiaNelDisegno) {
    SelezionaNessuno(t);
    for (int i : {0, 1, 2, 3}) t.record[i].selezionato = true;
    ASSERT_TRUE(MettiDistanzeMisurate(s, t));
    ASSERT_EQ(t.misure.size(), 3); // 01-02 measured twice: one line
    EXPECT_EQ(t.misure[0].da, 0);
    EXPECT_EQ(t.misure[0].a, 1);
    CopiaPFNelDisegno(s, t);
    const QString cartella = s.amb.CartellaDocumenti + "\\Bravanta\\TEMP\\";
    ConfrontaGolden(LeggiByte(cartella + "CopiaInFile.txt"), "fiduciali/CopiaInFile.txt");
    EXPECT_EQ(LeggiByte(cartella + "EseguiIncollaDaFile.TXT"), "EseguiIncolaDaFile\r\n");
    EXPECT_EQ(p.Messaggi(), QStringList({"Copia PF in Disegno: PF copiati!"}));

    // A province with no archive stops with its message.
    TabellaPF altro;
    altro.record.append({"PF01/0100/L736", 0, 0, true, {}});
    p.eventi.clear();
    EXPECT_FALSE(MettiDistanzeMisurate(s, altro));
    EXPECT_EQ(p.Messaggi(), QStringList({"MettiDistanzeMisurate: Manca la Provincia VENEZIA\r\n"
                                         "Installare "}));
}

TEST_F(GraficaPF, StampaListaSelezionati) {
    SelezionaNessuno(t);
    t.record[1].selezionato = t.record[4].selezionato = true;
    StampaListaPFSelezionati(s, t);
    const QString stelo = s.amb.CartellaLavoro + "\\temp\\Stampa_Fiduciali";
    ConfrontaGolden(LeggiByte(stelo + ".CSV"), "fiduciali/Stampa_Fiduciali.CSV");
    ConfrontaGolden(LeggiByte(stelo + ".TXT"), "fiduciali/Stampa_Fiduciali.TXT");
}

} // namespace tavolet::test
