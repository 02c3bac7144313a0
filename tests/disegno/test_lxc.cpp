// The drawing list, its lines and stations, the options file and the plane geometry.
#include "disegno.h"
#include "supporto.h"

#include <cmath>

namespace tavolet::test {

TEST(Lxc, LettoPerRecord) {
    const Disegno d = LeggiLxc(DaWindows1252(Dati("disegno/RILIEVO.LXC")));
    EXPECT_EQ(d.PuntiDisegno.size(), 12);
    EXPECT_EQ(d.LineeDisegno.size(), 6);
    ASSERT_EQ(d.ContorniDisegno.size(), 3);
    EXPECT_EQ(d.ContorniDisegno[1].punti, "|101|102|103|104|101|MAPPALE 125|");
    EXPECT_EQ(d.ContorniDisegno[1].tipo, "FRAZIONAMENTO");
    const PuntoDisegno& p = d.PuntiDisegno[TrovaPuntoDisegno(d, "202")];
    EXPECT_DOUBLE_EQ(p.X, 1165.7);
    EXPECT_DOUBLE_EQ(p.H, -1);
    EXPECT_EQ(p.note, "");
    EXPECT_EQ(TrovaPuntoDisegno(d, "999"), -1);

    // A line with no comma is ignored even when it begins with P; a P line with only a name.
    const Disegno corto = LeggiLxc("P\r\nPunto senza virgole\r\nP,7\r\n  L,1,2  \r\nX,1,2\r\n");
    ASSERT_EQ(corto.PuntiDisegno.size(), 1);
    EXPECT_EQ(corto.PuntiDisegno[0].nome, "7");
    EXPECT_EQ(corto.PuntiDisegno[0].X, 0);
    EXPECT_EQ(corto.PuntiDisegno[0].H, 0);
    EXPECT_EQ(corto.LineeDisegno.size(), 1);
    EXPECT_EQ(corto.LineeDisegno[0].Y1, 2);
}

TEST(Lxc, LineeEStazioni) {
    const Disegno d = LeggiLxc(DaWindows1252(Dati("disegno/RILIEVO.LXC")));
    // 200-300 drawn twice (once backwards, 0.1 mm off): one item; a line that ends nowhere
    // is no line of the survey.
    EXPECT_EQ(RiconosciLinee(d), QStringList({"100 - 200", "100 - PF01/0100/A001", "200 - 300",
                                              "300 - PF03/0100/A001"}));
    Disegno lontano = d;
    lontano.LineeDisegno = {{1000.0051, 2000, 0, 1180.25, 2065.4, 0}};
    EXPECT_TRUE(RiconosciLinee(lontano).isEmpty());
    EXPECT_TRUE(StazioneMillesimale("100"));
    EXPECT_TRUE(StazioneMillesimale("2000"));
    EXPECT_FALSE(StazioneMillesimale("1100"));
    EXPECT_FALSE(StazioneMillesimale("PF000"));
    EXPECT_TRUE(StazioneCentesimale("1100"));
    const QList<StazionePlot> s = StazioniPerGrafica(d, RiconosciLinee(d));
    ASSERT_EQ(s.size(), 3);
    EXPECT_EQ(s[0].nome, "100");
    EXPECT_EQ(s[0].punti.size(), 4);
}

TEST(Lxc, FileMancante) {
    RadiceProva r;
    PiattaformaFinta p;
    Stato s(p);
    const Disegno d = CaricaGrafica(s, "C:\\disegni\\nessuno");
    EXPECT_TRUE(d.PuntiDisegno.isEmpty());
    EXPECT_EQ(p.Messaggi(), QStringList({"Libretto da Disegno: C:\\DISEGNI\\NESSUNO.LXC\r\nNon "
                                         "Trovato!"}));
}

TEST(Opzioni, ChiaviEAsimmetria) {
    OpzioniLibretto o;
    o.Mantieni3_7 = true;
    o.orientamento = Orientamento::Libretto;
    o.PrecisioneAngolare = 5;
    const QString testo = TestoOpzioni(o);
    EXPECT_TRUE(testo.contains("LIBRETTO_AUTOMATICO_MANTIENI_3_7_,1\r\n"));
    EXPECT_TRUE(testo.contains("LIBRETTO_AUTOMATICO_ORIENTA_LIBRETTO,True\r\n"));
    EXPECT_TRUE(testo.contains("LIBRETTO_AUTOMATICO_ORIENTA_AZIMUT,False\r\n"));
    EXPECT_TRUE(testo.endsWith("LIBRETTO_AUTOMATICO_PRECISIONE_ANGOLARE,5\r\n"));
    // Read back: every option returns except rows 3-7, whose key has lost its underscore.
    OpzioniLibretto letto;
    LeggiOpzioni(testo, letto);
    EXPECT_FALSE(letto.Mantieni3_7);
    EXPECT_EQ(letto.orientamento, Orientamento::Libretto);
    EXPECT_EQ(letto.PrecisioneAngolare, 5);
    EXPECT_DOUBLE_EQ(ValorePrecisione(5), 0.0001);
    EXPECT_DOUBLE_EQ(ValorePrecisione(0), 0.005);
    LeggiOpzioni("LIBRETTO_AUTOMATICO_MANTIENI_3_7,1\r\nLIBRETTO_AUTOMATICO_PRECISIONE_ANGOLARE,9"
                 "\r\nXYZ\r\n,\r\n",
                 letto);
    EXPECT_TRUE(letto.Mantieni3_7);
    EXPECT_EQ(letto.PrecisioneAngolare, 5);
}

TEST(Geometria, AzimutPiedeDistanza) {
    const double g = 200 / (4 * std::atan(1.0));
    EXPECT_NEAR(AzimutDistanza(0, 0, 0, 10) * g, 0, 1e-12);
    EXPECT_NEAR(AzimutDistanza(0, 0, 10, 0) * g, 100, 1e-12);
    EXPECT_NEAR(AzimutDistanza(0, 0, 0, -10) * g, 200, 1e-12);
    EXPECT_NEAR(AzimutDistanza(0, 0, -10, 0) * g, 300, 1e-12);
    EXPECT_NEAR(AzimutDistanza(5, 5, 5, 5) * g, 200, 1e-12); // coincident points: pi
    EXPECT_NEAR(AngoloDirezione(-0.5), 399.5, 1e-12);
    EXPECT_NEAR(AngoloDirezione(400.25), 0.25, 1e-12);
    EXPECT_NEAR(Arrotonda(399.998, 0.005), 400, 1e-9);
    Piede p;
    PiedePerpendicolare(0, 0, 10, 0, 4, 3, p);
    ASSERT_TRUE(p.valido);
    EXPECT_NEAR(p.xp, 4, 1e-9);
    EXPECT_NEAR(p.daC, 3, 1e-9);
    EXPECT_NEAR(p.daA, 4, 1e-9);
    EXPECT_NEAR(p.daB, 6, 1e-9);
    // A base of no length: status 4, results as they were.
    PiedePerpendicolare(1, 1, 1, 1, 4, 3, p);
    EXPECT_FALSE(p.valido);
    EXPECT_NEAR(p.daA, 4, 1e-9);
}

} // namespace tavolet::test
