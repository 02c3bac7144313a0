// The redraw: four passes over the tables, through whatever Tela is given.
#include "grafica.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <climits>
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

// How far from its point a text of that many characters (and two more) can reach, given the
// characters times their height in world units: twice that, with each character at least two
// pixels high (a Tela sets no text under a pixel high, and a face's glyphs may be wider than
// high).
double PortataTesto(double caratteri, double perAltezza, double mondoPerPixel) {
    return 2 * std::max(perAltezza, caratteri * 2 * mondoPerPixel);
}

// The floor of v, without the call for the values a canvas meets.
inline double Giu(double v) {
    if (!(std::abs(v) < 1e15)) return std::floor(v);
    const double t = double(qint64(v));
    return t > v ? t - 1 : t;
}

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
    double caratteriMassimi = 0;          // the largest characters + 2 of a text
    int spessoreMassimo = 0;

    int Cella(double v, double origine, int n) const {
        const double c = std::floor((v - origine) / lato);
        return int(std::clamp(c, 0.0, double(n - 1)));
    }
};

struct SchedePunti {
    ImprontaTabelle impronta;
    // Bits: a name starting with a blank and ending in "T" is a label and a toponym both.
    enum : quint8 { kNumerato = 0, kToponimo = 1, kEtichetta = 2 };
    std::vector<quint8> tipo;
    std::vector<quint8> fiduciale; // 1: a name beginning "PF", placed before the other names
    struct Scheda {
        double x, y, dimensione, angolo;
        qint32 lunghezzaNome, lunghezzaTesto; // a text of more than 2^31 characters is not made
        qint16 colore;
    };
    std::vector<Scheda> schede;
    // Names the names and the texts of these records to the Tela: never the same for two
    // versions of any tables in the program.
    quint64 serieNomi = 0, serieTesti = 0;
};

namespace {

ImprontaTabelle Impronta(const ModelloGrafica& g) {
    return {g.Versione, g.Punti.constData(), g.Punti.size(), g.Linee.constData(), g.Linee.size()};
}

const SchedePunti& Schede(ModelloGrafica& g) {
    if (!g.Schede || !(g.Schede->impronta == Impronta(g))) {
        static std::atomic<quint64> serie{0};
        auto t = std::make_shared<SchedePunti>();
        t->impronta = Impronta(g);
        t->serieNomi = serie.fetch_add(2) + 2;
        t->serieTesti = t->serieNomi + 1;
        t->tipo.reserve(size_t(g.Punti.size()));
        t->fiduciale.reserve(size_t(g.Punti.size()));
        t->schede.reserve(size_t(g.Punti.size()));
        for (const PuntoGrafica& p : g.Punti) {
            t->tipo.push_back(quint8((Toponimo(p.Nome) ? SchedePunti::kToponimo : 0) |
                                     (Etichetta(p.Nome) ? SchedePunti::kEtichetta : 0)));
            t->fiduciale.push_back(p.Nome.startsWith(QLatin1String("PF")));
            t->schede.push_back({p.X, p.Y, p.Dimensione, p.Angolo,
                                 qint32(std::min<qsizetype>(p.Nome.size(), INT_MAX)),
                                 qint32(std::min<qsizetype>(p.Testo.size(), INT_MAX)), p.Colore});
        }
        g.Schede = std::move(t);
    }
    return *g.Schede;
}

std::shared_ptr<const GrigliaGrafica> FaiGriglia(const ModelloGrafica& g, const SchedePunti& sp) {
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
    // The points from their packed records, not the tables'.
    for (const SchedePunti::Scheda& p : sp.schede) {
        allarga(p.x, p.y);
        const double n = std::max(p.lunghezzaNome, p.lunghezzaTesto);
        q.portataTesti = std::max(q.portataTesti, (n + 2) * std::abs(p.dimensione));
        q.caratteriMassimi = std::max(q.caratteriMassimi, n + 2);
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
    const qsizetype nPunti = qsizetype(sp.schede.size());
    std::vector<int> cellaPunto(size_t(nPunti), -1);
    for (qsizetype i = 0; i < nPunti; ++i) {
        const SchedePunti::Scheda& p = sp.schede[size_t(i)];
        if (!Finito(p.x, p.y)) continue; // never drawn
        const int c = q.Cella(p.y, q.y0, q.ny) * q.nx + q.Cella(p.x, q.x0, q.nx);
        cellaPunto[size_t(i)] = c;
        ++conta[size_t(c) + 1];
    }
    for (size_t c = 0; c < nCelle; ++c) conta[c + 1] += conta[c];
    q.inizioPunti = conta;
    q.punti_.resize(size_t(conta[nCelle]));
    for (qsizetype i = 0; i < nPunti; ++i)
        if (cellaPunto[size_t(i)] >= 0)
            q.punti_[size_t(conta[size_t(cellaPunto[size_t(i)])]++)] = int(i);

    std::fill(conta.begin(), conta.end(), 0);
    // Each line's cells, worked out once for the counting and the filling (-1: not placed).
    struct Celle {
        qint16 x0 = -1, y0 = 0, x1 = 0, y1 = 0;
    };
    std::vector<Celle> celleLinea(size_t(g.Linee.size()));
    for (qsizetype i = 0; i < g.Linee.size(); ++i) {
        const LineaGrafica& l = g.Linee[i];
        if (!Finito(l.X1, l.Y1) || !Finito(l.X2, l.Y2)) continue;
        const int cx0 = q.Cella(std::min(l.X1, l.X2), q.x0, q.nx);
        const int cx1 = q.Cella(std::max(l.X1, l.X2), q.x0, q.nx);
        const int cy0 = q.Cella(std::min(l.Y1, l.Y2), q.y0, q.ny);
        const int cy1 = q.Cella(std::max(l.Y1, l.Y2), q.y0, q.ny);
        if (qint64(cx1 - cx0 + 1) * (cy1 - cy0 + 1) > 16) {
            q.lineeGrandi.push_back(int(i));
            continue;
        }
        celleLinea[size_t(i)] = {qint16(cx0), qint16(cy0), qint16(cx1), qint16(cy1)};
        for (int cy = cy0; cy <= cy1; ++cy)
            for (int cx = cx0; cx <= cx1; ++cx) ++conta[size_t(cy * q.nx + cx) + 1];
    }
    for (size_t c = 0; c < nCelle; ++c) conta[c + 1] += conta[c];
    q.inizioLinee = conta;
    q.linee_.resize(size_t(conta[nCelle]));
    for (qsizetype i = 0; i < g.Linee.size(); ++i) {
        const Celle& k = celleLinea[size_t(i)];
        if (k.x0 < 0) continue;
        for (int cy = k.y0; cy <= k.y1; ++cy)
            for (int cx = k.x0; cx <= k.x1; ++cx)
                q.linee_[size_t(conta[size_t(cy * q.nx + cx)]++)] = int(i);
    }
    return r;
}

// The records of the cells that the world rectangle reaches, in the order of the tables; false
// when the rectangle covers so much of the grid that the whole tables are as quick.
bool Candidati(ModelloGrafica& g, const SchedePunti& schede, double qx0, double qy0, double qx1,
               double qy1, double margineTesti, double margineLinee, double margineSegni,
               std::vector<int>& punti, std::vector<int>& linee) {
    if (g.Punti.size() + g.Linee.size() < 20000) return false;
    // A view over much of the drawing's box visits most records anyway: the grid does not
    // choose them (the first picture of a sheet is such a view).
    const VistaGrafica& v = *g.Vista;
    const double area = (v.XMax - v.XMin) * (v.YMax - v.YMin);
    const double sx = std::min(qx1, v.XMax) - std::max(qx0, v.XMin);
    const double sy = std::min(qy1, v.YMax) - std::max(qy0, v.YMin);
    if (std::isfinite(area) && area > 0 && sx > 0 && sy > 0 && sx * sy * 4 > area) return false;
    if (!g.Griglia || !(g.Griglia->impronta == Impronta(g))) g.Griglia = FaiGriglia(g, schede);
    const GrigliaGrafica& q = *g.Griglia;
    const double m =
        std::max({PortataTesto(q.caratteriMassimi, margineTesti * q.portataTesti, margineLinee),
                  margineLinee * (q.spessoreMassimo + 4), margineSegni});
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

// From the last, once the texts are laid: the records of the cells that the Tela has not wholly
// taken, within margineMondo and marginePixel of the cell, as a bit per record. A marker of a
// cell wholly taken changes nothing, nor does a line whose every cell is.
void Scoperti(const GrigliaGrafica& q, const Tela::Coperture& mappa, double cx, double cy,
              double margineMondo, double marginePixel, qsizetype nPunti, qsizetype nLinee,
              std::vector<quint64>& punti, std::vector<quint64>& linee) {
    punti.assign(size_t(nPunti + 63) / 64, 0);
    linee.assign(size_t(nLinee + 63) / 64, 0);
    auto metti = [](std::vector<quint64>& v, int i) {
        v[size_t(i) >> 6] |= quint64(1) << (i & 63);
    };
    // The tiles not set, summed over every rectangle from the first: a cell's count is then
    // four lookups.
    const int tc = mappa.colonne, tr = mappa.righe;
    std::vector<int> somme(size_t(tc + 1) * size_t(tr + 1), 0);
    auto S = [&](int x, int y) -> int& { return somme[size_t(y) * size_t(tc + 1) + size_t(x)]; };
    for (int y = 0; y < tr; ++y)
        for (int x = 0; x < tc; ++x)
            S(x + 1, y + 1) = S(x, y + 1) + S(x + 1, y) - S(x, y) +
                              !mappa.piene[size_t(y) * size_t(tc) + size_t(x)];
    // Each column and each row of cells as a run of tiles (empty: off the surface), widened by
    // the margins and by a hundredth of a cell for the rounding of the cells' arithmetic.
    const double m = margineMondo + q.lato / 100;
    const int passo = std::countr_zero(unsigned(mappa.lato));
    auto tessere = [&](double da, double a, double s, double o, int n, std::vector<int>& v) {
        double p0 = (da - m) * s + o, p1 = (a + m) * s + o;
        if (p0 > p1) std::swap(p0, p1);
        p0 -= marginePixel;
        p1 += marginePixel;
        const double lim = double(n) * mappa.lato;
        if (!(p0 <= p1) || p1 < 0 || p0 >= lim) {
            // Off the surface (or not a number: then never taken as covered).
            const bool nulla = p0 <= p1;
            v.push_back(nulla ? 1 : 0);
            v.push_back(nulla ? 0 : n - 1);
            return;
        }
        v.push_back(int(std::max(p0, 0.0)) >> passo);
        v.push_back(int(std::min(p1, lim - 1)) >> passo);
    };
    std::vector<int> colonne, righe;
    for (int i = 0; i < q.nx; ++i) {
        const double x0 = q.x0 + i * q.lato - cx;
        tessere(x0, x0 + q.lato, mappa.sx, mappa.ox, tc, colonne);
    }
    for (int j = 0; j < q.ny; ++j) {
        const double y0 = q.y0 + j * q.lato - cy;
        tessere(y0, y0 + q.lato, mappa.sy, mappa.oy, tr, righe);
    }
    for (int j = 0; j < q.ny; ++j) {
        const int ty0 = righe[size_t(2 * j)], ty1 = righe[size_t(2 * j + 1)];
        for (int i = 0; i < q.nx; ++i) {
            const size_t c = size_t(j) * size_t(q.nx) + size_t(i);
            const int p0 = q.inizioPunti[c], p1 = q.inizioPunti[c + 1];
            const int l0 = q.inizioLinee[c], l1 = q.inizioLinee[c + 1];
            if (p0 == p1 && l0 == l1) continue;
            const int tx0 = colonne[size_t(2 * i)], tx1 = colonne[size_t(2 * i + 1)];
            if (tx0 > tx1 || ty0 > ty1) continue; // wholly off the surface
            if (S(tx1 + 1, ty1 + 1) - S(tx0, ty1 + 1) - S(tx1 + 1, ty0) + S(tx0, ty0) == 0)
                continue;
            for (int k = p0; k < p1; ++k) metti(punti, q.punti_[size_t(k)]);
            for (int k = l0; k < l1; ++k) metti(linee, q.linee_[size_t(k)]);
        }
    }
    for (int k : q.lineeGrandi) metti(linee, k);
}

// The names placed on a thinned picture, as turned rectangles in pixels, in square buckets: a
// new name is placed only when it crosses none of them. The pixels wholly inside an upright name
// placed are marked, a bit each: a name whose corner falls inside such a pixel crosses it, and
// is refused without measuring it (on a whole sheet nearly all are).
class PostiNomi {
public:
    PostiNomi(double larghezza, double altezza)
        : colonne_(std::clamp(int(larghezza / kLato) + 1, 1, 1024)),
          righe_(std::clamp(int(altezza / kLato) + 1, 1, 1024)),
          secchi_(size_t(colonne_) * size_t(righe_)),
          celleX_(std::clamp(int(larghezza) + 1, 1, 4096)),
          celleY_(std::clamp(int(altezza) + 1, 1, 4096)), parole_((celleX_ + 63) / 64),
          coperte_(size_t(parole_) * size_t(celleY_)) {}

    // True when a name whose upper left corner is (x, y) surely crosses one placed.
    bool Coperto(double x, double y) const {
        if (!(x > 0 && y > 0 && x < celleX_ && y < celleY_)) return false;
        const int i = int(x), j = int(y);
        // On a pixel's side the name may lie wholly outside it.
        if (x == i || y == j) return false;
        return coperte_[size_t(j) * size_t(parole_) + size_t(i >> 6)] >> (i & 63) & 1;
    }

    // The text's box from its upper left corner (x, y), turned by angolo degrees
    // counterclockwise; true when it was free, and is now taken.
    bool Prendi(double x, double y, double larghezza, double altezza, double angolo) {
        const bool dritto = !std::isfinite(angolo) || angolo == 0;
        const double a = dritto ? 0 : angolo * M_PI / 180;
        const double ux = std::cos(a), uy = -std::sin(a); // along the text, y down
        Rettangolo r;
        r.dritto = dritto;
        r.v[0] = {x, y};
        r.v[1] = {x + ux * larghezza, y + uy * larghezza};
        r.v[2] = {r.v[1][0] - uy * altezza, r.v[1][1] + ux * altezza};
        r.v[3] = {x - uy * altezza, y + ux * altezza};
        double x0 = HUGE_VAL, y0 = HUGE_VAL, x1 = -HUGE_VAL, y1 = -HUGE_VAL;
        for (const auto& p : r.v) {
            x0 = std::min(x0, p[0]);
            x1 = std::max(x1, p[0]);
            y0 = std::min(y0, p[1]);
            y1 = std::max(y1, p[1]);
        }
        if (!(x0 <= x1 && y0 <= y1) || x1 - x0 > 1e6 || y1 - y0 > 1e6) return false;
        r.x0 = x0;
        r.y0 = y0;
        r.x1 = x1;
        r.y1 = y1;
        const int c0 = Colonna(x0), c1 = Colonna(x1), r0 = Riga(y0), r1 = Riga(y1);
        for (int j = r0; j <= r1; ++j)
            for (int i = c0; i <= c1; ++i)
                for (int k : secchi_[size_t(j) * size_t(colonne_) + size_t(i)])
                    if (Incrociano(r, presi_[size_t(k)])) return false;
        const int indice = int(presi_.size());
        presi_.push_back(r);
        for (int j = r0; j <= r1; ++j)
            for (int i = c0; i <= c1; ++i)
                secchi_[size_t(j) * size_t(colonne_) + size_t(i)].push_back(indice);
        if (dritto) {
            // The pixels wholly inside the box, a row of bits at a time.
            auto cella = [](double v, int n) { return int(std::clamp(v, 0.0, double(n))); };
            const int i0 = cella(std::ceil(x0), celleX_), i1 = cella(std::floor(x1), celleX_);
            const int j0 = cella(std::ceil(y0), celleY_), j1 = cella(std::floor(y1), celleY_);
            for (int j = j0; j < j1 && i0 < i1; ++j) {
                quint64* riga = coperte_.data() + size_t(j) * size_t(parole_);
                for (int p = i0 >> 6; p <= (i1 - 1) >> 6; ++p) {
                    quint64 m = ~quint64(0);
                    if (p == i0 >> 6) m &= ~quint64(0) << (i0 & 63);
                    if (p == (i1 - 1) >> 6) m &= ~quint64(0) >> (63 - ((i1 - 1) & 63));
                    riga[p] |= m;
                }
            }
        }
        return true;
    }

private:
    static constexpr double kLato = 32;
    struct Rettangolo {
        std::array<std::array<double, 2>, 4> v;
        double x0, y0, x1, y1; // the upright box around it
        bool dritto;
    };
    // Held to the buckets, then cut: the same as the floor held to them, without a call.
    int Colonna(double x) const { return int(std::clamp(x / kLato, 0.0, colonne_ - 1.0)); }
    int Riga(double y) const { return int(std::clamp(y / kLato, 0.0, righe_ - 1.0)); }
    // Two convex quadrilaterals cross unless a side of one separates them.
    static bool Separa(const Rettangolo& a, const Rettangolo& b) {
        for (int i = 0; i < 4; ++i) {
            const auto& p = a.v[size_t(i)];
            const auto& q = a.v[size_t((i + 1) % 4)];
            const double nx = q[1] - p[1], ny = p[0] - q[0];
            double aMin = HUGE_VAL, aMax = -HUGE_VAL, bMin = HUGE_VAL, bMax = -HUGE_VAL;
            for (int k = 0; k < 4; ++k) {
                const double pa = a.v[size_t(k)][0] * nx + a.v[size_t(k)][1] * ny;
                const double pb = b.v[size_t(k)][0] * nx + b.v[size_t(k)][1] * ny;
                aMin = std::min(aMin, pa);
                aMax = std::max(aMax, pa);
                bMin = std::min(bMin, pb);
                bMax = std::max(bMax, pb);
            }
            if (aMax <= bMin || bMax <= aMin) return true;
        }
        return false;
    }
    static bool Incrociano(const Rettangolo& a, const Rettangolo& b) {
        // Apart by their upright boxes; two upright texts are their boxes.
        if (a.x1 <= b.x0 || b.x1 <= a.x0 || a.y1 <= b.y0 || b.y1 <= a.y0) return false;
        if (a.dritto && b.dritto) return true;
        return !Separa(a, b) && !Separa(b, a);
    }
    int colonne_, righe_;
    std::vector<std::vector<int>> secchi_;
    std::vector<Rettangolo> presi_;
    int celleX_, celleY_, parole_;
    std::vector<quint64> coperte_;
};

// The vertex markers placed on a thinned picture, in cells of kDistanza pixels over the canvas
// and a margin: one a cell, and none within kDistanza of another.
class PostiSegni {
public:
    static constexpr double kDistanza = 4;
    PostiSegni(double larghezza, double altezza, double margine)
        : margine_(std::clamp(int(std::ceil(margine / kDistanza)) + 1, 1, 64)),
          colonne_(std::clamp(int(larghezza / kDistanza) + 1, 1, 8192) + 2 * margine_),
          righe_(std::clamp(int(altezza / kDistanza) + 1, 1, 8192) + 2 * margine_),
          presi_(size_t(colonne_) * size_t(righe_)) {}

    bool Prendi(double x, double y) {
        const double fx = Giu(x / kDistanza) + margine_, fy = Giu(y / kDistanza) + margine_;
        // Off the cells is off the canvas by more than a marker: nothing to show.
        if (!(fx >= 0 && fy >= 0 && fx < colonne_ && fy < righe_)) return false;
        const int cx = int(fx), cy = int(fy);
        if (presi_[Cella(cx, cy)].preso) return false;
        for (int j = std::max(cy - 1, 0); j <= std::min(cy + 1, righe_ - 1); ++j)
            for (int i = std::max(cx - 1, 0); i <= std::min(cx + 1, colonne_ - 1); ++i) {
                const Posto& t = presi_[Cella(i, j)];
                const double dx = t.x - x, dy = t.y - y;
                if (t.preso && dx * dx + dy * dy < kDistanza * kDistanza) return false;
            }
        presi_[Cella(cx, cy)] = {float(x), float(y), true};
        return true;
    }

private:
    struct Posto {
        float x = 0, y = 0;
        bool preso = false;
    };
    size_t Cella(int i, int j) const { return size_t(j) * size_t(colonne_) + size_t(i); }
    int margine_, colonne_, righe_;
    std::vector<Posto> presi_;
};

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

    // What the passes read of each point, packed once per version of the tables.
    const SchedePunti& sp = Schede(g);

    // On a part of a large sheet only the records of the cells in view are visited, in the
    // order of the tables and with the same tests: the strokes are those of the whole walk.
    std::vector<int> soloPunti, soloLinee;
    const double raggio = a / 400;
    const bool parte = ritaglia && opzioni.griglia &&
                       Candidati(g, sp, cx + vis.x0, cy + vis.y0, cx + vis.x1, cy + vis.y1,
                                 20 / twips * mondoPerPixel, mondoPerPixel,
                                 raggio + 2 * mondoPerPixel, soloPunti, soloLinee);
    // Strokes in their order, or from the last to a Tela that lays them underneath: then each
    // pass runs backwards and the passes come in the reverse order.
    bool rovescio = false;
    // From the last, where the Tela is already wholly taken, a marker or a line changes
    // nothing: the map of that is made before the markers' pass.
    Tela::Coperture coperture;
    bool copertura = false;
    // Then only the markers and the lines of the cells not wholly taken are visited: a bit per
    // record, walked from the last.
    std::vector<quint64> scopertiPunti, scopertiLinee;
    bool scoperti = false;
    auto perOgniScoperto = [&](const auto& tabella, const std::vector<quint64>& bit, auto&& f) {
        for (size_t k = bit.size(); k-- > 0;)
            for (quint64 w = bit[k]; w; w &= ~(quint64(1) << (63 - std::countl_zero(w)))) {
                const qsizetype i = qsizetype(k * 64 + 63 - size_t(std::countl_zero(w)));
                f(tabella[i], i);
            }
    };
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

    // A thinned picture: which markers and which texts are placed, chosen before any stroke
    // (the names by rank, each only where it covers none placed before it), so that the passes
    // in either order draw the same ones. Bits per point: 1 marker, 2 name, 4 toponym's text.
    enum : quint8 { kSegno = 1, kNome = 2, kTesto = 4 };
    std::vector<quint8> mostra;
    const bool dirada = opzioni.dirada;

    auto linee = [&] {
        auto linea = [&](const LineaGrafica& l, qsizetype) {
            const double x1 = l.X1 - cx, y1 = l.Y1 - cy, x2 = l.X2 - cx, y2 = l.Y2 - cy;
            if (!Finito(x1, y1) || !Finito(x2, y2)) return;
            if (ritaglia && !vis.Tocca(x1, y1, x2, y2, (std::abs(l.Spessore) + 4) * mondoPerPixel))
                return;
            // A line's pixels lie within its width and a pixel of rounding of its box.
            if (copertura && coperture.Coperto(x1, y1, x2, y2, std::abs(l.Spessore) + 2)) return;
            tela.Linea(x1, y1, x2, y2, l.Spessore, l.Stile, l.Colore);
        };
        if (scoperti)
            perOgniScoperto(g.Linee, scopertiLinee, linea);
        else
            perOgni(g.Linee, soloLinee, linea);
    };

    const std::vector<quint8>& tipo = sp.tipo;
    const std::vector<SchedePunti::Scheda>& schede = sp.schede;

    // Markers: only inside the box of the whole drawing.
    auto segni = [&] {
        auto segno = [&](const PuntoGrafica&, qsizetype i) {
            if (tipo[size_t(i)] != SchedePunti::kNumerato) return;
            if (dirada && !(mostra[size_t(i)] & kSegno)) return;
            const SchedePunti::Scheda& p = schede[size_t(i)];
            if (!(v.XMin < p.x && p.x < v.XMax && v.YMin < p.y && p.y < v.YMax)) return;
            const double x = p.x - cx, y = p.y - cy;
            if (ritaglia && !vis.Tocca(x, y, x, y, raggio + 2 * mondoPerPixel)) return;
            // A ring's pixels lie within two pixels and one of rounding of its circle.
            if (copertura && coperture.Coperto(x - raggio, y - raggio, x + raggio, y + raggio, 3))
                return;
            tela.Cerchio(x, y, raggio, p.colore);
        };
        if (scoperti)
            perOgniScoperto(g.Punti, scopertiPunti, segno);
        else
            perOgni(g.Punti, soloPunti, segno);
    };

    // Texts: toponyms, names, parcel labels. A text can reach as far as its length in
    // characters times its height from where it starts, in any direction.
    auto fuori = [&](const SchedePunti::Scheda& p, qint32 lunghezza) {
        const double x = p.x - cx, y = p.y - cy;
        if (!Finito(x, y)) return true;
        if (!ritaglia) return false;
        const double caratteri = double(lunghezza) + 2;
        const double portata =
            PortataTesto(caratteri, caratteri * std::abs(p.dimensione * 20 / twips) * mondoPerPixel,
                         mondoPerPixel);
        return !std::isfinite(portata) || !vis.Tocca(x, y, x, y, portata);
    };
    if (dirada) {
        mostra.assign(size_t(g.Punti.size()), 0);
        const double larghezzaPx = larghezzaMm / 25.4 * 1440 / twips;
        PostiNomi posti(larghezzaPx, altezzaPx);
        PostiSegni segniPosti(larghezzaPx, altezzaPx, raggio / mondoPerPixel + 2);
        auto pixel = [&](const SchedePunti::Scheda& p) {
            return std::pair{(p.x - cx - vis.x0) / mondoPerPixel,
                             (vis.y1 - (p.y - cy)) / mondoPerPixel};
        };
        // Each text takes the room the Tela gives it in its face.
        auto prendi = [&](qsizetype i, qint32 lunghezza, quint8 bit) {
            const SchedePunti::Scheda& p = schede[size_t(i)];
            if (lunghezza <= 0 || fuori(p, lunghezza)) return;
            const auto [x, y] = pixel(p);
            if (posti.Coperto(x, y)) return;
            const PuntoGrafica& q = g.Punti[i];
            const auto [w, h] =
                tela.Ingombro(bit == kTesto ? q.Testo : q.Nome, q.Font, p.dimensione * 20 / twips);
            if (posti.Prendi(x, y, w, h, p.angolo)) mostra[size_t(i)] |= bit;
        };
        auto ogni = [&](auto&& f) {
            if (parte)
                for (int i : soloPunti) f(qsizetype(i));
            else
                for (qsizetype i = 0; i < g.Punti.size(); ++i) f(i);
        };
        ogni([&](qsizetype i) {
            if (tipo[size_t(i)] & SchedePunti::kEtichetta)
                prendi(i, schede[size_t(i)].lunghezzaNome, kNome);
        });
        if (!v.ToponimiNo)
            ogni([&](qsizetype i) {
                if (tipo[size_t(i)] & SchedePunti::kToponimo)
                    prendi(i, schede[size_t(i)].lunghezzaTesto, kTesto);
            });
        if (!v.NomiNo)
            for (const bool fiduciali : {true, false})
                ogni([&](qsizetype i) {
                    if (tipo[size_t(i)] != SchedePunti::kNumerato) return;
                    if (bool(sp.fiduciale[size_t(i)]) != fiduciali) return;
                    prendi(i, schede[size_t(i)].lunghezzaNome, kNome);
                });
        ogni([&](qsizetype i) {
            if (tipo[size_t(i)] != SchedePunti::kNumerato) return;
            const SchedePunti::Scheda& p = schede[size_t(i)];
            if (!(v.XMin < p.x && p.x < v.XMax && v.YMin < p.y && p.y < v.YMax)) return;
            const double x = p.x - cx, y = p.y - cy;
            if (!Finito(x, y) || !vis.Tocca(x, y, x, y, raggio + 2 * mondoPerPixel)) return;
            const auto [px, py] = pixel(p);
            if (segniPosti.Prendi(px, py)) mostra[size_t(i)] |= kSegno;
        });
    }

    // The records' texts are read only by a Tela that has not seen them before.
    auto testi = [&](quint8 quale, bool toponimi) {
        perOgni(g.Punti, soloPunti, [&](const PuntoGrafica& q, qsizetype i) {
            if (quale ? !(tipo[size_t(i)] & quale) : tipo[size_t(i)] != SchedePunti::kNumerato)
                return;
            if (dirada && !(mostra[size_t(i)] & (toponimi ? kTesto : kNome))) return;
            const SchedePunti::Scheda& p = schede[size_t(i)];
            if (fuori(p, toponimi ? p.lunghezzaTesto : p.lunghezzaNome)) return;
            tela.TestoNoto({toponimi ? sp.serieTesti : sp.serieNomi, i}, p.x - cx, p.y - cy,
                           toponimi ? q.Testo : q.Nome, q.Font, p.dimensione * 20 / twips, p.angolo,
                           p.colore);
        });
    };
    auto toponimi = [&] {
        if (!v.ToponimiNo) testi(SchedePunti::kToponimo, true);
    };
    auto nomi = [&] {
        if (!v.NomiNo) testi(SchedePunti::kNumerato, false);
    };
    auto etichette = [&] { testi(SchedePunti::kEtichetta, false); };

    // Before the markers, from the last: where the Tela is already wholly taken. On a large
    // sheet seen whole most of it is by then, and the grid of the records' places (made with
    // the first picture, so that the first zoom step finds it) gives the markers and the lines
    // that may still show.
    auto copri = [&] {
        copertura = tela.MappaCoperture(coperture);
        if (!copertura || parte || !opzioni.griglia || g.Punti.size() + g.Linee.size() < 20000)
            return;
        if (!g.Griglia || !(g.Griglia->impronta == Impronta(g))) g.Griglia = FaiGriglia(g, sp);
        const GrigliaGrafica& q = *g.Griglia;
        const double marginePixel = std::max(3, std::min(q.spessoreMassimo, 100) + 2);
        Scoperti(q, coperture, cx, cy, raggio, marginePixel, g.Punti.size(), g.Linee.size(),
                 scopertiPunti, scopertiLinee);
        scoperti = true;
    };

    if (opzioni.rovescio && tela.IniziaAlRovescio()) {
        rovescio = true;
        etichette();
        nomi();
        toponimi();
        copri();
        segni();
        linee();
        if (tela.FinisciAlRovescio()) return;
        // The Tela gave up: everything again, in order, on a clean surface.
        rovescio = false;
        copertura = scoperti = false;
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
