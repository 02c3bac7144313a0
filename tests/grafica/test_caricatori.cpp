// The loaders of the CSV and of the tag blocks (the extract and the Proposta are loaded by the
// exports' golden files, the screens and the fuzz target).
#include "grafica.h"
#include "supporto.h"

#include "file_testo.h"
#include "testo.h"

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct Caricatori : ::testing::Test {
    PiattaformaFinta p;
    Stato s{p};
    VistaGrafica vista;
    ModelloGrafica g{&vista};

    int Linee(int colore, int stile, int spessore) const {
        int n = 0;
        for (const LineaGrafica& l : g.Linee)
            n += l.Colore == colore && l.Stile == stile && l.Spessore == spessore;
        return n;
    }
};

} // namespace

TEST_F(Caricatori, UnCSVDaPuntiELineeEUnaRigaSenzaVirgole) {
    const QStringList righe = {"P,A1,10.5,20,1,Testo,12", "L,0,0,9,10,10,9,9,3,2", "L,1,1,0,2,2,0",
                               "\"B2\",5,6", "P,C3,1,2"};
    CaricaRigheCSV(s, g, righe);
    ASSERT_EQ(std::tuple(g.ContaPunti(), g.ContaLinee()), std::tuple(3, 2));
    const PuntoGrafica& a = g.Punti[0];
    EXPECT_EQ(std::tuple(a.Nome, a.Testo, a.Colore, a.Z), std::tuple("A1", "Testo", 12, 1));
    EXPECT_EQ(std::tuple(g.Punti[1].Nome, g.Punti[1].X), std::tuple("B2", 5)); // "P," put first
    // Z is skipped; a line without pen has width 1.
    const LineaGrafica& l = g.Linee[0];
    EXPECT_EQ(std::tuple(l.Z1, l.X2, l.Colore, l.Spessore, l.Stile), std::tuple(0, 10, 9, 3, 2));
    EXPECT_EQ(g.Linee[1].Spessore, 1);
    EXPECT_EQ(g.List2[0], righe);
    EXPECT_EQ(vista.XMax, 13.5); // fitted
    EXPECT_TRUE(p.Messaggi().isEmpty());

    CaricaRigheCSV(s, g, {"P,A,1,1", "SOLONOME", "P,B,2,2"});
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_TRUE(p.Messaggi()[0].startsWith("Rilevato errore")) << p.Messaggi()[0].toStdString();
    EXPECT_TRUE(p.Messaggi()[0].contains("BV_LoadFileCSV"));
    EXPECT_EQ(g.ContaPunti(), 1); // as far as it came
    // An absurd colour is an overflow, reported the same way.
    CaricaRigheCSV(s, g, {"P,A,1,1,0,x,1e308"});
    EXPECT_EQ(p.Messaggi().size(), 2);
}

TEST_F(Caricatori, IBlocchiTagVannoNelleListeEUnAttoAggiornatoMostraLaProposta) {
    const QByteArray pdf =
        "%PDF-1.4 junk [TAG1000]|0|riga zero<nr>9|nove[/TAG] x "
        "[TAG2000]|6|ESTRATTO DI MAPPA|<nr>8|1%|0|0|<nr>8|2%|0|10|<nr>7|3|1%|2%|1%|NC|5|5|0|[/TAG]"
        "[TAG2000]|6|ESTRATTO DI MAPPA AGGIORNATO|<nr>8|1%|0|0|<nr>8|3%|10|0|<nr>"
        "7|3|1%|3%|1%|NC|6|6|0|[/TAG][TAG3000]|FR|x|EST1|[/TAG][TAG4000]|9|ROSSI<nr>9|VERDI[/TAG]"
        "[TAG5000]|a|b|[/TAG][TAG7000]|ignoto[/TAG]";
    EsplodiBlocchiTag(s, g, LeggiBlocchiTagDaDati(pdf));
    EXPECT_EQ(g.List1.size(), 2);
    EXPECT_EQ(g.List2[0].size(), 4);
    EXPECT_EQ(g.List2[1].size(), 4);
    EXPECT_TRUE(g.List3.contains("EST1"));
    EXPECT_TRUE(g.List3.contains("b"));
    EXPECT_EQ(g.List4.size(), 2);
    EXPECT_EQ(g.PropostaSiNo, 1);
    EXPECT_EQ(Linee(9, 0, 1), 2); // the extract's ring, out and back
    EXPECT_EQ(g.ContaLinee(), 4);
}

// A .CSV is read by its loader; a file that is not there is refused.
TEST_F(Caricatori, IlCaricamentoDiUnCSV) {
    RadiceProva radice;
    radice.Scrivi("C:\\x\\D.CSV", Righe({"P,A,1,1", "L,0,0,0,1,1,0"}));
    EXPECT_TRUE(CaricaGraficaDaFile(s, g, "C:\\x\\D.CSV"));
    EXPECT_EQ(std::tuple(g.ContaPunti(), g.ContaLinee()), std::tuple(1, 1));
    EXPECT_FALSE(CaricaGraficaDaFile(s, g, "C:\\x\\NONCE.EMP"));
    EXPECT_TRUE(p.Messaggi().isEmpty());
}
