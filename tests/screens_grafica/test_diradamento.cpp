// The thinned picture of the screen: no name over another at any zoom, markers a few pixels
// apart, no upright name turned, and on the demo extract a change only where names overlapped;
// Zoom Tutto in windows of every shape. The overlap is judged by Qt's own metrics and polygon
// clipping, not by the plot's.
#include "Grafica.h"
#include "TelaImmagine.h"
#include "generatore.h"
#include "supporto.h"

#include <QApplication>
#include <QDir>
#include <QFontMetricsF>
#include <QImage>
#include <QPolygonF>
#include <QTransform>

#include <array>
#include <cmath>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct Scritto {
    QPointF punto;
    QString testo, font;
    double altezza, angolo;
    bool operator==(const Scritto&) const = default;
};

// The image Tela that also keeps what it was given to draw, in pixels.
struct TelaContata : TelaImmagine {
    using TelaImmagine::TelaImmagine;
    QList<Scritto> scritti;
    QList<QPointF> segni;
    double ox = 0, oy = 0, scala = 1, pixelAlti = 1;
    void Scala(double x1, double y1, double x2, double y2) override {
        TelaImmagine::Scala(x1, y1, x2, y2);
        ox = x1;
        oy = y1;
        scala = pixelAlti / (y1 - y2);
    }
    QPointF Pixel(double x, double y) const { return {(x - ox) * scala, (oy - y) * scala}; }
    void TestoNoto(ChiaveTesto c, double x, double y, const QString& t, const QString& f, double h,
                   double a, int colore) override {
        scritti.append({Pixel(x, y), t, f, h, a});
        TelaImmagine::TestoNoto(c, x, y, t, f, h, a, colore);
    }
    void Cerchio(double x, double y, double r, int colore) override {
        segni.append(Pixel(x, y));
        TelaImmagine::Cerchio(x, y, r, colore);
    }
};

struct Disegno {
    QImage immagine;
    QList<Scritto> scritti;
    QList<QPointF> segni;
};

Disegno Disegna(ModelloGrafica& g, bool dirada) {
    Disegno d;
    d.immagine = QImage(1280, 800, QImage::Format_RGB32);
    {
        TelaContata tela(d.immagine);
        tela.pixelAlti = d.immagine.height();
        OpzioniDisegno o;
        o.dirada = dirada;
        BV_RidisegnaGrafica(g, tela, o);
        d.scritti = tela.scritti;
        d.segni = tela.segni;
    } // the pixels are written when the Tela ends
    return d;
}

// The cell of a text in the face and size it was set in, turned around its upper left corner.
QPolygonF Scatola(const Scritto& s) {
    QFont f(s.font);
    f.setPixelSize(std::clamp(int(std::lround(std::abs(s.altezza))), 1, 2000));
    const QFontMetricsF m(f);
    QTransform t;
    t.translate(s.punto.x(), s.punto.y());
    t.rotate(-s.angolo);
    return t.map(QPolygonF(QRectF(0, 0, m.horizontalAdvance(s.testo), m.ascent() + m.descent())));
}

double Area(const QPolygonF& p) {
    double a = 0;
    for (qsizetype i = 0; i + 1 < p.size(); ++i)
        a += p[i].x() * p[i + 1].y() - p[i + 1].x() * p[i].y();
    return std::abs(a) / 2;
}

// Pairs of texts whose cells share more than a pixel of area.
int Sovrapposti(QList<QPolygonF> scatole) {
    std::sort(scatole.begin(), scatole.end(), [](const QPolygonF& a, const QPolygonF& b) {
        return a.boundingRect().left() < b.boundingRect().left();
    });
    int n = 0;
    for (qsizetype i = 0; i < scatole.size(); ++i)
        for (qsizetype j = i + 1; j < scatole.size() && scatole[j].boundingRect().left() <
                                                            scatole[i].boundingRect().right();
             ++j)
            n += Area(scatole[i].intersected(scatole[j])) > 1;
    return n;
}

void Carica(ModelloGrafica& g, const QStringList& righe) {
    PiattaformaFinta p;
    Stato s(p);
    CaricaRigheEstratto(s, g, righe);
    GeneraGrafica(s, g);
}

} // namespace

TEST(Diradamento, NessunNomeSuUnAltroATreZoom) {
    OpzioniEstratto o;
    o.vertici = 100000;
    VistaGrafica vista;
    ModelloGrafica g(&vista);
    Carica(g, GeneraEstratto(o).split("\r\n"));
    const double tutto = vista.Altezza;
    int girati = 0;
    for (const double zoom : {1.0, 0.1, 0.01}) {
        vista.Altezza = tutto * zoom;
        const Disegno ogni = Disegna(g, false);
        const Disegno d = Disegna(g, true);
        // Every text is one of the picture of every record, turned as there: upright names stay
        // upright, toponyms keep their angle.
        auto chiave = [](const Scritto& s) {
            return s.testo + QString::asprintf("@%.1f,%.1f", s.punto.x(), s.punto.y());
        };
        QHash<QString, double> angoli;
        for (const Scritto& s : ogni.scritti) angoli.insert(chiave(s), s.angolo);
        QList<QPolygonF> scatole;
        for (const Scritto& s : d.scritti) {
            const QString k = chiave(s);
            ASSERT_TRUE(angoli.contains(k)) << zoom << ": " << k.toStdString();
            EXPECT_EQ(angoli.value(k), s.angolo) << zoom << ": " << k.toStdString();
            girati += s.angolo != 0;
            scatole << Scatola(s);
        }
        EXPECT_EQ(Sovrapposti(scatole), 0) << zoom;
        // Markers: none closer than three pixels to another.
        QList<QPointF> segni = d.segni;
        std::sort(segni.begin(), segni.end(),
                  [](const QPointF& a, const QPointF& b) { return a.x() < b.x(); });
        for (qsizetype i = 0; i < segni.size(); ++i)
            for (qsizetype j = i + 1; j < segni.size() && segni[j].x() - segni[i].x() < 3; ++j)
                ASSERT_GE(std::hypot(segni[j].x() - segni[i].x(), segni[j].y() - segni[i].y()), 3)
                    << zoom;
        // Thinned, not emptied: names, turned toponyms among them, and markers.
        EXPECT_GT(d.scritti.size(), 20) << zoom;
        EXPECT_GT(d.segni.size(), 0) << zoom;
        if (zoom == 1.0) {
            EXPECT_LT(d.scritti.size(), ogni.scritti.size() / 10);
        }
    }
    EXPECT_GT(girati, 0);
}

TEST(Diradamento, LEstrattoDemoCambiaSoloDoveINomiSiCoprivano) {
    const QString emp =
        qEnvironmentVariable("TAVOLET_DEMO") + "/drive_c/pregeo/estratti/A001_00120.EMP";
    VistaGrafica vista;
    ModelloGrafica g(&vista);
    Carica(g, QString::fromLatin1(LeggiFile(emp)).split("\r\n"));
    const Disegno tutti = Disegna(g, false);
    const Disegno diradata = Disegna(g, true);
    diradata.immagine.save(QDir::temp().filePath("tavolet_demo_diradata.png"));
    tutti.immagine.save(QDir::temp().filePath("tavolet_demo_tutti.png"));
    ASSERT_GT(tutti.scritti.size(), 0);
    // Each name left out covered a name that is kept; the pixels that differ lie where a name
    // or a marker was left out.
    QList<QRectF> tolti;
    for (const Scritto& sc : tutti.scritti) {
        if (diradata.scritti.contains(sc)) continue;
        const QPolygonF s = Scatola(sc);
        bool copriva = false;
        for (const Scritto& b : diradata.scritti)
            copriva = copriva || Area(s.intersected(Scatola(b))) > 0;
        EXPECT_TRUE(copriva) << sc.testo.toStdString();
        tolti << s.boundingRect().adjusted(-3, -3, 3, 3);
    }
    for (const QPointF& q : tutti.segni)
        if (!diradata.segni.contains(q)) tolti << QRectF(q - QPointF(6, 6), QSizeF(12, 12));
    int diversi = 0;
    for (int y = 0; y < tutti.immagine.height(); ++y)
        for (int x = 0; x < tutti.immagine.width(); ++x) {
            if (tutti.immagine.pixel(x, y) == diradata.immagine.pixel(x, y)) continue;
            ++diversi;
            bool spiegato = false;
            for (const QRectF& r : tolti) spiegato = spiegato || r.contains(x + 0.5, y + 0.5);
            ASSERT_TRUE(spiegato) << x << ' ' << y;
        }
    EXPECT_EQ(diversi == 0, tolti.isEmpty());
}

TEST(Diradamento, ZoomTuttoMostraIlDisegnoInteroInOgniFinestra) {
    // A green frame with a point at each corner: fitted in a window wider than high, then made
    // higher than wide, square, wide again, the frame is whole on the canvas and centred.
    PiattaformaFinta p;
    Stato s(p);
    Grafica w(s);
    for (const QRectF disegno :
         {QRectF(1000, 2000, 800, 100), QRectF(-50, -50, 60, 600), QRectF(0, 0, 300, 300)}) {
        w.BV_Clear();
        const std::array<QPointF, 4> v{disegno.topLeft(), disegno.topRight(), disegno.bottomRight(),
                                       disegno.bottomLeft()};
        for (size_t i = 0; i < 4; ++i) {
            w.BV_AggiungiPuntoGraf(QString::number(i + 1), v[i].x(), v[i].y(), 0, "", 0, 0, "Arial",
                                   8);
            const QPointF& b = v[(i + 1) % 4];
            w.BV_AggiungiLineaGraf(v[i].x(), v[i].y(), 0, b.x(), b.y(), 0, 10, 1, 0);
        }
        bool primo = true;
        for (const QSize finestra :
             {QSize(1200, 500), QSize(500, 900), QSize(700, 700), QSize(1300, 450)}) {
            w.resize(finestra);
            w.show();
            QApplication::processEvents();
            if (primo) w.BV_ZoomTutto();
            primo = false;
            const QImage img = w.Immagine();
            // The green pixels of each row and column give the frame's box and its sides.
            QList<int> righe(img.height()), colonne(img.width());
            for (int y = 0; y < img.height(); ++y)
                for (int x = 0; x < img.width(); ++x)
                    if ((img.pixel(x, y) & 0xFFFFFF) == 0x00FF00) {
                        ++righe[y];
                        ++colonne[x];
                    }
            auto estremi = [](const QList<int>& n) {
                int a = 0, b = int(n.size()) - 1;
                while (a < b && n[a] == 0) ++a;
                while (b > a && n[b] == 0) --b;
                return std::pair{a, b};
            };
            const auto [x0, x1] = estremi(colonne);
            const auto [y0, y1] = estremi(righe);
            SCOPED_TRACE(testing::Message()
                         << img.width() << "x" << img.height() << " " << disegno.width());
            ASSERT_GT(x1, x0);
            // Each side whole: its line runs from corner to corner, but where a corner's marker
            // sits.
            EXPECT_GE(std::min(colonne[x0], colonne[x1]), (y1 - y0) * 8 / 10);
            EXPECT_GE(std::min(righe[y0], righe[y1]), (x1 - x0) * 8 / 10);
            EXPECT_NEAR(x0 + x1, img.width(), 3);
            EXPECT_NEAR(y0 + y1, img.height(), 3);
        }
    }
}
