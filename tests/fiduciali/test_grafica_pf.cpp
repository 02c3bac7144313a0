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

TEST_F(GraficaPF, Selezioni) {
    ASSERT_EQ(t.Conta(), 8);
    SelezionaTutti(t);
    EXPECT_EQ(t.Selezionati(), 8);
    TogliGaussiane(t);
    EXPECT_FALSE(Scelti().contains("PF07/0140/A001"));
    EXPECT_EQ(t.Selezionati(), 7);
    InvertiSelezione(t);
    EXPECT_EQ(Scelti(), QStringList({"PF07/0140/A001"}));
    SelezionaNessuno(t);
    SelezionaExPF(t);
    // "EX PF", and "NU" inside "SOSTITUITO DAL PF05"? no: only the texts that hold the marks.
    EXPECT_EQ(Scelti(), QStringList({"PF12/012A/A001"}));
    EXPECT_EQ(FogliTabella(t), QStringList({"0100", "012A", "0140", "0150"}));
    SelezionaFoglio(t, "012A");
    EXPECT_EQ(Scelti(), QStringList({"PF05/012A/A001", "PF12/012A/A001"}));
    SelezionaIntorno(t, 0, 450);
    EXPECT_EQ(Scelti(), QStringList({"PF01/0100/A001", "PF02/0100/A001", "PF03/0100/A001",
                                     "PF04/0100/A001"}));
    SelezionaIntorno(t, 99, 400); // no such record: nothing changes
    EXPECT_EQ(t.Selezionati(), 4);
    EXPECT_EQ(RecordVicino(t, 23456, -12345), 0);
    EXPECT_EQ(RecordVicino(TabellaPF(), 0, 0), -1);

    // The status line of two selected points: scale, names and their distance.
    SelezionaNessuno(t);
    t.record[0].selezionato = t.record[2].selezionato = true;
    const QString testo = TestoStatoGraficaPF(t, 23456.0, -12345.0, 2000);
    EXPECT_TRUE(testo.contains(" Scala : 2000")) << testo.toStdString();
    EXPECT_TRUE(testo.contains("PF01/0100/A001"));
    EXPECT_TRUE(testo.contains("420.215 / -354.480 / 225.665")) << testo.toStdString();

    // A table from the names of the grid, those of the TAF only.
    const TabellaPF g = TabellaDaGriglia(s, "A001", {"PF03/0100/A001", "PF99/0100/A001"});
    ASSERT_EQ(g.Conta(), 1);
    EXPECT_EQ(g.record[0].taf.mappa, "88");
    EXPECT_EQ(TabellaDaGriglia(s, "Z999", {"PF01/0100/Z999"}).Conta(), 0);
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
