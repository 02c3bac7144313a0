// The thinned picture of the screen: no name over another at any zoom, markers a few pixels
// apart, and where nothing would overlap the very picture of every record.
#include "TelaImmagine.h"
#include "generatore.h"
#include "supporto.h"

#include <QDir>
#include <QFontMetricsF>
#include <QImage>

#include <cmath>

using namespace tavolet;
using namespace tavolet::test;

namespace {

// The image Tela that also keeps what it was given to draw.
struct TelaContata : TelaImmagine {
    using TelaImmagine::TelaImmagine;
    struct Scritto {
        QPointF punto;
        QString testo, font;
        double altezza, angolo;
    };
    QList<Scritto> scritti;
    QList<QPointF> segni;
    double ox = 0, oy = 0, scala = 1;
    void Scala(double x1, double y1, double x2, double y2) override {
        TelaImmagine::Scala(x1, y1, x2, y2);
        ox = x1;
        oy = y1;
        scala = 800 / (y1 - y2);
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

QImage Disegna(ModelloGrafica& g, bool dirada, TelaContata** contata = nullptr) {
    static QImage img;
    img = QImage(1280, 800, QImage::Format_RGB32);
    static std::unique_ptr<TelaContata> tela;
    tela = std::make_unique<TelaContata>(img);
    OpzioniDisegno o;
    o.dirada = dirada;
    BV_RidisegnaGrafica(g, *tela, o);
    if (contata) *contata = tela.get();
    tela.reset(); // the pixels are written at the end
    return img.copy();
}

// The ink box of an upright text in the face and size it was set in, from Qt's own metrics.
QRectF Scatola(const TelaContata::Scritto& s) {
    QFont f(s.font);
    f.setPixelSize(std::clamp(int(std::lround(std::abs(s.altezza))), 1, 2000));
    const QFontMetricsF m(f);
    return {s.punto, QSizeF(m.horizontalAdvance(s.testo), m.ascent())};
}

} // namespace

TEST(Diradamento, NessunNomeSuUnAltroATreZoom) {
    OpzioniEstratto o;
    o.vertici = 100000;
    PiattaformaFinta p;
    Stato s(p);
    VistaGrafica vista;
    ModelloGrafica g(&vista);
    CaricaRigheEstratto(s, g, GeneraEstratto(o).split("\r\n"));
    GeneraGrafica(s, g);
    for (const double zoom : {1.0, 0.1, 0.02}) {
        vista.Altezza *= zoom;
        TelaContata* t = nullptr;
        Disegna(g, true, &t);
        // Names: no two boxes cross (the generated names stand upright).
        QList<QRectF> scatole;
        for (const auto& sc : t->scritti) {
            ASSERT_EQ(sc.angolo, 0);
            scatole << Scatola(sc);
        }
        std::sort(scatole.begin(), scatole.end(),
                  [](const QRectF& a, const QRectF& b) { return a.left() < b.left(); });
        for (qsizetype i = 0; i < scatole.size(); ++i)
            for (qsizetype j = i + 1; j < scatole.size() && scatole[j].left() < scatole[i].right();
                 ++j)
                ASSERT_FALSE(scatole[i].intersected(scatole[j]).isValid() &&
                             scatole[i].intersected(scatole[j]).width() > 0.5 &&
                             scatole[i].intersected(scatole[j]).height() > 0.5)
                    << zoom << ": " << i << ' ' << j;
        // Markers: none closer than three pixels to another.
        QList<QPointF> segni = t->segni;
        std::sort(segni.begin(), segni.end(),
                  [](const QPointF& a, const QPointF& b) { return a.x() < b.x(); });
        for (qsizetype i = 0; i < segni.size(); ++i)
            for (qsizetype j = i + 1; j < segni.size() && segni[j].x() - segni[i].x() < 3; ++j)
                ASSERT_GE(std::hypot(segni[j].x() - segni[i].x(), segni[j].y() - segni[i].y()), 3)
                    << zoom;
        EXPECT_GT(t->scritti.size(), 20) << zoom;
    }
}

TEST(Diradamento, DoveNullaSiCopreLImmagineEQuellaDiTutto) {
    // Names and markers well apart, lines between them: the very same pixels.
    VistaGrafica vista;
    ModelloGrafica g(&vista);
    for (int r = 0; r < 12; ++r)
        for (int c = 0; c < 20; ++c) {
            BV_AggiungiPuntoGraf(g, QString::number(r * 20 + c + 1), c * 100.0, r * 100.0, 0, "",
                                 r % 16, 0, "Arial", 8);
            if (c > 0)
                BV_AggiungiLineaGraf(g, (c - 1) * 100.0, r * 100.0, 0, c * 100.0, r * 100.0, 0, 0,
                                     1, 0);
        }
    BV_AggiungiPuntoGraf(g, " 12", 550, 550, 0, "", 4, 30, "Arial", 10);
    BV_AggiungiPuntoGraf(g, "STRADAT", 1250, 350, 0, "Via Roma", 1, 0, "Arial", 9);
    BV_ZoomTutto(g);
    TelaContata* t = nullptr;
    const QImage tutti = Disegna(g, false, &t);
    const qsizetype scritti = t->scritti.size(), segni = t->segni.size();
    const QImage diradata = Disegna(g, true, &t);
    EXPECT_EQ(t->scritti.size(), scritti);
    EXPECT_EQ(t->segni.size(), segni);
    EXPECT_EQ(diradata, tutti);
}

TEST(Diradamento, LEstrattoDemoCambiaSoloDoveINomiSiCoprivano) {
    const QString emp =
        qEnvironmentVariable("TAVOLET_DEMO") + "/drive_c/pregeo/estratti/A001_00120.EMP";
    PiattaformaFinta p;
    Stato s(p);
    VistaGrafica vista;
    ModelloGrafica g(&vista);
    CaricaRigheEstratto(s, g, QString::fromLatin1(LeggiFile(emp)).split("\r\n"));
    GeneraGrafica(s, g);
    TelaContata* t = nullptr;
    const QImage tutti = Disegna(g, false, &t);
    const QList<TelaContata::Scritto> ogni = t->scritti;
    const QList<QPointF> ogniSegno = t->segni;
    const QImage diradata = Disegna(g, true, &t);
    diradata.save(QDir::temp().filePath("tavolet_demo_diradata.png"));
    tutti.save(QDir::temp().filePath("tavolet_demo_tutti.png"));
    // Where the pictures differ, a name or a marker was left out.
    QList<QRectF> tolti;
    auto presente = [&](const TelaContata::Scritto& a) {
        for (const auto& b : t->scritti)
            if (b.punto == a.punto && b.testo == a.testo) return true;
        return false;
    };
    for (const auto& sc : ogni)
        if (!presente(sc)) {
            // A turned name reaches as far as its length and height in any direction.
            const QRectF b = Scatola(sc);
            const double raggio = b.width() + b.height() + 3;
            tolti << QRectF(sc.punto - QPointF(raggio, raggio), QSizeF(2 * raggio, 2 * raggio));
        }
    for (const QPointF& q : ogniSegno)
        if (!t->segni.contains(q)) tolti << QRectF(q - QPointF(6, 6), QSizeF(12, 12));
    int diversi = 0;
    for (int y = 0; y < tutti.height(); ++y)
        for (int x = 0; x < tutti.width(); ++x) {
            if (tutti.pixel(x, y) == diradata.pixel(x, y)) continue;
            ++diversi;
            bool spiegato = false;
            for (const QRectF& r : tolti) spiegato = spiegato || r.contains(x + 0.5, y + 0.5);
            ASSERT_TRUE(spiegato) << x << ' ' << y;
        }
    EXPECT_EQ(diversi == 0, tolti.isEmpty());
}
