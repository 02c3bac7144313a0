// The image preview: loading, the load-failure message, the commands and dragging.
#include "Anteprima.h"
#include "supporto.h"

#include <QApplication>
#include <QClipboard>
#include <QImageReader>
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

TEST_F(AnteprimaProva, UnPNGSiAdattaCentratoEIComandi) {
    ASSERT_TRUE(a.LoadImmagine(Immagine("A.PNG", "PNG")));
    // 200x100 into 400x300: twice, centred.
    EXPECT_EQ(a.ImmagineLarghezza, 400);
    EXPECT_EQ(a.ImmagineAltezza, 200);
    EXPECT_EQ(a.ImmagineLeft, 0);
    EXPECT_EQ(a.ImmagineTop, 50);
    a.Eseguicomando(5);
    EXPECT_EQ(a.ImmagineLarghezza, 200);
    a.Eseguicomando(2);
    EXPECT_EQ(a.ImmagineLeft, 200);
    a.Eseguicomando(3);
    EXPECT_EQ(a.ImmagineTop, 200);
    a.Eseguicomando(0);
    EXPECT_EQ(a.ImmagineTop, 0);
    a.Eseguicomando(1);
    EXPECT_EQ(a.ImmagineLeft, 0);
    a.Eseguicomando(6);
    EXPECT_EQ(a.ImmagineLarghezza, 210); // a twentieth
    a.Eseguicomando(7);
    EXPECT_EQ(a.ImmagineLarghezza, 200);
    a.Eseguicomando(9);
    EXPECT_EQ(a.ImmagineLeft, 10);
    a.Eseguicomando(8);
    EXPECT_EQ(a.ImmagineLeft, 0);
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
}

TEST_F(AnteprimaProva, JPGETIFEUnFileCheNonEImmagine) {
    EXPECT_TRUE(a.LoadImmagine(Immagine("B.JPG", "JPG")));
    if (QImageReader::supportedImageFormats().contains("tif")) {
        EXPECT_TRUE(a.LoadImmagine(Immagine("C.TIF", "TIF")));
    }
    // The placeholder that the CXF conversion writes.
    radice.Scrivi("C:\\x\\D.PNG", "filevuoto\r\n");
    EXPECT_FALSE(a.LoadImmagine("C:\\x\\D.PNG"));
    EXPECT_EQ(p.Messaggi(), QStringList({"GDI+ Module: Errore nel caricare l'immagine D.PNG"}));
    EXPECT_TRUE(a.Immagine().isNull());
    a.Eseguicomando(4); // nothing to fit, nothing breaks
    EXPECT_FALSE(a.LoadImmagine(QString()));
    EXPECT_EQ(p.Messaggi().size(), 1);
}
