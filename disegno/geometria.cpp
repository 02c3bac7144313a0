#include "geometria.h"

#include <cmath>

namespace tavolet {

double AzimutDistanza(double x0, double y0, double x1, double y1) {
    const double dx = x1 - x0, dy = y1 - y0;
    const double r = std::sqrt(dx * dx + dy * dy);
    if (r + dy == 0) return kPiGreco;
    double az = 2 * std::atan(dx / (r + dy));
    if (az < 0) az += 2 * kPiGreco;
    return az;
}

double DistanzaPiana(double x0, double y0, double x1, double y1) {
    return std::sqrt((x1 - x0) * (x1 - x0) + (y1 - y0) * (y1 - y0));
}

double AngoloDirezione(double gon) {
    if (gon < 0) gon += 400;
    if (gon >= 400) gon -= 400;
    return gon;
}

double DirezioneOrientata(double o, double xs, double ys, double xt, double yt, double xr,
                          double yr) {
    return AngoloDirezione(o + (AzimutDistanza(xs, ys, xt, yt) - AzimutDistanza(xs, ys, xr, yr)) *
                                   kGonPerRadiante);
}

double Arrotonda(double a, double p) {
    if (!(p > 0)) return a;
    return std::floor((a + p / 2) / p) * p;
}

void PiedePerpendicolare(double xa, double ya, double xb, double yb, double xc, double yc,
                         Piede& piede) {
    const double az = AzimutDistanza(xa, ya, xb, yb);
    const double xd = xc + std::sin(az + kPiGreco / 2);
    const double yd = yc + std::cos(az + kPiGreco / 2);
    // Intersection of AB and CD by determinants.
    const double det = (xa - xb) * (yc - yd) - (ya - yb) * (xc - xd);
    if (std::fabs(det) < 1e-7) {
        piede.valido = false;
        return;
    }
    const double t1 = xa * yb - ya * xb, t2 = xc * yd - yc * xd;
    piede.xp = (t1 * (xc - xd) - (xa - xb) * t2) / det;
    piede.yp = (t1 * (yc - yd) - (ya - yb) * t2) / det;
    piede.valido = true;
    piede.daC = DistanzaPiana(piede.xp, piede.yp, xc, yc);
    piede.daA = DistanzaPiana(piede.xp, piede.yp, xa, ya);
    piede.daB = DistanzaPiana(piede.xp, piede.yp, xb, yb);
    piede.lunghezzaAB = DistanzaPiana(xa, ya, xb, yb);
}

} // namespace tavolet
