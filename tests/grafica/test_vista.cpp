// The view's zoom and pan steps (the fitting and the switches are run by the plot's other
// tests and screens).
#include "grafica.h"
#include "supporto.h"

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct Vista : ::testing::Test {
    VistaGrafica vista;
    ModelloGrafica g{&vista};
};

} // namespace

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
    BV_ZoomRight(g);
    BV_ZoomRight(g);
    EXPECT_DOUBLE_EQ(vista.CentroX, 5);
}
