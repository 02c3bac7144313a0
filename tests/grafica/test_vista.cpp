// The view: fitting, zoom and pan steps, the switches.
#include "grafica.h"
#include "registratore.h"
#include "supporto.h"

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct Vista : ::testing::Test {
    VistaGrafica vista;
    ModelloGrafica g{&vista};
};

} // namespace

// The box of all the records with a margin of 3; the height is its larger side, not fitted to
// the canvas' aspect, the centre that of the box. An empty plot fits record zero.
TEST_F(Vista, ZoomTuttoSulRiquadroConIlMargine) {
    BV_ZoomTutto(g);
    EXPECT_EQ(
        std::tuple(vista.XMin, vista.XMax, vista.YMin, vista.YMax, vista.Altezza, vista.CentroX),
        std::tuple(-3, 3, -3, 3, 6, 0));
    BV_AggiungiPuntoGraf(g, "1%", 100, 200, 0, {}, 0, 0, "Courier New", 8);
    BV_AggiungiPuntoGraf(g, "2%", 140, 210, 0, {}, 0, 0, "Courier New", 8);
    BV_AggiungiLineaGraf(g, 90, 205, 0, 100, 205, 0, 0, 1, 0);
    BV_ZoomTutto(g);
    EXPECT_EQ(std::tuple(vista.XMin, vista.XMax, vista.YMin, vista.YMax, vista.LarghezzaX,
                         vista.LarghezzaY, vista.Altezza, vista.CentroX, vista.CentroY),
              std::tuple(87, 143, 197, 213, 56, 16, 56, 115, 205));
}

TEST_F(Vista, ZoomEPanSonoPassiFissiDellAltezza) {
    vista.Altezza = 100;
    vista.CentroX = 10;
    vista.CentroY = 20;
    BV_ZoomPiu(g);
    BV_ZoomMeno(g);
    EXPECT_NEAR(vista.Altezza, 99, 1e-9); // in and out are not the same step

    vista.Altezza = 50;
    BV_ZoomUP(g);
    EXPECT_DOUBLE_EQ(vista.CentroY, 15); // down in world terms
    BV_ZoomDown(g);
    BV_ZoomDown(g);
    EXPECT_DOUBLE_EQ(vista.CentroY, 25);
    BV_ZoomLeft(g);
    EXPECT_DOUBLE_EQ(vista.CentroX, 15);
    BV_ZoomRight(g);
    BV_ZoomRight(g);
    EXPECT_DOUBLE_EQ(vista.CentroX, 5);
    CentraMouse(g, -1, 2);
    EXPECT_EQ(vista.CentroX, -1);
    EXPECT_EQ(vista.CentroY, 2);
}

TEST_F(Vista, ConToponimiNoUnNumeroRestaNelRiquadroUnaEtichettaNo) {
    BV_AggiungiPuntoGraf(g, "5", 0, 0, 0, {}, 0, 0, "Courier New", 8);
    BV_AggiungiPuntoGraf(g, "12%", 10, 10, 0, {}, 0, 0, "Courier New", 8);
    BV_AggiungiPuntoGraf(g, " ACQUA", 500, 500, 0, {}, 0, 0, "Courier New", 12);
    BV_AggiungiPuntoGraf(g, "T", -500, -500, 0, "VIA", 2, 0, "Arial Narrow", 8);
    // The test is the number read from the name's left, blanks skipped: "7T" and " 257" count.
    BV_AggiungiPuntoGraf(g, "7T", 20, 0, 0, "VIA", 2, 0, "Arial Narrow", 8);
    vista.ToponimiNo = 1;
    BV_ZoomTutto(g);
    EXPECT_EQ(vista.XMin, -3);
    EXPECT_EQ(vista.XMax, 23);
    vista.ToponimiNo = 0;
    BV_ZoomTutto(g);
    EXPECT_EQ(vista.XMin, -503);
    EXPECT_EQ(vista.XMax, 503);
}

TEST_F(Vista, UnoZoomAZeroDiventa640AlRidisegno) {
    TelaRegistratore tela;
    tela.larghezzaMm = 200;
    tela.altezzaMm = 100;
    vista.Altezza = 0;
    BV_ZoomPiu(g);
    EXPECT_EQ(vista.Altezza, 0);
    BV_RidisegnaGrafica(g, tela);
    EXPECT_EQ(vista.Altezza, 640);
    EXPECT_EQ(vista.Rapporto, 2);
}
