// The plot control on the offscreen platform: captions, commands, mouse, printing, and the
// painter's picture against a plain reference painting.
#include "AnteprimaGrafica.h"
#include "Grafica.h"
#include "TelaImmagine.h"
#include "TelaQt.h"
#include "generatore.h"
#include "schermi.h"
#include "supporto.h"

#include "file_testo.h"
#include "testo.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <random>

using namespace tavolet;
using namespace tavolet::test;

namespace {

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

} // namespace

TEST_F(WidgetGrafica, IlMenuSalvaDXFCopiaImmagineEZoom) {
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
}

TEST_F(WidgetGrafica, IlMouseEtichetteCentroTrascinamentoEContorno) {
    QWidget* canvas = Canvas();
    ASSERT_TRUE(canvas);
    VistaGrafica& v = *w->Modello().Vista;
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

    // A left click with no mode recentres on the clicked world point.
    const QPoint centro(canvas->width() / 2, canvas->height() / 2);
    const double cx = v.CentroX;
    QTest::mouseClick(canvas, Qt::LeftButton, {}, centro + QPoint(100, 0));
    EXPECT_NEAR(v.CentroX, cx + 100 * v.Altezza / canvas->height(), v.Altezza / 200);
}

TEST_F(WidgetGrafica, OriginaleOpzioniEPropostaSalvateAllaFine) {
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

TEST(AnteprimaGraficaFinestra, TitoloEGrafica) {
    PiattaformaFinta p;
    Stato s(p);
    AnteprimaGrafica a(s);
    a.grafica()->BV_CaricaProposta_SUR(PercorsoDati("grafica/PROPOSTA.SUR"));
    EXPECT_EQ(a.grafica()->Modello().List2[1].size(), 9);
    a.show();
    QApplication::processEvents();
    a.grab().save("/tmp/anteprima_proposta.png");
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

// Passes every stroke on to an image Tela, counting the lines and markers; with mappa false it
// does not tell where the image is wholly taken.
struct TelaContata : Tela {
    TelaContata(TelaImmagine& t, bool mappa) : t(t), mappa(mappa) {}
    TelaImmagine& t;
    bool mappa;
    qsizetype tratti = 0;
    double LarghezzaMm() const override { return t.LarghezzaMm(); }
    double AltezzaMm() const override { return t.AltezzaMm(); }
    double TwipsPerPixel() const override { return t.TwipsPerPixel(); }
    void Pulisci() override { t.Pulisci(); }
    void Scala(double x1, double y1, double x2, double y2) override { t.Scala(x1, y1, x2, y2); }
    void Linea(double x1, double y1, double x2, double y2, int s, int st, int c) override {
        ++tratti;
        t.Linea(x1, y1, x2, y2, s, st, c);
    }
    void Cerchio(double x, double y, double r, int c) override {
        ++tratti;
        t.Cerchio(x, y, r, c);
    }
    void Testo(double x, double y, const QString& s, const QString& f, double h, double a,
               int c) override {
        t.Testo(x, y, s, f, h, a, c);
    }
    void TestoNoto(ChiaveTesto k, double x, double y, const QString& s, const QString& f, double h,
                   double a, int c) override {
        t.TestoNoto(k, x, y, s, f, h, a, c);
    }
    bool IniziaAlRovescio() override { return t.IniziaAlRovescio(); }
    bool FinisciAlRovescio() override { return t.FinisciAlRovescio(); }
    bool MappaCoperture(Coperture& m) override { return mappa && t.MappaCoperture(m); }
};

// The pixels the plot writes itself: culling, glyphs kept across redraws and strokes laid
// from the last leave the picture as the plain drawing of every record in order with fresh
// glyphs, pixel for pixel; and the strokes fall where the painter of the printer puts them
// (rings, names, lines), on generated sheets at several zooms, with turned toponyms, thick
// and dashed lines among them.
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
        }
    }
    // A sheet seen whole on a small canvas, where the names cover every pixel many times: in
    // order, most glyphs fall on tiles already of their colour and are passed over; from the
    // last, most pixels are taken early, and the markers and lines of cells already wholly
    // taken are not given at all. The same picture
    // three ways at each step; names changed in place (and counted) are drawn anew with the
    // glyphs kept; and a text only the painter can set makes the Tela give up its way, and the
    // drawing start again in order.
    for (bool segnato : {false, true}) {
        OpzioniEstratto o;
        o.vertici = 20000;
        VistaGrafica vista;
        ModelloGrafica g(&vista);
        CaricaRigheEstratto(s, g, RigheDiTesto(GeneraEstratto(o)));
        if (segnato)
            BV_AggiungiPuntoGraf(g, QStringLiteral("ca\u0300%"), g.Punti[5].X, g.Punti[5].Y, 0, {},
                                 4, 0, QStringLiteral("Courier New"), 9);
        CacheGlifi glifi;
        for (int passo = 0; passo < 5; ++passo) {
            QImage a(320, 200, QImage::Format_RGB32), b(320, 200, QImage::Format_RGB32);
            QImage c(320, 200, QImage::Format_RGB32), d(320, 200, QImage::Format_RGB32);
            qsizetype tratti[2] = {};
            for (QImage* im : {&a, &b, &c, &d}) {
                TelaImmagine t(*im, 96, im == &a ? &glifi : nullptr);
                t.UsaMappaTinte(im != &b);
                t.UsaRovescio(im == &a || im == &d);
                TelaContata contata(t, im != &d);
                BV_RidisegnaGrafica(g, contata);
                if (im == &a || im == &d) tratti[im == &d] = contata.tratti;
            }
            EXPECT_EQ(a, b) << segnato << " passo " << passo;
            EXPECT_EQ(a, c) << segnato << " passo " << passo;
            EXPECT_EQ(a, d) << segnato << " passo " << passo;
            if (passo == 0) {
                EXPECT_EQ(a.pixel(160, 100), qRgb(0, 0, 0)); // the middle is all ink
            }
            if (passo == 1 && !segnato) {
                // Where the image is already taken, most lines and markers are not given.
                EXPECT_LT(tratti[0] * 5, tratti[1]);
            }
            if (passo == 2) {
                for (PuntoGrafica& p : g.Punti)
                    if (p.Nome.endsWith(u'%')) p.Nome = u'4' + p.Nome.left(2);
                ++g.Versione;
            }
            if (passo >= 2) BV_ZoomPiu(g);
            if (passo == 3) BV_ZoomRight(g);
        }
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

// Random tables on canvases of any size, at any zoom: extreme and odd numbers, long and odd
// names, thick and dashed lines. The image Tela never writes outside its pixels (the ASan build
// says so), always finishes, and draws from the last what it draws in order.
TEST(DisegnoRiferimento, TabelleACasoSuTeleDiOgniMisura) {
    std::mt19937 rng(20261124);
    auto caso = [&](int a, int b) { return std::uniform_int_distribution<int>(a, b)(rng); };
    const double strani[] = {0, -0.0, 1e-300, 1e300, -1e300, 1e15, std::nan(""), INFINITY, -3, 5e6};
    // A large table keeps to the milder oddities, so that its sheet is drawn and not a point.
    bool grande = false;
    const int miti[] = {0, 1, 2, 8};
    auto numero = [&]() {
        if (caso(0, 5) == 0) return strani[grande ? miti[caso(0, 3)] : caso(0, 9)];
        return std::uniform_real_distribution<double>(-500, 500)(rng);
    };
    const QStringList nomi = {"1%",
                              "22T",
                              " 257",
                              "PF01/0120/A001",
                              "",
                              "T",
                              " ",
                              "\u00e8%",
                              "\u2603",
                              "L",
                              QString(300, u'9'),
                              "D\u2019A\u20acT"};
    CacheGlifi glifi;
    for (int giro = 0; giro < 200; ++giro) {
        VistaGrafica vista;
        ModelloGrafica g(&vista);
        grande = giro % 20 == 0;
        const int punti = grande ? caso(20000, 25000) : caso(0, 60);
        for (int i = 0; i < punti; ++i)
            BV_AggiungiPuntoGraf(g, nomi[caso(0, int(nomi.size()) - 1)], numero(), numero(), 0,
                                 nomi[caso(0, int(nomi.size()) - 1)], caso(-3, 20),
                                 caso(0, 3) ? 0 : numero(), QStringLiteral("Courier New"),
                                 caso(0, 4) ? 8 : numero());
        for (int i = 0; i < caso(0, 60); ++i)
            BV_AggiungiLineaGraf(g, numero(), numero(), 0, numero(), numero(), 0, caso(-2, 20),
                                 caso(-5, 120), caso(0, 3));
        BV_ZoomTutto(g);
        for (int k = caso(0, 40); k > 0; --k) BV_ZoomPiu(g);
        if (caso(0, 3) == 0) vista.Altezza = numero();
        if (caso(0, 5) == 0) vista.CentroX = numero();
        QImage im(caso(0, 300), caso(0, 200), QImage::Format_RGB32);
        const double dpi = caso(0, 4) ? 96 : numero();
        {
            TelaImmagine t(im, dpi, &glifi);
            BV_RidisegnaGrafica(g, t);
        }
        // A large table a second time, with its glyphs and the grid of its places kept.
        if (grande) {
            TelaImmagine t(im, dpi, &glifi);
            BV_RidisegnaGrafica(g, t);
        }
        // Every tenth table also in order, with nothing left out: the same pixels.
        if (giro % 10 == 0 && !im.isNull()) {
            QImage avanti(im.size(), QImage::Format_RGB32);
            TelaImmagine ta(avanti, dpi, &glifi);
            ta.UsaRovescio(false);
            BV_RidisegnaGrafica(g, ta, {.ritaglia = false});
            EXPECT_EQ(im, avanti) << "giro " << giro;
        }
    }
}
