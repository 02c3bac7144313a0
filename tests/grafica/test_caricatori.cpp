// The loaders and the turning of rows into records.
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

    const PuntoGrafica* Punto(const QString& nome) const {
        const int i = g.TrovaPunto(nome);
        return i < 0 ? nullptr : &g.Punti[i];
    }
    int Linee(int colore, int stile, int spessore) const {
        int n = 0;
        for (const LineaGrafica& l : g.Linee)
            n += l.Colore == colore && l.Stile == stile && l.Spessore == spessore;
        return n;
    }
};

} // namespace

// Every point and line of the extract, with its pen, font and place, is in the golden files
// of the exporters; here what they don't show: the row in the list is rewritten, not the file,
// and the switches of names and fiducials skip rows at loading, never rows 7.
TEST_F(Caricatori, UnEstrattoEISuoiInterruttori) {
    BV_CaricaEstratto_EMP(s, g, PercorsoDati("grafica/ESTRATTO.EMP"));
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join('\n').toStdString();
    EXPECT_TRUE(g.List2[0].contains("7|3|101L|102L|103L|RT|||0|"));
    EXPECT_TRUE(LeggiTesto(PercorsoDati("grafica/ESTRATTO.EMP")).contains("|NT|"));
    EXPECT_EQ(g.LibrettoOriginale, g.List2[0]);
    EXPECT_EQ(g.List6.size(), 5);
    vista.PFNo = 1;
    vista.ToponimiNo = 1;
    BV_CaricaEstratto_EMP(s, g, PercorsoDati("grafica/ESTRATTO.EMP"));
    EXPECT_FALSE(Punto("PF01/0120/A001"));
    EXPECT_FALSE(Punto("1T"));
    EXPECT_TRUE(Punto("3%"));
    EXPECT_EQ(g.ContaLinee(), 26);
}

TEST_F(Caricatori, LaPropostaSiSeparaAlleDueMarcheEVaInAzzurroLaMappaVecchia) {
    const QStringList righe = LeggiRighe(PercorsoDati("grafica/PROPOSTA.SUR"));
    CaricaRigheProposta(s, g, righe);
    ASSERT_EQ(g.List2[1].size(), 9);
    // With "Proposta" off only the extract is drawn.
    EXPECT_EQ(g.ContaLinee(), 4);
    EXPECT_EQ(Linee(0, 0, 1), 4);

    g.PropostaSiNo = 1;
    GeneraGrafica(s, g);
    EXPECT_EQ(Linee(9, 0, 1), 4); // the old map
    EXPECT_EQ(g.ContaLinee(), 12);

    // An empty Proposta leaves the extract alone, in light blue.
    g.List2[1].clear();
    GeneraGrafica(s, g);
    EXPECT_EQ(Linee(9, 0, 1), 4);
    EXPECT_EQ(g.ContaLinee(), 4);
}

// The end of an id gives its colour and font; a ring with a missing point loses only the
// sides that touch it, and the row 7 of "PV" is passed over.
TEST_F(Caricatori, IdDeiPuntiEAnelliConPuntiMancanti) {
    CaricaRigheElaborazione(s, g,
                            {"8|12L|0|0|", "8|7T|5|5|0|X|", "8|9*|1|1|", "8|9#|2|2|", "8|9@|3|3|",
                             "8|99|4|4|", "8|1%|0|0|", "8|2%|0|10|", "8|3%|10|10|",
                             "7|5|1%|2%|3%|77%|1%|NC|A|A|0|", "7|3|1%|PV|3%|NC|B|B|0|"});
    EXPECT_EQ(Punto("12L")->Colore, 2);
    EXPECT_EQ(Punto("7T")->Font, "Arial Narrow");
    EXPECT_EQ(std::tuple(Punto("9*")->Colore, Punto("9*")->Dimensione), std::tuple(12, 10));
    EXPECT_EQ(std::tuple(Punto("9#")->Colore, Punto("9@")->Colore, Punto("99")->Colore),
              std::tuple(13, 9, 0));
    EXPECT_EQ(g.ContaLinee(), 2);
    EXPECT_TRUE(p.Messaggi().isEmpty());
}

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

// A .SUR without the marks, from an empty drawing, goes whole into list 0 and nothing is
// drawn; from an elaboration it is drawn with "Proposta" off.
TEST_F(Caricatori, IlCaricamentoPerTipoDiFile) {
    RadiceProva radice;
    const QStringList sur = {"8|1%|0|0|", "8|2%|0|10|", "7|3|1%|2%|1%|NC|1|1|0|"};
    radice.Scrivi("C:\\x\\A.EMP", Dati("grafica/ESTRATTO.EMP"));
    radice.Scrivi("C:\\x\\P.SUR", Dati("grafica/PROPOSTA.SUR"));
    radice.Scrivi("C:\\x\\E.SUR", Righe(sur));
    radice.Scrivi("C:\\x\\D.CSV", Righe({"P,A,1,1", "L,0,0,0,1,1,0"}));
    EXPECT_TRUE(CaricaGraficaDaFile(s, g, "C:\\x\\A.EMP"));
    EXPECT_EQ(g.ContaPunti(), 33);
    EXPECT_TRUE(CaricaGraficaDaFile(s, g, "C:\\x\\P.SUR"));
    EXPECT_EQ(g.List2[1].size(), 9);
    EXPECT_TRUE(CaricaGraficaDaFile(s, g, "C:\\x\\E.SUR"));
    EXPECT_EQ(g.ContaLinee(), 2);
    EXPECT_TRUE(CaricaGraficaDaFile(s, g, "C:\\x\\D.CSV"));
    EXPECT_EQ(g.ContaLinee(), 1);
    EXPECT_FALSE(CaricaGraficaDaFile(s, g, "C:\\x\\NONCE.EMP"));
    CaricaRigheProposta(s, g, sur);
    EXPECT_EQ(g.ContaPunti(), 0);
    g.PropostaSiNo = 1;
    CaricaRigheElaborazione(s, g, sur);
    EXPECT_EQ(g.PropostaSiNo, 0);
    EXPECT_EQ(g.ContaLinee(), 2);
    EXPECT_EQ(g.List2[0], sur);
    // A list of less than two rows draws nothing.
    CaricaRigheElaborazione(s, g, {"8|1%|0|0|"});
    EXPECT_EQ(g.ContaPunti(), 0);
    EXPECT_TRUE(p.Messaggi().isEmpty());
}
