// The odd lines of a drawing list, the lines of the survey, the options file and the corners
// of the plane geometry (the survey as a whole is checked by the generation and the recompute).
#include "disegno.h"
#include "supporto.h"

#include <cmath>

namespace tavolet::test {

TEST(Lxc, RigheStraneLineeEStazioni) {
    // A line with no comma is ignored even when it begins with P; a P line with only a name.
    const Disegno corto = LeggiLxc("P\r\nPunto senza virgole\r\nP,7\r\n  L,1,2  \r\nX,1,2\r\n");
    ASSERT_EQ(corto.PuntiDisegno.size(), 1);
    EXPECT_EQ(std::tuple(corto.PuntiDisegno[0].nome, corto.PuntiDisegno[0].X,
                         corto.PuntiDisegno[0].H, corto.LineeDisegno.size()),
              std::tuple("7", 0, 0, 1));
    EXPECT_EQ(corto.LineeDisegno[0].Y1, 2);
    EXPECT_EQ(TrovaPuntoDisegno(corto, "999"), -1);

    // A line that ends nowhere is no line of the survey (the survey's lines are the screen's).
    Disegno d = LeggiLxc(DaWindows1252(Dati("disegno/RILIEVO.LXC")));
    d.LineeDisegno = {{1000.0051, 2000, 0, 1180.25, 2065.4, 0}};
    EXPECT_TRUE(RiconosciLinee(d).isEmpty());
    EXPECT_TRUE(StazioneCentesimale("1100") && !StazioneMillesimale("1100"));
    EXPECT_FALSE(StazioneMillesimale("PF000") || StazioneCentesimale("PF100"));
}

TEST(Opzioni, ChiaviEAsimmetria) {
    OpzioniLibretto o;
    o.Mantieni3_7 = true;
    o.orientamento = Orientamento::Libretto;
    o.PrecisioneAngolare = 5;
    const QString testo = TestoOpzioni(o);
    EXPECT_TRUE(testo.contains("LIBRETTO_AUTOMATICO_MANTIENI_3_7_,1\r\n"));
    EXPECT_TRUE(testo.contains("LIBRETTO_AUTOMATICO_ORIENTA_AZIMUT,False\r\n"));
    // Read back: every option returns except rows 3-7, whose key has lost its underscore.
    OpzioniLibretto letto;
    LeggiOpzioni(testo, letto);
    EXPECT_EQ(std::tuple(letto.Mantieni3_7, letto.orientamento, letto.PrecisioneAngolare),
              std::tuple(false, Orientamento::Libretto, 5));
    LeggiOpzioni("LIBRETTO_AUTOMATICO_MANTIENI_3_7,1\r\nLIBRETTO_AUTOMATICO_PRECISIONE_ANGOLARE,9"
                 "\r\nXYZ\r\n,\r\n",
                 letto);
    EXPECT_TRUE(letto.Mantieni3_7);
    EXPECT_EQ(letto.PrecisioneAngolare, 5);
    EXPECT_DOUBLE_EQ(ValorePrecisione(0), 0.005);
}

TEST(Geometria, CasiLimite) {
    EXPECT_NEAR(AzimutDistanza(5, 5, 5, 5), 4 * std::atan(1.0), 1e-12); // coincident: pi
    EXPECT_NEAR(AngoloDirezione(-0.5), 399.5, 1e-12);
    EXPECT_NEAR(AngoloDirezione(400.25), 0.25, 1e-12);
    EXPECT_NEAR(Arrotonda(399.998, 0.005), 400, 1e-9);
    // A base of no length: not valid, the results as they were.
    Piede p;
    p.daA = 4;
    PiedePerpendicolare(1, 1, 1, 1, 4, 3, p);
    EXPECT_FALSE(p.valido);
    EXPECT_EQ(p.daA, 4);
}

} // namespace tavolet::test
