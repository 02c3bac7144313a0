// The image preview: loading, the load-failure message, the commands and dragging.
#include "Anteprima.h"
#include "supporto.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct AnteprimaProva : ::testing::Test {
    RadiceProva radice;
    PiattaformaFinta p;
    Stato s{p};
    Anteprima a{s};
    void SetUp() override {
        a.resize(400, 300);
        a.show();
        QApplication::processEvents();
    }
    QString Immagine(const QString& nome, const char* formato, QSize misura = {200, 100}) {
        QImage img(misura, QImage::Format_RGB32);
        img.fill(Qt::darkGreen);
        const QString percorso = radice.Percorso() + "/" + nome;
        EXPECT_TRUE(img.save(percorso, formato));
        return percorso;
    }
};

} // namespace

TEST_F(AnteprimaProva, UnPNGSiAdattaCentratoEIComandiUnFileCheNonEImmagine) {
    ASSERT_TRUE(a.LoadImmagine(Immagine("A.PNG", "PNG")));
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
