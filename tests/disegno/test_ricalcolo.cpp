// Numbers a surveyor can trust: every point of a generated libretto is computed again from
// its rows 1 and 2 (station, orientation, direction and zenith in gon, slope distance) with
// plain trigonometry, and must land on its drawing coordinates within the rounding.
#include "aiuto_disegno.h"

#include <cmath>
#include <random>

namespace tavolet::test {

namespace {

const double kGon = 3.14159265358979323846 / 200;

struct Coordinate {
    double x, y, z, h;
};

// Recomputes every target of every station of the rows; checks each against the drawing.
// Returns the number of points checked.
int Ricalcola(const QStringList& righe, const QHash<QString, Coordinate>& veri, double precisione,
              bool azimut) {
    int controllati = 0;
    QString stazione;
    double orientamentoRad = 0; // the azimuth that reads 0 on the circle
    for (int i = 0; i < righe.size(); ++i) {
        const QStringList c = righe[i].split(u'|');
        if (c[0] == u"1") {
            stazione = c[1];
            const QStringList rif = righe.value(i + 1).split(u'|');
            const Coordinate s = veri.value(stazione), r = veri.value(rif.value(1));
            const double azRif = std::atan2(r.x - s.x, r.y - s.y);
            // The reference's reading: 0 when zeroed, its azimuth when all are azimuths.
            orientamentoRad = azimut ? 0 : azRif - rif.value(2).toDouble() * kGon;
            continue;
        }
        if (c[0] != u"2" || stazione.isEmpty() || !veri.contains(c[1])) continue;
        // A target with no distance taken (height below 0) cannot be placed again.
        if (c.value(c.size() >= 7 ? 4 : 3) == u"0.000") continue;
        const Coordinate s = veri.value(stazione), t = veri.value(c[1]);
        const double direzione = c[2].toDouble() * kGon + orientamentoRad;
        double orizzontale = 0;
        if (c.size() == 8) { // name, direction, zenith, slope distance, target height, note
            const double zenit = c[3].toDouble() * kGon, inclinata = c[4].toDouble();
            orizzontale = inclinata * std::sin(zenit);
            const double z = s.z + s.h + inclinata * std::cos(zenit) - c[5].toDouble();
            EXPECT_NEAR(z, t.z, 0.0015 + inclinata * precisione * kGon) << righe[i].toStdString();
        } else {
            orizzontale = c[3].toDouble();
        }
        const double x = s.x + orizzontale * std::sin(direzione);
        const double y = s.y + orizzontale * std::cos(direzione);
        const double tolleranza = 0.0015 + orizzontale * precisione * kGon * 1.5;
        EXPECT_NEAR(x, t.x, tolleranza) << righe[i].toStdString();
        EXPECT_NEAR(y, t.y, tolleranza) << righe[i].toStdString();
        ++controllati;
    }
    return controllati;
}

QHash<QString, Coordinate> Veri(const QString& lxc) {
    QHash<QString, Coordinate> v;
    for (const PuntoDisegno& p : LeggiLxc(lxc).PuntiDisegno) v.insert(p.nome, {p.X, p.Y, p.Z, p.H});
    return v;
}

} // namespace

TEST_F(Generazione, RicalcoloDelRilievo) {
    const QString lxc = DaWindows1252(Dati("disegno/RILIEVO.LXC"));
    for (int precisione : {0, 3, 5}) {
        o.PrecisioneAngolare = precisione;
        const QStringList righe = Genera(lxc, {"0|x|", "9|20|10|20|15|V|18|T|"});
        EXPECT_EQ(Ricalcola(righe, Veri(lxc), ValorePrecisione(precisione), false), 12);
    }
}

TEST_F(Generazione, RicalcoloDiRilieviCasuali) {
    std::mt19937 rng(7);
    std::uniform_real_distribution<double> coord(-400, 400), quota(5, 40), alt(1.2, 1.8);
    for (int prova = 0; prova < 12; ++prova) {
        QString lxc;
        const int stazioni = 2 + int(rng() % 4);
        for (int k = 1; k <= stazioni; ++k) {
            const double x = coord(rng), y = coord(rng);
            lxc += QString::asprintf("P,%d,%.3f,%.3f,%.3f,ST,%.3f\r\n", k * 100, x, y, quota(rng),
                                     alt(rng));
            for (int j = 1; j <= 1 + int(rng() % 8); ++j)
                lxc +=
                    QString::asprintf("P,%d,%.3f,%.3f,%.3f,PT,%.3f\r\n", k * 100 + j,
                                      x + coord(rng) / 4, y + coord(rng) / 4, quota(rng), alt(rng));
        }
        const QHash<QString, Coordinate> veri = Veri(lxc);
        for (int k = 1; k < stazioni; ++k) {
            const Coordinate a = veri.value(QString::number(k * 100));
            const Coordinate b = veri.value(QString::number(k * 100 + 100));
            lxc += QString::asprintf("L,%.3f,%.3f,0,%.3f,%.3f,0\r\n", a.x, a.y, b.x, b.y);
        }
        const bool azimut = prova % 2 == 1;
        o.orientamento = azimut ? Orientamento::TuttiAzimut : Orientamento::StazionePrecedente;
        o.PrecisioneAngolare = int(rng() % 6);
        const QStringList righe = Genera(lxc, {"0|x|", "9|20|10|20|15|V|18|T|"});
        ASSERT_FALSE(righe.isEmpty()) << p.Messaggi().join("\n").toStdString();
        EXPECT_GE(Ricalcola(righe, veri, ValorePrecisione(o.PrecisioneAngolare), azimut),
                  stazioni * 2 - 2);
    }
}

} // namespace tavolet::test
