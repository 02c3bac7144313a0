// The redraw: four passes over the tables, through whatever Tela is given.
#include "grafica.h"

#include <cmath>

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

    // Lines.
    for (const LineaGrafica& l : g.Linee) {
        const double x1 = l.X1 - cx, y1 = l.Y1 - cy, x2 = l.X2 - cx, y2 = l.Y2 - cy;
        if (!Finito(x1, y1) || !Finito(x2, y2)) continue;
        if (ritaglia && !vis.Tocca(x1, y1, x2, y2, (std::abs(l.Spessore) + 4) * mondoPerPixel))
            continue;
        tela.Linea(x1, y1, x2, y2, l.Spessore, l.Stile, l.Colore);
    }

    // Markers: only inside the box of the whole drawing. The place is tested before the name,
    // which lies elsewhere in memory: a zoomed view leaves most points out at the first test.
    const double raggio = a / 400;
    for (const PuntoGrafica& p : g.Punti) {
        if (!(v.XMin < p.X && p.X < v.XMax && v.YMin < p.Y && p.Y < v.YMax)) continue;
        const double x = p.X - cx, y = p.Y - cy;
        if (ritaglia && !vis.Tocca(x, y, x, y, raggio + 2 * mondoPerPixel)) continue;
        if (Etichetta(p.Nome) || Toponimo(p.Nome)) continue;
        tela.Cerchio(x, y, raggio, p.Colore);
    }

    // Texts: toponyms, names, parcel labels. A text can reach as far as its length in
    // characters times its height from where it starts, in any direction.
    auto fuori = [&](const PuntoGrafica& p, const QString& t) {
        const double x = p.X - cx, y = p.Y - cy;
        if (!Finito(x, y)) return true;
        if (!ritaglia) return false;
        const double portata = (t.size() + 2) * std::abs(p.Dimensione * 20 / twips) * mondoPerPixel;
        return !std::isfinite(portata) || !vis.Tocca(x, y, x, y, portata);
    };
    auto testo = [&](const PuntoGrafica& p, const QString& t) {
        tela.Testo(p.X - cx, p.Y - cy, t, p.Font, p.Dimensione * 20 / twips, p.Angolo, p.Colore);
    };
    if (!v.ToponimiNo)
        for (const PuntoGrafica& p : g.Punti)
            if (!fuori(p, p.Testo) && Toponimo(p.Nome)) testo(p, p.Testo);
    if (!v.NomiNo)
        for (const PuntoGrafica& p : g.Punti)
            if (!fuori(p, p.Nome) && !Toponimo(p.Nome) && !Etichetta(p.Nome)) testo(p, p.Nome);
    for (const PuntoGrafica& p : g.Punti)
        if (!fuori(p, p.Nome) && Etichetta(p.Nome)) testo(p, p.Nome);
}

} // namespace tavolet
