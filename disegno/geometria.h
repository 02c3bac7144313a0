// Plane geometry of the generated libretto: angles in gon, azimuths clockwise from north,
// X east, Y north.
#pragma once

namespace tavolet {

inline constexpr double kPiGreco = 3.14159265358979323846;
inline constexpr double kGonPerRadiante = 200.0 / kPiGreco;

// Azimuth in radians from (x0, y0) to (x1, y1), in [0, 2pi); pi when the two coincide.
double AzimutDistanza(double x0, double y0, double x1, double y1);
double DistanzaPiana(double x0, double y0, double x1, double y1);
// A direction in gon brought into [0, 400).
double AngoloDirezione(double gon);
// The direction read at T from S, oriented so that R reads o (all in gon).
double DirezioneOrientata(double o, double xs, double ys, double xt, double yt, double xr,
                          double yr);
// Rounded to the precision p: Int((a + p/2) / p) * p.
double Arrotonda(double a, double p);

struct Piede {
    bool valido = false; // false: the two lines are parallel (status 4)
    double xp = 0, yp = 0;
    double daC = 0, daA = 0, daB = 0, lunghezzaAB = 0;
};
// The foot of the perpendicular from C on the line AB; the previous results stay when AB has
// no direction (status 4).
void PiedePerpendicolare(double xa, double ya, double xb, double yb, double xc, double yc,
                         Piede& piede);

} // namespace tavolet
