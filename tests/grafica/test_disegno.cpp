// The redraw through a recording Tela: the grid and the reversed walk against the plain one.
#include "generatore.h"
#include "grafica.h"
#include "registratore.h"

#include "supporto.h"
#include <algorithm>

#include "testo.h"

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct Disegno : ::testing::Test {
    PiattaformaFinta p;
    Stato s{p};
    VistaGrafica vista;
    ModelloGrafica g{&vista};
    TelaRegistratore tela;
};

} // namespace

// A Tela that takes the strokes from the last, and may give up at the end.
class TelaAlRovescio : public TelaRegistratore {
public:
    bool rinuncia = false;
    bool IniziaAlRovescio() override { return true; }
    bool FinisciAlRovescio() override {
        if (rinuncia) tratti.clear(); // given again in order after a clearing
        return !rinuncia;
    }
};

// On a large sheet a view of a part visits only the records of the grid's cells near it, and a
// Tela that lays strokes underneath gets them from the last: the strokes are those of the walk
// over the whole tables in order, call for call, wherever the view goes (inside, on the edges,
// off the sheet), with odd records among them and after a reload.
TEST_F(Disegno, LaGrigliaEIlRovescioDannoGliStessiTratti) {
    auto uguali = [](const QList<Tratto>& a, const QList<Tratto>& b) {
        if (a.size() != b.size()) return false;
        for (qsizetype i = 0; i < a.size(); ++i)
            if (a[i].tipo != b[i].tipo || a[i].x1 != b[i].x1 || a[i].y1 != b[i].y1 ||
                a[i].x2 != b[i].x2 || a[i].y2 != b[i].y2 || a[i].testo != b[i].testo ||
                a[i].colore != b[i].colore)
                return false;
        return true;
    };
    int parziali = 0;
    for (unsigned seme = 1; seme <= 3; ++seme) {
        OpzioniEstratto o;
        o.vertici = 12000;
        o.seme = seme;
        o.stranezze = seme == 2;
        CaricaRigheEstratto(s, g, RigheDiTesto(GeneraEstratto(o)));
        const qsizetype tutti = g.Punti.size() + g.Linee.size();
        for (int passo = 0; passo < 30; ++passo) {
            if (passo % 10 == 0) BV_ZoomTutto(g);
            BV_ZoomPiu(g);
            BV_ZoomPiu(g);
            if (passo % 3 == 0) BV_ZoomRight(g);
            if (passo % 4 == 0) BV_ZoomUP(g);
            if (passo % 7 == 0)
                for (int k = 0; k < 6; ++k) BV_ZoomLeft(g);
            TelaRegistratore con, senza;
            TelaAlRovescio rovescia, arresa;
            arresa.rinuncia = true;
            BV_RidisegnaGrafica(g, con);
            BV_RidisegnaGrafica(g, senza, {.griglia = false});
            BV_RidisegnaGrafica(g, rovescia);
            BV_RidisegnaGrafica(g, arresa);
            ASSERT_TRUE(uguali(con.tratti, senza.tratti)) << "seme " << seme << " passo " << passo;
            std::reverse(rovescia.tratti.begin(), rovescia.tratti.end());
            ASSERT_TRUE(uguali(con.tratti, rovescia.tratti)) << seme << " " << passo;
            ASSERT_TRUE(uguali(con.tratti, arresa.tratti)) << seme << " " << passo;
            EXPECT_EQ(arresa.pulizie, 2);
            parziali += con.tratti.size() < tutti / 4;
        }
        ASSERT_TRUE(g.Griglia);
    }
    EXPECT_GT(parziali, 20);
}
