// A ring of ten thousand ids and points with absurd numbers: loaded whole, checked quickly. (The
// loaders on any input are fuzzed in fuzz/bersagli/grafica.cpp.)
#include "grafica.h"
#include "supporto.h"

#include "testo.h"

using namespace tavolet;
using namespace tavolet::test;

TEST(FuzzGrafica, UnAnelloDiDiecimilaIdEUnEstrattoConNumeriAssurdi) {
    PiattaformaFinta p;
    Stato s(p);
    QStringList righe = {"0|x|"};
    QString anello = "7|10001|";
    for (int i = 1; i <= 10000; ++i) {
        righe << QStringLiteral("8|%1%|%2|%3|").arg(i).arg(i % 100).arg(i / 100);
        anello += QString::number(i) + "%|";
    }
    anello += "1%|NC|1|1|0|";
    righe << anello;
    righe << "8|9999999%|1e308|-1e308|"
          << "8|55%|nan|abc|"
          << "8|77T|0.5|0.5|1e308|testo|";
    VistaGrafica vista;
    ModelloGrafica g(&vista);
    CaricaRigheEstratto(s, g, righe);
    EXPECT_EQ(g.ContaLinee(), 10000);
    EXPECT_EQ(g.ContaPunti(), 10004);
    BV_ZoomTutto(g);
    // Ten thousand points on a grid of one unit: none coincide, and the check is quick.
    EXPECT_TRUE(TestoPuntiCoincidenti(g).isEmpty()) << TestoPuntiCoincidenti(g).toStdString();
}
