// The plot control on the offscreen platform: captions, commands, mouse, printing, and the
// painter's picture against a plain reference painting.
#include "AnteprimaGrafica.h"
#include "Grafica.h"
#include "TelaQt.h"
#include "generatore.h"
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
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

using namespace tavolet;
using namespace tavolet::test;

namespace {

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
    QPushButton* Pulsante(const QString& testo) const {
        for (QPushButton* b : w->findChildren<QPushButton*>())
            if (b->text() == testo) return b;
        return nullptr;
    }
    QWidget* Canvas() const {
        // The largest child that is neither a button nor a label: the drawing surface.
        QWidget* c = nullptr;
        for (QWidget* x : w->findChildren<QWidget*>())
            if (QString(x->metaObject()->className()) == "QWidget" && x->hasMouseTracking()) c = x;
        return c;
    }
    static int NonBianchi(const QImage& img) {
        int n = 0;
        for (int y = 0; y < img.height(); ++y)
            for (int x = 0; x < img.width(); ++x) n += (img.pixel(x, y) & 0xFFFFFF) != 0xFFFFFF;
        return n;
    }
};

} // namespace

TEST_F(WidgetGrafica, IlDisegnoDellEstrattoEIComandi) {
    const QImage finestra = w->grab().toImage();
    finestra.save("/tmp/grafica_estratto.png");
    const QImage img = w->Immagine();
    EXPECT_GT(NonBianchi(img), 2000);
    // The free line in red and the fiducial markers' neighbours are there.
    bool rosso = false;
    for (int y = 0; y < img.height() && !rosso; ++y)
        for (int x = 0; x < img.width() && !rosso; ++x)
            rosso = (img.pixel(x, y) & 0xFFFFFF) == 0xFF0000;
    EXPECT_TRUE(rosso);

    for (const char* c :
         {"Zoom Tutto", "Copia Immagine", "Stampa", "Copia In File", "Salva DXF", "Zoom Sinistra",
          "Zoom Su", "Zoom Giù", "Zoom Destra", "Zoom Avanti", "Zoom Indietro", "Termina Contorno"})
        EXPECT_TRUE(Pulsante(QString::fromUtf8(c))) << c;
    QMenu* menu = w->findChild<QMenu*>();
    ASSERT_TRUE(menu);
    EXPECT_EQ(menu->title(), "Comandi");
    QStringList voci;
    for (QAction* a : menu->actions()) voci << a->text();
    EXPECT_EQ(voci, QStringList({"Zoom Tutto", "Copia Immagine", "Stampa", "Copia In File",
                                 "Salva DXF", "Zoom Sinistra", "Zoom Su", "Zoom Giù", "Zoom Destra",
                                 "Zoom Avanti", "Zoom Indietro", "Stampa"}));
}

TEST_F(WidgetGrafica, SalvaDXFCopiaImmagineEZoom) {
    p.risposte = {Risposta::Si};
    QTest::mouseClick(Pulsante("Salva DXF"), Qt::LeftButton);
    const QString dxf = s.amb.CartellaProgramma + "\\GraficaPF.DXF";
    EXPECT_EQ(LeggiByte(dxf), Dati("grafica/ESTRATTO.DXF"));
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_EQ(p.Messaggi()[0], "Salva in DXF: Salvato il file " + dxf);
    EXPECT_EQ(p.Domande(), QStringList({"Apertura file DXF : Aprire il file DXF ?"}));
    EXPECT_EQ(p.eventi.last().tipo, "apriconprogramma");

    QTest::mouseClick(Pulsante("Copia Immagine"), Qt::LeftButton);
    EXPECT_EQ(p.Messaggi().last(), "Copia Raster: Immagine Copiata negli Appunti di Windows.");
    EXPECT_FALSE(QApplication::clipboard()->image().isNull());

    VistaGrafica& v = *w->Modello().Vista;
    const double altezza = v.Altezza, cy = v.CentroY;
    QTest::mouseClick(Pulsante("Zoom Avanti"), Qt::LeftButton);
    EXPECT_DOUBLE_EQ(v.Altezza, altezza * 0.9);
    QTest::mouseClick(Pulsante("Zoom Su"), Qt::LeftButton);
    EXPECT_DOUBLE_EQ(v.CentroY, cy - altezza * 0.9 * 0.1);
    QTest::mouseClick(Pulsante("Zoom Tutto"), Qt::LeftButton);
    EXPECT_DOUBLE_EQ(v.Altezza, altezza);

    QTest::mouseClick(Pulsante("Copia In File"), Qt::LeftButton);
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
    QTest::mouseClick(Pulsante("Termina Contorno"), Qt::LeftButton);
    EXPECT_TRUE(w->Modello().Modo.isEmpty());
    EXPECT_EQ(LeggiTesto(PercorsoContorno(s)).count("al punto"), 2);

    // A left click with no mode recentres on the clicked world point.
    const QPoint centro(canvas->width() / 2, canvas->height() / 2);
    const double cx = v.CentroX;
    QTest::mouseClick(canvas, Qt::LeftButton, {}, centro + QPoint(100, 0));
    EXPECT_NEAR(v.CentroX, cx + 100 * v.Altezza / canvas->height(), v.Altezza / 200);
}

TEST_F(WidgetGrafica, OriginaleOpzioniEPropostaSalvateAllaFine) {
    w->findChild<QRadioButton*>(QString(), Qt::FindChildrenRecursively);
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
    QTemporaryDir dir;
    QPrinter stampante(QPrinter::HighResolution);
    stampante.setOutputFormat(QPrinter::PdfFormat);
    stampante.setOutputFileName(dir.filePath("g.pdf"));
    w->StampaSu(stampante);
    QFile f(dir.filePath("g.pdf"));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray pdf = f.readAll();
    EXPECT_TRUE(pdf.startsWith("%PDF"));
    EXPECT_GT(pdf.size(), 2000);
    if (QFileInfo::exists("/usr/bin/pdftotext")) {
        QProcess pr;
        pr.start("/usr/bin/pdftotext", {dir.filePath("g.pdf"), "-"});
        pr.waitForFinished(30000);
        const QString testo = QString::fromUtf8(pr.readAllStandardOutput());
        EXPECT_TRUE(testo.contains("VIA DEI MILLE")) << testo.toStdString();
        EXPECT_TRUE(testo.contains("257"));
    }
}

TEST(AnteprimaGraficaFinestra, TitoloEGrafica) {
    PiattaformaFinta p;
    Stato s(p);
    AnteprimaGrafica a(s);
    EXPECT_EQ(a.windowTitle(), "Anteprima Proposta ");
    ASSERT_TRUE(a.grafica());
    a.grafica()->BV_CaricaProposta_SUR(PercorsoDati("grafica/PROPOSTA.SUR"));
    EXPECT_EQ(a.grafica()->Modello().List2[1].size(), 9);
    a.show();
    QApplication::processEvents();
    a.grab().save("/tmp/anteprima_proposta.png");
}

// The picture with culling and fonts made once is the plain painting of every record, pixel
// for pixel, on generated sheets at several zooms.
TEST(DisegnoRiferimento, IlRitaglioNonCambiaLImmagine) {
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
        CacheTesti testi; // kept across the steps, as the window keeps it
        for (int passo = 0; passo < 4; ++passo) {
            QImage a(640, 400, QImage::Format_RGB32), b(640, 400, QImage::Format_RGB32);
            {
                QPainter pa(&a);
                TelaQPainter ta(pa, 640, 400);
                ta.UsaCacheTesti(&testi);
                BV_RidisegnaGrafica(g, ta);
            }
            {
                QPainter pb(&b);
                TelaQPainter tb(pb, 640, 400);
                tb.UsaCacheCaratteri(false);
                BV_RidisegnaGrafica(g, tb, {.ritaglia = false});
            }
            ASSERT_EQ(a, b) << "seme " << seme << " passo " << passo;
            for (int k = 0; k < 6; ++k) BV_ZoomPiu(g);
            BV_ZoomRight(g);
            BV_ZoomUP(g);
        }
    }
}
