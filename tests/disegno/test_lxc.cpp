// The names of the stations, the options file and a corner of the plane geometry (the drawing
// list is read by the generation, the recompute, the fuzz target and the screen).
#include "disegno.h"
#include "supporto.h"

namespace tavolet::test {

// A station is named by its hundreds or thousands, never a fiducial.
TEST(Lxc, NomiDelleStazioni) {
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

// A base of no length: not valid, the results as they were.
TEST(Geometria, BaseDiLunghezzaZero) {
    Piede p;
    p.daA = 4;
    PiedePerpendicolare(1, 1, 1, 1, 4, 3, p);
    EXPECT_FALSE(p.valido);
    EXPECT_EQ(p.daA, 4);
}

} // namespace tavolet::test
