// What leaves Tavolet, read by real programs: the HTML page in Chromium, and tavolet-cli's
// grafica commands with their switches.
#include "supporto.h"

#include "file_testo.h"

#include <QFileInfo>
#include <QImage>
#include <QTemporaryDir>

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

} // namespace

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

    // Bad use and missing files.
    EXPECT_EQ(Esegui({"grafica", "dxf", in}).codice, 2);
    EXPECT_EQ(Esegui({"grafica", "png", in, file("x.png"), "--larghezza", "0"}).codice, 2);
    const Esito manca = Esegui({"grafica", "dxf", file("manca.EMP"), file("x.dxf")});
    EXPECT_EQ(manca.codice, 1);
    EXPECT_TRUE((manca.out + manca.err).contains("manca.EMP")) << manca.out.toStdString();
}
