// The plot control on the offscreen platform: captions, commands, mouse, printing, and the
// painter's picture against a plain reference painting; the image preview; the plot's files read
// by real programs.
#include "Anteprima.h"
#include "AnteprimaGrafica.h"
#include "Grafica.h"
#include "TelaImmagine.h"
#include "TelaQt.h"
#include "file_testo.h"
#include "generatore.h"
#include "schermi.h"
#include "supporto.h"
#include "testo.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPolygonF>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTransform>

#include <array>
#include <cmath>

using namespace tavolet;
using namespace tavolet::test;

namespace {

// Pixels darker than soglia in the rectangle.
int Scuri(const QImage& img, const QRect& r, int soglia) {
    int n = 0;
    for (int y = r.top(); y <= r.bottom(); ++y)
        for (int x = r.left(); x <= r.right(); ++x) n += qGray(img.pixel(x, y)) < soglia;
    return n;
}

// Ink of a picture: the pixels that are not white.
QVector<bool> Inchiostro(const QImage& im) {
    QVector<bool> r(qsizetype(im.width()) * im.height());
    for (int y = 0; y < im.height(); ++y)
        for (int x = 0; x < im.width(); ++x)
            r[qsizetype(y) * im.width() + x] = (im.pixel(x, y) & 0xFFFFFF) != 0xFFFFFF;
    return r;
}

struct WidgetGrafica : ConPregeo {
    std::unique_ptr<Grafica> w;
    void SetUp() override {
        ConPregeo::SetUp();
        w = std::make_unique<Grafica>(s);
        w->resize(1280, 800);
        w->show();
        QApplication::processEvents();
        w->BV_CaricaEstratto_EMP(PercorsoDati("grafica/ESTRATTO.EMP"));
        QApplication::processEvents();
    }
    QWidget* Canvas() const {
        // The largest child that is neither a button nor a label: the drawing surface.
        QWidget* c = nullptr;
        for (QWidget* x : w->findChildren<QWidget*>())
            if (QString(x->metaObject()->className()) == "QWidget" && x->hasMouseTracking()) c = x;
        return c;
    }
};

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

TEST_F(WidgetGrafica, IlMenuIComandiIlMouseEIlContorno) {
    w->grab().save("/tmp/grafica_estratto.png");
    QMenu* menu = w->findChild<QMenu*>();
    ASSERT_TRUE(menu);
    QStringList voci;
    for (QAction* a : menu->actions()) voci << a->text();
    EXPECT_EQ(voci, QStringList({"Zoom Tutto", "Copia Immagine", "Stampa", "Copia In File",
                                 "Salva DXF", "Zoom Sinistra", "Zoom Su", "Zoom Giù", "Zoom Destra",
                                 "Zoom Avanti", "Zoom Indietro", "Stampa", "Esporta GeoPackage"}));
    p.risposte = {Risposta::Si};
    Clic(w.get(), "Salva DXF");
    const QString dxf = s.amb.CartellaProgramma + "\\GraficaPF.DXF";
    EXPECT_EQ(LeggiByte(dxf), Dati("grafica/ESTRATTO.DXF"));
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_EQ(p.Messaggi()[0], "Salva in DXF: Salvato il file " + dxf);
    EXPECT_EQ(p.Domande(), QStringList({"Apertura file DXF : Aprire il file DXF ?"}));
    EXPECT_EQ(p.eventi.last().tipo, "apriconprogramma");

    Clic(w.get(), "Copia Immagine");
    EXPECT_EQ(p.Messaggi().last(), "Copia Raster: Immagine Copiata negli Appunti di Windows.");
    EXPECT_FALSE(QApplication::clipboard()->image().isNull());

    VistaGrafica& v = *w->Modello().Vista;
    const double altezza = v.Altezza, cy = v.CentroY;
    Clic(w.get(), "Zoom Avanti");
    EXPECT_DOUBLE_EQ(v.Altezza, altezza * 0.9);
    Clic(w.get(), "Zoom Su");
    EXPECT_DOUBLE_EQ(v.CentroY, cy - altezza * 0.9 * 0.1);
    Clic(w.get(), "Zoom Tutto");
    EXPECT_DOUBLE_EQ(v.Altezza, altezza);

    Clic(w.get(), "Copia In File");
    EXPECT_EQ(LeggiByte(s.amb.CartellaProgramma + "\\temp\\CopiaInFile.TXT"),
              Dati("grafica/ESTRATTO_COPIAINFILE.TXT"));

    // The mouse: the label of the point under the pointer, then a contour.
    QWidget* canvas = Canvas();
    ASSERT_TRUE(canvas);
    // The pixel of vertex 3% (east -3800.57, north -5700.12).
    auto pixel = [&](double x, double y) {
        const double a = v.Altezza, h = canvas->height(), ww = canvas->width();
        return QPoint(int(std::lround((x - v.CentroX) * h / a + ww / 2)),
                      int(std::lround(h / 2 - (y - v.CentroY) * h / a)));
    };
    QTest::mouseMove(canvas, pixel(-3800.5678901234, -5700.1234567890));
    QApplication::processEvents();
    QStringList etichette;
    for (QLabel* l : w->findChildren<QLabel*>()) etichette << l->text();
    EXPECT_TRUE(etichette.join('|').contains("3% ")) << etichette.join('|').toStdString();
    EXPECT_EQ(w->Modello().PuntoVicino, "3%");

    // Contour in red from 3% to 5%, then the button ends the mode.
    w->ImpostaModo("CONTORNOROSSO");
    const int linee = w->Modello().ContaLinee();
    QTest::mouseClick(canvas, Qt::LeftButton, {}, pixel(-3800.5678901234, -5700.1234567890));
    QTest::mouseClick(canvas, Qt::LeftButton, {}, pixel(-3780, -5700.2));
    EXPECT_EQ(w->Modello().ContaLinee(), linee + 1);
    EXPECT_EQ(w->Modello().Linee.last().Colore, 12);
    Clic(w.get(), "Termina Contorno");
    EXPECT_TRUE(w->Modello().Modo.isEmpty());
    EXPECT_EQ(LeggiTesto(PercorsoContorno(s)).count("al punto"), 2);
}

TEST_F(WidgetGrafica, OriginaleOpzioniSalvateAllaFineEAnteprimaDellaProposta) {
    QRadioButton* originale = nullptr;
    for (QRadioButton* r : w->findChildren<QRadioButton*>())
        if (r->text() == "Originale") originale = r;
    ASSERT_TRUE(originale);
    originale->click();
    QPlainTextEdit* testo = w->findChild<QPlainTextEdit*>();
    ASSERT_TRUE(testo && testo->isVisible());
    EXPECT_TRUE(testo->toPlainText().startsWith("0|15032024|"));

    for (QCheckBox* c : w->findChildren<QCheckBox*>())
        if (c->text() == "Nomi NO") c->click();
    EXPECT_EQ(w->Modello().Vista->NomiNo, 1);
    w.reset();
    EXPECT_EQ(p.impostazioni.value("CONFIGURA_GRAFICA1/NOMISINO"), "1");
    VistaCondivisa().NomiNo = 0;

    // The preview of the Proposta in its own window.
    AnteprimaGrafica a(s);
    a.grafica()->BV_CaricaProposta_SUR(PercorsoDati("grafica/PROPOSTA.SUR"));
    EXPECT_EQ(a.grafica()->Modello().List2[1].size(), 9);
    a.show();
    QApplication::processEvents();
    a.grab().save("/tmp/anteprima_proposta.png");
}

TEST_F(WidgetGrafica, LaStampaSuUnPDF) {
    if (!QFileInfo::exists("/usr/bin/pdftotext")) GTEST_SKIP() << "pdftotext non installato";
    QTemporaryDir dir;
    QPrinter stampante(QPrinter::HighResolution);
    stampante.setOutputFormat(QPrinter::PdfFormat);
    stampante.setOutputFileName(dir.filePath("g.pdf"));
    w->StampaSu(stampante);
    const QString testo = EseguiProgramma("/usr/bin/pdftotext", {dir.filePath("g.pdf"), "-"}).out;
    EXPECT_TRUE(testo.contains("VIA DEI MILLE")) << testo.toStdString();
    EXPECT_TRUE(testo.contains("257"));
}

// Share of the ink of a that has ink of b within two pixels.
double Vicino(const QVector<bool>& a, const QVector<bool>& b, int w, int h) {
    qsizetype tot = 0, ok = 0;
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            if (!a[qsizetype(y) * w + x]) continue;
            ++tot;
            bool trovato = false;
            for (int j = std::max(0, y - 2); j <= std::min(h - 1, y + 2) && !trovato; ++j)
                for (int i = std::max(0, x - 2); i <= std::min(w - 1, x + 2) && !trovato; ++i)
                    trovato = b[qsizetype(j) * w + i];
            ok += trovato;
        }
    return tot ? double(ok) / double(tot) : 1.0;
}

// The pixels the plot writes itself: culling, glyphs kept across redraws and strokes laid
// from the last leave the picture as the plain drawing of every record in order with fresh
// glyphs, pixel for pixel; and the strokes fall where the painter of the printer puts them
// (rings, names, lines), on generated sheets at several zooms, with turned toponyms, thick
// and dashed lines among them; and a text only the painter can set makes the Tela give up
// drawing from the last.
TEST(DisegnoRiferimento, LImmagineDiretta) {
    PiattaformaFinta p;
    Stato s(p);
    for (unsigned seme = 1; seme <= 6; ++seme) {
        OpzioniEstratto o;
        o.vertici = 600;
        o.seme = seme;
        o.stranezze = seme % 2 == 0;
        VistaGrafica vista;
        ModelloGrafica g(&vista);
        CaricaRigheEstratto(s, g, RigheDiTesto(GeneraEstratto(o)));
        CacheGlifi glifi; // kept across the steps, as the window keeps it
        for (int passo = 0; passo < 4; ++passo) {
            QImage a(640, 400, QImage::Format_RGB32), b(640, 400, QImage::Format_RGB32);
            QImage c(640, 400, QImage::Format_RGB32);
            {
                TelaImmagine ta(a, 96, &glifi);
                BV_RidisegnaGrafica(g, ta);
            }
            {
                TelaImmagine tb(b);
                tb.UsaMappaTinte(false);
                tb.UsaRovescio(false);
                BV_RidisegnaGrafica(g, tb, {.ritaglia = false});
            }
            ASSERT_EQ(a, b) << "seme " << seme << " passo " << passo;
            {
                QPainter pc(&c);
                TelaQPainter tc(pc, 640, 400);
                BV_RidisegnaGrafica(g, tc);
            }
            const auto ia = Inchiostro(a), ic = Inchiostro(c);
            EXPECT_GT(std::count(ia.begin(), ia.end(), true), 2000) << seme << " " << passo;
            EXPECT_GT(Vicino(ia, ic, 640, 400), 0.97) << "seme " << seme << " passo " << passo;
            EXPECT_GT(Vicino(ic, ia, 640, 400), 0.97) << "seme " << seme << " passo " << passo;
            if (seme == 1 && passo == 3) {
                a.save("/tmp/tela_immagine.png");
                c.save("/tmp/tela_qpainter.png");
            }
            for (int k = 0; k < 6; ++k) BV_ZoomPiu(g);
            BV_ZoomRight(g);
            BV_ZoomUP(g);
            // Names changed in place are drawn anew with the glyphs kept.
            if (passo == 1) {
                for (PuntoGrafica& pg : g.Punti)
                    if (pg.Nome.endsWith(u'%')) pg.Nome = u'4' + pg.Nome.left(2);
                ++g.Versione;
            }
        }
    }
    // A dense sheet on a small canvas, zoomed in and to the right: drawn from the last, with the
    // cells already covered passed over, it is the picture drawn in order.
    OpzioniEstratto denso;
    denso.vertici = 20000;
    VistaGrafica vd;
    ModelloGrafica gd(&vd);
    CaricaRigheEstratto(s, gd, RigheDiTesto(GeneraEstratto(denso)));
    for (int passo = 0; passo < 4; ++passo) {
        QImage a(320, 200, QImage::Format_RGB32), c(320, 200, QImage::Format_RGB32);
        {
            TelaImmagine ta(a), tc(c);
            tc.UsaRovescio(false);
            BV_RidisegnaGrafica(gd, ta);
            BV_RidisegnaGrafica(gd, tc);
        }
        EXPECT_EQ(a, c) << "passo " << passo;
        if (passo > 0) BV_ZoomPiu(gd);
        if (passo == 2) BV_ZoomRight(gd);
    }
    {
        QImage im(40, 20, QImage::Format_RGB32);
        TelaImmagine t(im);
        t.Pulisci();
        t.Scala(0, 0, 40, 20);
        ASSERT_TRUE(t.IniziaAlRovescio());
        t.Testo(1, 1, QStringLiteral("12%"), QStringLiteral("Courier New"), 11, 30, 0);
        t.Linea(0, 0, 40, 20, 3, 1, 12);
        // Upright turns and bands, whose rows have ends far off the image.
        t.Testo(20, 10, QStringLiteral("12%"), QStringLiteral("Courier New"), 11, 90, 0);
        t.Testo(20, 10, QStringLiteral("12%"), QStringLiteral("Courier New"), 11, 270, 0);
        t.Linea(10, 0, 10 + 1e-13, 20, 3, 0, 12);
        // The quotes, dashes and euro of Windows-1252 are set from the glyphs too.
        t.Testo(2, 2, QStringLiteral("D\u2019ANNUNZIO \u2013 \u20ac"),
                QStringLiteral("Arial Narrow"), 11, 0, 0);
        t.Testo(2, 2, QStringLiteral("\u201cFOSSO\u201d"), QStringLiteral("Arial Narrow"), 11, 45,
                2);
        EXPECT_TRUE(t.FinisciAlRovescio());
        ASSERT_TRUE(t.IniziaAlRovescio());
        t.Testo(1, 1, QStringLiteral("ca\u0300"), QStringLiteral("Courier New"), 11, 0, 0);
        EXPECT_FALSE(t.FinisciAlRovescio());
        // Through the glyph cache: a ring of no finite size, a name of no ink, one too long for a
        // mask, one far off, one too large; then a mark, which only the painter sets.
        CacheGlifi cache;
        TelaImmagine c(im, 96, &cache);
        c.Pulisci();
        c.Scala(0, 0, 40, 20);
        const QString font = QStringLiteral("Courier New");
        ASSERT_TRUE(c.IniziaAlRovescio());
        c.Cerchio(1, 1, INFINITY, 0);
        c.TestoNoto({7, 0}, 1, 1, QStringLiteral(" "), font, 11, 0, 0);
        c.TestoNoto({7, 4}, 1, 1, QString(300, u'9'), font, 200, 0, 0);
        c.TestoNoto({7, 1}, 1e300, 1, QStringLiteral("12%"), font, 11, 0, 0);
        c.TestoNoto({7, 2}, 1, 1, QStringLiteral("12%"), font, 5000, 0, 0);
        c.FinisciAlRovescio();
        ASSERT_TRUE(c.IniziaAlRovescio());
        c.TestoNoto({7, 3}, 1, 1, QStringLiteral("\u2603"), font, 11, 0, 0);
        Tela::Coperture coperture; // given up, no map is worth making
        EXPECT_FALSE(c.MappaCoperture(coperture));
        EXPECT_FALSE(c.FinisciAlRovescio());
    }
    // A tile of one colour that another colour then touches is in doubt again: black drawn
    // over red on black tiles is drawn.
    {
        QImage a(64, 32, QImage::Format_RGB32), b(64, 32, QImage::Format_RGB32);
        for (QImage* im : {&a, &b}) {
            TelaImmagine t(*im);
            t.UsaMappaTinte(im == &a);
            t.Pulisci();
            t.Scala(0, 0, 64, 32);
            for (int y = 0; y < 32; ++y) t.Linea(0, y, 63, y, 1, 0, 0);
            for (int k = 0; k < 300; ++k) t.Testo(k % 50, k % 20, "W", "Courier New", 11, 0, 0);
            t.Testo(10, 10, "WWW", "Courier New", 11, 0, 12);
            t.Testo(10, 10, "WWW", "Courier New", 11, 0, 0);
        }
        EXPECT_EQ(a, b);
    }
    // Outside the image, a canvas of no size and a format of its own: nothing written amiss.
    QImage vuota;
    TelaImmagine tv(vuota);
    VistaGrafica vista;
    ModelloGrafica g(&vista);
    BV_RidisegnaGrafica(g, tv);
    QImage indicizzata(50, 40, QImage::Format_Grayscale8);
    TelaImmagine ti(indicizzata);
    ti.Pulisci();
    ti.Scala(-10, 10, 10, -10);
    ti.Linea(-1e300, 0, 1e300, 0, 1, 0, 0);
    ti.Testo(0, 0, QStringLiteral("12%"), QStringLiteral("Courier New"), 11, 0, 0);
    ti.Cerchio(0, 0, 1e300, 0);
    ti.Cerchio(0, 0, 0.5, 0);
    // Text the glyphs do not carry goes through the painter: marks, symbols, a huge size.
    QImage piccola(60, 30, QImage::Format_RGB32);
    TelaImmagine tp(piccola);
    tp.Pulisci();
    tp.Scala(0, 0, 60, 30);
    tp.Testo(2, 2, QStringLiteral("ca\u0300 \u2603"), QStringLiteral("Courier New"), 11, 0, 0);
    tp.Testo(2, 2, QStringLiteral("X"), QStringLiteral("Courier New"), 5000, 0, 0);
    tp.Testo(2, 2, QStringLiteral("\t\n"), QStringLiteral("Courier New"), 11, 0, 0);
    const auto inchiostro = Inchiostro(piccola);
    EXPECT_GT(std::count(inchiostro.begin(), inchiostro.end(), true), 20);
}

// The image preview: a picture fitted and centred, its commands and dragging; a file that is not
// an image.
TEST(AnteprimaProva, UnPNGSiAdattaCentratoEIComandiUnFileCheNonEImmagine) {
    RadiceProva radice;
    PiattaformaFinta p;
    Stato s{p};
    Anteprima a{s};
    a.resize(400, 300);
    a.show();
    QApplication::processEvents();
    QImage img(200, 100, QImage::Format_RGB32);
    img.fill(Qt::darkGreen);
    ASSERT_TRUE(img.save(radice.Percorso() + "/A.PNG", "PNG"));
    ASSERT_TRUE(a.LoadImmagine(radice.Percorso() + "/A.PNG"));
    // 200x100 into 400x300: twice, centred.
    EXPECT_EQ(a.ImmagineLarghezza, 400);
    EXPECT_EQ(a.ImmagineAltezza, 200);
    EXPECT_EQ(a.ImmagineLeft, 0);
    EXPECT_EQ(a.ImmagineTop, 50);
    // Each command moves or sizes the image by a step: halves, whole widths, twentieths.
    const struct {
        int comando;
        int Anteprima::*campo;
        int atteso;
    } passi[] = {{5, &Anteprima::ImmagineLarghezza, 200}, {2, &Anteprima::ImmagineLeft, 200},
                 {3, &Anteprima::ImmagineTop, 200},       {0, &Anteprima::ImmagineTop, 0},
                 {1, &Anteprima::ImmagineLeft, 0},        {6, &Anteprima::ImmagineLarghezza, 210},
                 {7, &Anteprima::ImmagineLarghezza, 200}, {9, &Anteprima::ImmagineLeft, 10},
                 {8, &Anteprima::ImmagineLeft, 0}};
    for (const auto& passo : passi) {
        a.Eseguicomando(passo.comando);
        EXPECT_EQ(a.*passo.campo, passo.atteso) << passo.comando;
    }
    a.Eseguicomando(10);
    EXPECT_EQ(p.Messaggi(), QStringList({"Copia Schermo: Immagine copiata negli Appunti!"}));
    EXPECT_FALSE(QApplication::clipboard()->image().isNull());

    // Dragging moves the image with the cursor.
    QTest::mousePress(&a, Qt::LeftButton, {}, QPoint(50, 50));
    QTest::mouseMove(&a, QPoint(80, 70));
    QTest::mouseRelease(&a, Qt::LeftButton, {}, QPoint(80, 70));
    EXPECT_EQ(a.ImmagineLeft, 30);
    EXPECT_EQ(a.ImmagineTop, 20);
    a.grab().save("/tmp/anteprima.png");

    // The placeholder that the CXF conversion writes: the message, and no image to fit.
    radice.Scrivi("C:\\x\\D.PNG", "filevuoto\r\n");
    EXPECT_FALSE(a.LoadImmagine("C:\\x\\D.PNG"));
    EXPECT_EQ(p.Messaggi().last(), "GDI+ Module: Errore nel caricare l'immagine D.PNG");
    EXPECT_TRUE(a.Immagine().isNull());
    a.Eseguicomando(4);
    EXPECT_FALSE(a.LoadImmagine(QString()));
    EXPECT_EQ(p.Messaggi().size(), 2);
}

// What leaves Tavolet, read by real programs: the HTML page in Chromium, and tavolet-cli's
// grafica commands with their switches.
TEST(Consumatori, LaPaginaHTMLSiVedeInChromium) {
    if (!QFileInfo::exists("/usr/bin/chromium")) GTEST_SKIP() << "chromium non installato";
    QTemporaryDir dir;
    const QString html = dir.filePath("g.html"), png = dir.filePath("g.png");
    const Esito e = Esegui({"grafica", "html", PercorsoDati("grafica/ESTRATTO.EMP"), html});
    ASSERT_EQ(e.codice, 0) << (e.out + e.err).toStdString();
    const Esito c = EseguiProgramma(
        "/usr/bin/chromium", {"--headless", "--no-sandbox", "--disable-gpu", "--hide-scrollbars",
                              "--user-data-dir=" + dir.filePath("profilo"),
                              "--window-size=1100,1100", "--screenshot=" + png, "file://" + html});
    const QImage img(png);
    ASSERT_FALSE(img.isNull()) << (c.out + c.err).toStdString();
    // The canvas starts at the page's margin (8 px) and its border (2 px); the drawing stands
    // around its centre (500, 500), and outside it the canvas is blank.
    EXPECT_GT(Scuri(img, QRect(310, 310, 400, 400), 200), 500);
    EXPECT_EQ(Scuri(img, QRect(20, 20, 100, 100), 200), 0);
}

TEST(Consumatori, GraficaDaRigaDiComando) {
    QTemporaryDir dir;
    const QString in = PercorsoDati("grafica/ESTRATTO.EMP");
    auto file = [&](const QString& n) { return dir.filePath(n); };
    // Each exporter as the plot's own; the switches: no names, no toponyms, no fiducial points.
    ASSERT_EQ(Esegui({"grafica", "stampa", in, file("s.txt")}).codice, 0);
    EXPECT_EQ(LeggiByte(file("s.txt")), Dati("grafica/ESTRATTO_STAMPE.TXT"));
    ASSERT_EQ(Esegui({"grafica", "dxf", in, file("b.dxf"), "--nomi-no", "--toponimi-no", "--pf-no"})
                  .codice,
              0);
    const QString b = LeggiTesto(file("b.dxf"));
    EXPECT_FALSE(b.contains("PF01/0120/A001"));
    EXPECT_FALSE(b.contains("\r\n1T\r\n"));
    EXPECT_FALSE(b.contains("\r\n 257\r\n"));
    // The Proposta of a .sur.
    ASSERT_EQ(Esegui({"grafica", "copiainfile", PercorsoDati("grafica/PROPOSTA.SUR"), file("p.txt"),
                      "--proposta"})
                  .codice,
              0);
    EXPECT_EQ(LeggiByte(file("p.txt")), Dati("grafica/PROPOSTA_COPIAINFILE.TXT"));

    const Esito e =
        Esegui({"grafica", "png", in, file("g.png"), "--larghezza", "640", "--altezza", "400"});
    ASSERT_EQ(e.codice, 0) << (e.out + e.err).toStdString();
    const QImage img(file("g.png"));
    ASSERT_EQ(img.size(), QSize(640, 400));
    EXPECT_GT(Scuri(img, img.rect(), 128), 300);
    // Thinned as the window is; every name and marker with --tutti-i-nomi, as the check box.
    const QString demo =
        qEnvironmentVariable("TAVOLET_DEMO") + "/drive_c/pregeo/estratti/A001_00120.EMP";
    auto disegna = [&](const QString& out, const QStringList& altro) {
        return Esegui(QStringList{"grafica", "png", demo, file(out), "--larghezza", "480",
                                  "--altezza", "300"} +
                      altro)
            .codice;
    };
    ASSERT_EQ(disegna("d.png", {}), 0);
    ASSERT_EQ(disegna("t.png", {"--tutti-i-nomi"}), 0);
    const QImage diradata(file("d.png")), tutta(file("t.png"));
    EXPECT_GT(Scuri(tutta, tutta.rect(), 128), Scuri(diradata, diradata.rect(), 128) + 50);

    // Bad use and missing files.
    EXPECT_EQ(Esegui({"grafica", "dxf", in}).codice, 2);
    EXPECT_EQ(Esegui({"grafica", "png", in, file("x.png"), "--larghezza", "0"}).codice, 2);
    const Esito manca = Esegui({"grafica", "dxf", file("manca.EMP"), file("x.dxf")});
    EXPECT_EQ(manca.codice, 1);
    EXPECT_TRUE((manca.out + manca.err).contains("manca.EMP")) << manca.out.toStdString();
}

// The thinned picture of the screen: no name over another at any zoom, markers a few pixels
// apart, no upright name turned, and on the demo extract a change only where names overlapped;
// Zoom Tutto in windows of every shape. The overlap is judged by Qt's own metrics and polygon
// clipping, not by the plot's.

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
