// Coincident points, the new point and the midpoint, and a point added to the libretto (the
// nearest point, the contours and the click that recentres are the plot screen's).
#include "grafica.h"
#include "supporto.h"

#include "file_testo.h"

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct Mouse : ConPregeo {
    VistaGrafica vista;
    ModelloGrafica g{&vista};
    void Punto(const QString& nome, double x, double y) {
        BV_AggiungiPuntoGraf(g, nome, x, y, 0, {}, 0, 0, "Courier New", 8);
    }
};

} // namespace

TEST_F(Mouse, IPuntiCoincidentiSottoLUnoCentimetro) {
    Punto("A", 100, 100);
    Punto("B", 100.005, 100);
    Punto("C", 0, 0);
    Punto("D", 0.01, 0); // exactly 0.01: not coincident
    Punto("E", 100, 100.009);
    EXPECT_EQ(TestoPuntiCoincidenti(g), "A B\r\nA E\r\n"); // B and E are 0.0103 apart
    BV_PuntiCoincidenti(s, g);
    ASSERT_EQ(p.eventi.size(), 1);
    EXPECT_EQ(p.eventi[0].testo, "A B\r\nA E\r\n");

    vista.CentroX = 100;
    vista.CentroY = 100;
    const EtichetteMouse e = MuoviMouse(g, -0.5, -0.5);
    EXPECT_EQ(g.PuntoVicino, "A");
    EXPECT_TRUE(e.prima.startsWith("A B E ")) << e.prima.toStdString();
    EXPECT_EQ(e.seconda, "-0.500 -0.500");
}

TEST_F(Mouse, NuovoPuntoEPuntoMedioAncheInMinuscolo) {
    Punto("A", 0, 0);
    Punto("B", 10, 20);
    // With no mode a click centres the view where it fell.
    vista.CentroX = 1;
    EXPECT_TRUE(ClickSinistro(s, g, 3, 4));
    EXPECT_EQ(std::pair(vista.CentroX, vista.CentroY), std::pair(4.0, 4.0));
    vista.CentroX = vista.CentroY = 0;
    g.Modo = "nuovopunto";
    g.NomeNuovo = "100";
    EXPECT_TRUE(ClickSinistro(s, g, 3, 4));
    ASSERT_EQ(g.ContaPunti(), 3);
    const PuntoGrafica& n = g.Punti[2];
    EXPECT_EQ(std::tuple(n.Nome, n.X, n.Testo, n.Colore, n.Dimensione),
              std::tuple("100", 3, "SF", 12, 10));
    EXPECT_TRUE(g.Modo.isEmpty());

    g.Modo = "PUNTOMEDIO";
    g.NomeNuovo = "M";
    EXPECT_FALSE(ClickSinistro(s, g, 0.2, 0.1)); // snaps to A
    EXPECT_EQ(g.Fase, 1);
    EXPECT_TRUE(ClickSinistro(s, g, 9, 19)); // snaps to B
    EXPECT_EQ(g.Punti.last().Nome, "M");
    EXPECT_EQ(g.Punti.last().X, 5);
    EXPECT_EQ(g.Punti.last().Y, 10);
    EXPECT_EQ(g.Fase, 0);
    EXPECT_TRUE(g.Modo.isEmpty());
}

TEST_F(Mouse, AggiungiPuntoAFileAccodaUnaRiga8) {
    g.FileLibretto = "C:\\Libretti\\A.DAT";
    radice.Scrivi(g.FileLibretto, "1|x|\r\n");
    g.NomeNuovo = "500";
    EXPECT_TRUE(AggiungiPuntoAFile(s, g, 12.3456, -7));
    EXPECT_EQ(radice.Leggi(g.FileLibretto), "1|x|\r\n8|500|12.346|-7.000|\r\n");
}

// The contour's file as the CAD program reads it, the numbers as BASIC prints them.
TEST_F(Mouse, IlContornoScriveIlFile) {
    Punto("1", 1234.5, -20.25);
    Punto("2", 10, 0);
    g.Modo = "CONTORNOROSSO";
    ClickSinistro(s, g, 1234, -20);
    ClickSinistro(s, g, 11, 1);
    EXPECT_EQ(LeggiByte(PercorsoContorno(s)), "al punto  X=1234.500  Y=-20.250  Z=   0\r\n"
                                              "al punto  X=10.000  Y=.000  Z=   0\r\n");
}
