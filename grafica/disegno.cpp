// The redraw: four passes over the tables, through whatever Tela is given.
#include "grafica.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tavolet {

unsigned int ColoreQB(int indice) {
    static const unsigned int tavolozza[16] = {
        0x000000, 0x000080, 0x008000, 0x008080, 0x800000, 0x800080, 0x808000, 0xC0C0C0,
        0x808080, 0x0000FF, 0x00FF00, 0x00FFFF, 0xFF0000, 0xFF00FF, 0xFFFF00, 0xFFFFFF};
    return tavolozza[((indice % 16) + 16) % 16];
}

namespace {

// The visible world rectangle around the centre, widened by a margin.
struct Riquadro {
    double x0, y0, x1, y1;
    bool Tocca(double ax, double ay, double bx, double by, double margine) const {
        return std::max(ax, bx) >= x0 - margine && std::min(ax, bx) <= x1 + margine &&
               std::max(ay, by) >= y0 - margine && std::min(ay, by) <= y1 + margine;
    }
};

bool Finito(double a, double b) {
    return std::isfinite(a) && std::isfinite(b);
}

// The kind of a point by its name, read once per pass: toponym, parcel label or numbered point.
inline bool Toponimo(const QString& n) {
    return !n.isEmpty() && n.back() == u'T';
}
inline bool Etichetta(const QString& n) {
    return !n.isEmpty() && n.front() == u' ';
}

} // namespace

// Where the records lie, in square cells of about four points each: a view of a part of a
// large sheet visits the records of the cells it reaches instead of the whole tables.
// What a record kept beside the tables was made from: it holds while this is the same.
struct ImprontaTabelle {
    quint64 versione = 0;
    const void* punti = nullptr;
    qsizetype nPunti = 0;
    const void* linee = nullptr;
    qsizetype nLinee = 0;
    bool operator==(const ImprontaTabelle&) const = default;
};

struct GrigliaGrafica {
    ImprontaTabelle impronta;

    double x0 = 0, y0 = 0, lato = 1;
    int nx = 1, ny = 1;
    std::vector<int> inizioPunti, punti_; // per cell, the points in it
    std::vector<int> inizioLinee, linee_; // per cell, the lines whose box reaches it
    std::vector<int> lineeGrandi;         // lines over many cells, always visited
    double portataTesti = 0;              // the largest (characters + 2) * size of a text
    int spessoreMassimo = 0;

    int Cella(double v, double origine, int n) const {
        const double c = std::floor((v - origine) / lato);
        return int(std::clamp(c, 0.0, double(n - 1)));
    }
};

struct TipiPunti {
    ImprontaTabelle impronta;
    // Bits: a name starting with a blank and ending in "T" is a label and a toponym both.
    enum : quint8 { kNumerato = 0, kToponimo = 1, kEtichetta = 2 };
    std::vector<quint8> tipo;
};

namespace {

ImprontaTabelle Impronta(const ModelloGrafica& g) {
    return {g.Versione, g.Punti.constData(), g.Punti.size(), g.Linee.constData(), g.Linee.size()};
}

const TipiPunti& Tipi(ModelloGrafica& g) {
    if (!g.Tipi || !(g.Tipi->impronta == Impronta(g))) {
        auto t = std::make_shared<TipiPunti>();
        t->impronta = Impronta(g);
        t->tipo.reserve(size_t(g.Punti.size()));
        for (const PuntoGrafica& p : g.Punti)
            t->tipo.push_back(quint8((Toponimo(p.Nome) ? TipiPunti::kToponimo : 0) |
                                     (Etichetta(p.Nome) ? TipiPunti::kEtichetta : 0)));
        g.Tipi = std::move(t);
    }
    return *g.Tipi;
}

std::shared_ptr<const GrigliaGrafica> FaiGriglia(const ModelloGrafica& g) {
    auto r = std::make_shared<GrigliaGrafica>();
    GrigliaGrafica& q = *r;
    q.impronta = Impronta(g);
    double x0 = HUGE_VAL, y0 = HUGE_VAL, x1 = -HUGE_VAL, y1 = -HUGE_VAL;
    auto allarga = [&](double x, double y) {
        if (!Finito(x, y)) return;
        x0 = std::min(x0, x);
        x1 = std::max(x1, x);
        y0 = std::min(y0, y);
        y1 = std::max(y1, y);
    };
    for (const PuntoGrafica& p : g.Punti) {
        allarga(p.X, p.Y);
        const qsizetype n = std::max(p.Nome.size(), p.Testo.size());
        q.portataTesti = std::max(q.portataTesti, double(n + 2) * std::abs(p.Dimensione));
    }
    for (const LineaGrafica& l : g.Linee) {
        allarga(l.X1, l.Y1);
        allarga(l.X2, l.Y2);
        q.spessoreMassimo = std::max(q.spessoreMassimo, std::abs(int(l.Spessore)));
    }
    if (!(x0 <= x1) || !std::isfinite(q.portataTesti)) return r; // nothing to place: one cell
    const double larghezza = std::max(x1 - x0, 1e-9), altezza = std::max(y1 - y0, 1e-9);
    const double celle = std::max(1.0, double(g.Punti.size() + g.Linee.size()) / 4);
    q.lato = std::max(std::sqrt(larghezza * altezza / celle), std::max(larghezza, altezza) / 4096);
    if (!std::isfinite(q.lato) || !(q.lato > 0)) return r;
    q.x0 = x0;
    q.y0 = y0;
    q.nx = std::clamp(int(larghezza / q.lato) + 1, 1, 4096);
    q.ny = std::clamp(int(altezza / q.lato) + 1, 1, 4096);
    const size_t nCelle = size_t(q.nx) * size_t(q.ny);
    // Counted, then filled: two flat arrays instead of a list per cell.
    std::vector<int> conta(nCelle + 1, 0);
    std::vector<int> cellaPunto(size_t(g.Punti.size()), -1);
    for (qsizetype i = 0; i < g.Punti.size(); ++i) {
        const PuntoGrafica& p = g.Punti[i];
        if (!Finito(p.X, p.Y)) continue; // never drawn
        const int c = q.Cella(p.Y, q.y0, q.ny) * q.nx + q.Cella(p.X, q.x0, q.nx);
        cellaPunto[size_t(i)] = c;
        ++conta[size_t(c) + 1];
    }
    for (size_t c = 0; c < nCelle; ++c) conta[c + 1] += conta[c];
    q.inizioPunti = conta;
    q.punti_.resize(size_t(conta[nCelle]));
    for (qsizetype i = 0; i < g.Punti.size(); ++i)
        if (cellaPunto[size_t(i)] >= 0)
            q.punti_[size_t(conta[size_t(cellaPunto[size_t(i)])]++)] = int(i);

    std::fill(conta.begin(), conta.end(), 0);
    auto scatola = [&](const LineaGrafica& l, int& cx0, int& cy0, int& cx1, int& cy1) {
        cx0 = q.Cella(std::min(l.X1, l.X2), q.x0, q.nx);
        cx1 = q.Cella(std::max(l.X1, l.X2), q.x0, q.nx);
        cy0 = q.Cella(std::min(l.Y1, l.Y2), q.y0, q.ny);
        cy1 = q.Cella(std::max(l.Y1, l.Y2), q.y0, q.ny);
        return qint64(cx1 - cx0 + 1) * (cy1 - cy0 + 1) <= 16;
    };
    for (qsizetype i = 0; i < g.Linee.size(); ++i) {
        const LineaGrafica& l = g.Linee[i];
        if (!Finito(l.X1, l.Y1) || !Finito(l.X2, l.Y2)) continue;
        int cx0, cy0, cx1, cy1;
        if (!scatola(l, cx0, cy0, cx1, cy1)) {
            q.lineeGrandi.push_back(int(i));
            continue;
        }
        for (int cy = cy0; cy <= cy1; ++cy)
            for (int cx = cx0; cx <= cx1; ++cx) ++conta[size_t(cy * q.nx + cx) + 1];
    }
    for (size_t c = 0; c < nCelle; ++c) conta[c + 1] += conta[c];
    q.inizioLinee = conta;
    q.linee_.resize(size_t(conta[nCelle]));
    for (qsizetype i = 0; i < g.Linee.size(); ++i) {
        const LineaGrafica& l = g.Linee[i];
        if (!Finito(l.X1, l.Y1) || !Finito(l.X2, l.Y2)) continue;
        int cx0, cy0, cx1, cy1;
        if (!scatola(l, cx0, cy0, cx1, cy1)) continue;
        for (int cy = cy0; cy <= cy1; ++cy)
            for (int cx = cx0; cx <= cx1; ++cx)
                q.linee_[size_t(conta[size_t(cy * q.nx + cx)]++)] = int(i);
    }
    return r;
}

// The records of the cells that the world rectangle reaches, in the order of the tables; false
// when the rectangle covers so much of the grid that the whole tables are as quick.
bool Candidati(ModelloGrafica& g, double qx0, double qy0, double qx1, double qy1,
               double margineTesti, double margineLinee, double margineSegni,
               std::vector<int>& punti, std::vector<int>& linee) {
    if (g.Punti.size() + g.Linee.size() < 20000) return false;
    // A view over much of the drawing's box visits most records anyway: no grid is made for it
    // (the first picture of a sheet is such a view).
    const VistaGrafica& v = *g.Vista;
    const double area = (v.XMax - v.XMin) * (v.YMax - v.YMin);
    const double sx = std::min(qx1, v.XMax) - std::max(qx0, v.XMin);
    const double sy = std::min(qy1, v.YMax) - std::max(qy0, v.YMin);
    if (std::isfinite(area) && area > 0 && sx > 0 && sy > 0 && sx * sy * 4 > area) return false;
    if (!g.Griglia || !(g.Griglia->impronta == Impronta(g))) g.Griglia = FaiGriglia(g);
    const GrigliaGrafica& q = *g.Griglia;
    const double m = std::max(
        {margineTesti * q.portataTesti, margineLinee * (q.spessoreMassimo + 4), margineSegni});
    if (!std::isfinite(m) || q.nx * q.ny < 16) return false;
    // One cell more on each side covers the rounding of the tests made from the centre.
    const int cx0 = q.Cella(qx0 - m, q.x0, q.nx) - 1, cx1 = q.Cella(qx1 + m, q.x0, q.nx) + 1;
    const int cy0 = q.Cella(qy0 - m, q.y0, q.ny) - 1, cy1 = q.Cella(qy1 + m, q.y0, q.ny) + 1;
    const qint64 viste = qint64(cx1 - cx0 + 1) * (cy1 - cy0 + 1);
    if (viste * 4 > qint64(q.nx) * q.ny) return false;
    punti.clear();
    linee.clear();
    for (int cy = std::max(cy0, 0); cy <= std::min(cy1, q.ny - 1); ++cy)
        for (int cx = std::max(cx0, 0); cx <= std::min(cx1, q.nx - 1); ++cx) {
            const size_t c = size_t(cy * q.nx + cx);
            punti.insert(punti.end(), q.punti_.begin() + q.inizioPunti[c],
                         q.punti_.begin() + q.inizioPunti[c + 1]);
            linee.insert(linee.end(), q.linee_.begin() + q.inizioLinee[c],
                         q.linee_.begin() + q.inizioLinee[c + 1]);
        }
    linee.insert(linee.end(), q.lineeGrandi.begin(), q.lineeGrandi.end());
    std::sort(punti.begin(), punti.end());
    std::sort(linee.begin(), linee.end());
    linee.erase(std::unique(linee.begin(), linee.end()), linee.end());
    return true;
}

} // namespace

void BV_RidisegnaGrafica(ModelloGrafica& g, Tela& tela, OpzioniDisegno opzioni) {
    VistaGrafica& v = *g.Vista;
    if (!(v.Altezza > 0)) v.Altezza = 640;
    tela.Pulisci();
    const double larghezzaMm = tela.LarghezzaMm();
    const double altezzaMm = tela.AltezzaMm();
    // A canvas of no size shows nothing and keeps the last ratio.
    if (!(larghezzaMm > 0) || !(altezzaMm > 0)) return;
    v.Rapporto = larghezzaMm / altezzaMm;
    const double a = v.Altezza;
    const double r = v.Rapporto;
    if (!std::isfinite(a * r) || !std::isfinite(v.CentroX) || !std::isfinite(v.CentroY)) return;
    tela.Scala(-a * r / 2, a / 2, a * r / 2, -a / 2);

    // World units per pixel, for the margins of culling.
    const double twips = tela.TwipsPerPixel();
    const double altezzaPx = altezzaMm / 25.4 * 1440 / twips;
    const double mondoPerPixel = a / std::max(altezzaPx, 1.0);
    const Riquadro vis{-a * r / 2, -a / 2, a * r / 2, a / 2};
    const bool ritaglia = opzioni.ritaglia;
    const double cx = v.CentroX, cy = v.CentroY;

    // On a part of a large sheet only the records of the cells in view are visited, in the
    // order of the tables and with the same tests: the strokes are those of the whole walk.
    std::vector<int> soloPunti, soloLinee;
    const double raggio = a / 400;
    const bool parte =
        ritaglia && opzioni.griglia &&
        Candidati(g, cx + vis.x0, cy + vis.y0, cx + vis.x1, cy + vis.y1, 20 / twips * mondoPerPixel,
                  mondoPerPixel, raggio + 2 * mondoPerPixel, soloPunti, soloLinee);
    // Strokes in their order, or from the last to a Tela that lays them underneath: then each
    // pass runs backwards and the passes come in the reverse order.
    bool rovescio = false;
    auto perOgni = [&](const auto& tabella, const std::vector<int>& indici, auto&& f) {
        if (parte) {
            if (rovescio)
                for (auto i = indici.rbegin(); i != indici.rend(); ++i) f(tabella[*i], *i);
            else
                for (int i : indici) f(tabella[i], i);
        } else if (rovescio) {
            for (qsizetype i = tabella.size(); i-- > 0;) f(tabella[i], i);
        } else {
            for (qsizetype i = 0; i < tabella.size(); ++i) f(tabella[i], i);
        }
    };

    auto linee = [&] {
        perOgni(g.Linee, soloLinee, [&](const LineaGrafica& l, qsizetype) {
            const double x1 = l.X1 - cx, y1 = l.Y1 - cy, x2 = l.X2 - cx, y2 = l.Y2 - cy;
            if (!Finito(x1, y1) || !Finito(x2, y2)) return;
            if (ritaglia && !vis.Tocca(x1, y1, x2, y2, (std::abs(l.Spessore) + 4) * mondoPerPixel))
                return;
            tela.Linea(x1, y1, x2, y2, l.Spessore, l.Stile, l.Colore);
        });
    };

    // The kind of each point, read once per version of the tables rather than from each name
    // in each pass.
    const std::vector<quint8>& tipo = Tipi(g).tipo;

    // Markers: only inside the box of the whole drawing.
    auto segni = [&] {
        perOgni(g.Punti, soloPunti, [&](const PuntoGrafica& p, qsizetype i) {
            if (tipo[size_t(i)] != TipiPunti::kNumerato) return;
            if (!(v.XMin < p.X && p.X < v.XMax && v.YMin < p.Y && p.Y < v.YMax)) return;
            const double x = p.X - cx, y = p.Y - cy;
            if (ritaglia && !vis.Tocca(x, y, x, y, raggio + 2 * mondoPerPixel)) return;
            tela.Cerchio(x, y, raggio, p.Colore);
        });
    };

    // Texts: toponyms, names, parcel labels. A text can reach as far as its length in
    // characters times its height from where it starts, in any direction.
    auto fuori = [&](const PuntoGrafica& p, const QString& t) {
        const double x = p.X - cx, y = p.Y - cy;
        if (!Finito(x, y)) return true;
        if (!ritaglia) return false;
        const double portata = (t.size() + 2) * std::abs(p.Dimensione * 20 / twips) * mondoPerPixel;
        return !std::isfinite(portata) || !vis.Tocca(x, y, x, y, portata);
    };
    auto testi = [&](quint8 quale, bool toponimi) {
        perOgni(g.Punti, soloPunti, [&](const PuntoGrafica& p, qsizetype i) {
            if (quale ? !(tipo[size_t(i)] & quale) : tipo[size_t(i)] != TipiPunti::kNumerato)
                return;
            const QString& t = toponimi ? p.Testo : p.Nome;
            if (fuori(p, t)) return;
            tela.Testo(p.X - cx, p.Y - cy, t, p.Font, p.Dimensione * 20 / twips, p.Angolo,
                       p.Colore);
        });
    };
    auto toponimi = [&] {
        if (!v.ToponimiNo) testi(TipiPunti::kToponimo, true);
    };
    auto nomi = [&] {
        if (!v.NomiNo) testi(TipiPunti::kNumerato, false);
    };
    auto etichette = [&] { testi(TipiPunti::kEtichetta, false); };

    if (opzioni.rovescio && tela.IniziaAlRovescio()) {
        rovescio = true;
        etichette();
        nomi();
        toponimi();
        segni();
        linee();
        if (tela.FinisciAlRovescio()) return;
        // The Tela gave up: everything again, in order, on a clean surface.
        rovescio = false;
        tela.Pulisci();
        tela.Scala(-a * r / 2, a / 2, a * r / 2, -a / 2);
    }
    linee();
    segni();
    toponimi();
    nomi();
    etichette();
}

} // namespace tavolet
