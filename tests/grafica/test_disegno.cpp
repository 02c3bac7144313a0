// The redraw through a recording Tela.
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

TEST_F(Disegno, LePassateInOrdineConScalaColoriERaggio) {
    BV_CaricaEstratto_EMP(s, g, PercorsoDati("grafica/ESTRATTO.EMP"));
    BV_RidisegnaGrafica(g, tela);
    EXPECT_EQ(tela.pulizie, 1);
    const double a = vista.Altezza;
    const double r = tela.larghezzaMm / tela.altezzaMm;
    EXPECT_DOUBLE_EQ(vista.Rapporto, r);
    EXPECT_EQ(tela.scala, (QList<double>{-a * r / 2, a / 2, a * r / 2, -a / 2}));
    // Lines, markers, toponyms, names, labels; every point but toponyms and labels gets a
    // marker: 22 + 3 + 2, in the world moved by the centre.
    EXPECT_EQ(tela.Sequenza(), "linea cerchio testo");
    EXPECT_EQ(tela.DiTipo("linea").size(), 26);
    const QList<Tratto> cerchi = tela.DiTipo("cerchio");
    ASSERT_EQ(cerchi.size(), 27);
    EXPECT_EQ(std::tuple(cerchi[0].raggio, cerchi[0].x1, cerchi[0].y1),
              std::tuple(a / 400, -3790 - vista.CentroX, -5690 - vista.CentroY));
    const QList<Tratto> testi = tela.DiTipo("testo");
    ASSERT_EQ(testi.size(), 2 + 27 + 4);
    EXPECT_EQ(std::tuple(testi[0].testo, testi[0].font, testi[0].altezza),
              std::tuple("VIA DEI MILLE", "Arial Narrow", 8 * 20 / 15.0));
    EXPECT_NEAR(testi[0].angolo, 90, 1e-6);
    EXPECT_EQ(std::tuple(testi.last().testo, testi.last().altezza), std::tuple(" 258+", 16));

    // Names and toponyms off: the parcel labels alone stay.
    vista.NomiNo = 1;
    vista.ToponimiNo = 1;
    TelaRegistratore senzaNomi;
    BV_RidisegnaGrafica(g, senzaNomi);
    ASSERT_EQ(senzaNomi.DiTipo("testo").size(), 4);
    for (const Tratto& t : senzaNomi.DiTipo("testo")) EXPECT_TRUE(t.testo.startsWith(' '));
}

TEST_F(Disegno, IMarcatoriSoloDentroIlRiquadroStretto) {
    BV_AggiungiPuntoGraf(g, "1", 0, 0, 0, {}, 5, 0, "Courier New", 8);
    BV_AggiungiPuntoGraf(g, "2", 10, 10, 0, {}, 6, 0, "Courier New", 8);
    BV_ZoomTutto(g);
    // Added after the fit: on the box's edge and outside it.
    BV_AggiungiPuntoGraf(g, "3", 13, 5, 0, {}, 7, 0, "Courier New", 8);
    BV_AggiungiPuntoGraf(g, "4", 13.5, 5, 0, {}, 7, 0, "Courier New", 8);
    BV_RidisegnaGrafica(g, tela);
    const QList<Tratto> cerchi = tela.DiTipo("cerchio");
    ASSERT_EQ(cerchi.size(), 2);
    EXPECT_EQ(cerchi[0].colore, 5);
    EXPECT_EQ(cerchi[1].colore, 6);
    EXPECT_EQ(tela.DiTipo("testo").size(), 4); // the names are still printed

    // A name starting with a blank and ending in "T" is a toponym and a parcel label: two
    // texts, no marker.
    BV_AggiungiPuntoGraf(g, " 9T", 5, 5, 0, "VIA", 3, 0, "Courier New", 8);
    TelaRegistratore seconda;
    BV_RidisegnaGrafica(g, seconda);
    const QList<Tratto> testi = seconda.DiTipo("testo");
    EXPECT_EQ(seconda.DiTipo("cerchio").size(), 2);
    ASSERT_EQ(testi.size(), 6);
    EXPECT_EQ(testi[0].testo, "VIA");
    EXPECT_EQ(testi.last().testo, " 9T");
}

TEST_F(Disegno, UnaTelaSenzaMisuraODatiAssurdiNonDisegnanoNulla) {
    BV_AggiungiPuntoGraf(g, "1", 0, 0, 0, {}, 5, 0, "Courier New", 8);
    BV_ZoomTutto(g);
    tela.altezzaMm = 0;
    BV_RidisegnaGrafica(g, tela);
    EXPECT_EQ(tela.pulizie, 1);
    EXPECT_TRUE(tela.tratti.isEmpty());

    TelaRegistratore altra;
    BV_AggiungiPuntoGraf(g, "2", 1e308, -1e308, 0, {}, 5, 0, "Courier New", 8);
    BV_AggiungiPuntoGraf(g, "3", std::nan(""), 0, 0, {}, 5, 0, "Courier New", 8);
    BV_AggiungiLineaGraf(g, 0, 0, 0, 1e308, 1e308, 0, 0, 1, 0);
    BV_ZoomTutto(g);
    BV_RidisegnaGrafica(g, altra); // the view is infinite: nothing sane to draw
    EXPECT_EQ(altra.pulizie, 1);
    for (const Tratto& t : altra.tratti) {
        EXPECT_TRUE(std::isfinite(t.x1) && std::isfinite(t.y1));
    }
}

TEST_F(Disegno, QuelloCheCadeFuoriDallaTelaNonVienePassato) {
    BV_CaricaEstratto_EMP(s, g, PercorsoDati("grafica/ESTRATTO.EMP"));
    for (int i = 0; i < 8; ++i) BV_ZoomPiu(g);
    TelaRegistratore tutto;
    BV_RidisegnaGrafica(g, tutto, {.ritaglia = false});
    BV_RidisegnaGrafica(g, tela);
    EXPECT_LT(tela.tratti.size(), tutto.tratti.size());
    // What is left out lies wholly outside the visible rectangle.
    const double a = vista.Altezza, r = vista.Rapporto;
    int tenuti = 0;
    for (const Tratto& t : tutto.tratti) {
        bool presente = false;
        for (const Tratto& u : tela.tratti)
            presente = presente || (u.tipo == t.tipo && u.x1 == t.x1 && u.y1 == t.y1 &&
                                    u.x2 == t.x2 && u.testo == t.testo);
        if (presente) {
            ++tenuti;
            continue;
        }
        if (t.tipo == "linea") {
            const bool fuori = std::max(t.x1, t.x2) < -a * r / 2 ||
                               std::min(t.x1, t.x2) > a * r / 2 || std::max(t.y1, t.y2) < -a / 2 ||
                               std::min(t.y1, t.y2) > a / 2;
            EXPECT_TRUE(fuori);
        } else {
            EXPECT_TRUE(std::abs(t.x1) > a * r / 2 || std::abs(t.y1) > a / 2);
        }
    }
    EXPECT_EQ(tenuti, tela.tratti.size());
}

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

TEST(Tavolozza, IColoriQB) {
    EXPECT_EQ(ColoreQB(12), 0xFF0000u);
    EXPECT_EQ(ColoreQB(-1), ColoreQB(15)); // out of range wraps, never reads outside
}
