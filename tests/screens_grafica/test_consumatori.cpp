// What leaves Tavolet, read by real programs: the HTML page in Chromium, and tavolet-cli's
// grafica commands with their switches.
#include "supporto.h"

#include "file_testo.h"

#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

using namespace tavolet;
using namespace tavolet::test;

namespace {

int Lancia(const QString& programma, const QStringList& argomenti, QString* uscita = nullptr) {
    QProcess pr;
    pr.start(programma, argomenti);
    if (!pr.waitForFinished(120000)) {
        pr.kill();
        return -1;
    }
    if (uscita) *uscita = QString::fromUtf8(pr.readAllStandardOutput() + pr.readAllStandardError());
    return pr.exitStatus() == QProcess::NormalExit ? pr.exitCode() : -2;
}

} // namespace

TEST(Consumatori, LaPaginaHTMLSiVedeInChromium) {
    if (!QFileInfo::exists("/usr/bin/chromium")) GTEST_SKIP() << "chromium non installato";
    QTemporaryDir dir;
    const QString html = dir.filePath("g.html");
    QString uscita;
    ASSERT_EQ(Lancia(TAVOLET_CLI, {"grafica", "html", PercorsoDati("grafica/ESTRATTO.EMP"), html},
                     &uscita),
              0)
        << uscita.toStdString();
    const QString png = dir.filePath("g.png");
    Lancia("/usr/bin/chromium",
           {"--headless", "--no-sandbox", "--disable-gpu", "--hide-scrollbars",
            "--user-data-dir=" + dir.filePath("profilo"), "--window-size=1100,1100",
            "--screenshot=" + png, "file://" + html},
           &uscita);
    QImage img(png);
    ASSERT_FALSE(img.isNull()) << uscita.toStdString();
    // The canvas starts at the page's margin (8 px) and its border (2 px); the drawing stands
    // around its centre (500, 500).
    int scuri = 0;
    for (int y = 10 + 300; y < 10 + 700; ++y)
        for (int x = 10 + 300; x < 10 + 700; ++x) scuri += qGray(img.pixel(x, y)) < 200;
    EXPECT_GT(scuri, 500);
    int bordo = 0; // outside the drawing the canvas is blank
    for (int y = 20; y < 120; ++y)
        for (int x = 20; x < 120; ++x) bordo += qGray(img.pixel(x, y)) < 200;
    EXPECT_EQ(bordo, 0);
}

TEST(Consumatori, GraficaDaRigaDiComando) {
    QTemporaryDir dir;
    const QString in = PercorsoDati("grafica/ESTRATTO.EMP");
    auto file = [&](const QString& n) { return dir.filePath(n); };
    QString uscita;
    for (const auto& [comando, golden] : {std::pair{"dxf", "ESTRATTO.DXF"},
                                          {"stampa", "ESTRATTO_STAMPE.TXT"},
                                          {"copiainfile", "ESTRATTO_COPIAINFILE.TXT"},
                                          {"html", "ESTRATTO.HTML"}}) {
        ASSERT_EQ(Lancia(TAVOLET_CLI, {"grafica", comando, in, file(golden)}, &uscita), 0)
            << uscita.toStdString();
        EXPECT_EQ(LeggiByte(file(golden)), Dati(QString("grafica/") + golden)) << comando;
    }

    // The switches: no names, no toponyms, no fiducial points.
    ASSERT_EQ(Lancia(TAVOLET_CLI, {"grafica", "dxf", in, file("b.dxf"), "--nomi-no",
                                   "--toponimi-no", "--pf-no"}),
              0);
    const QString b = LeggiTesto(file("b.dxf"));
    EXPECT_FALSE(b.contains("PF01/0120/A001"));
    EXPECT_FALSE(b.contains("\r\n1T\r\n"));
    EXPECT_FALSE(b.contains("\r\n 257\r\n"));
    // The Proposta of a .sur.
    ASSERT_EQ(Lancia(TAVOLET_CLI, {"grafica", "copiainfile", PercorsoDati("grafica/PROPOSTA.SUR"),
                                   file("p.txt"), "--proposta"}),
              0);
    EXPECT_EQ(LeggiByte(file("p.txt")), Dati("grafica/PROPOSTA_COPIAINFILE.TXT"));

    ASSERT_EQ(
        Lancia(TAVOLET_CLI,
               {"grafica", "png", in, file("g.png"), "--larghezza", "640", "--altezza", "400"},
               &uscita),
        0)
        << uscita.toStdString();
    QImage img(file("g.png"));
    ASSERT_EQ(img.size(), QSize(640, 400));
    int scuri = 0;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x) scuri += qGray(img.pixel(x, y)) < 128;
    EXPECT_GT(scuri, 300);

    // Bad use and missing files.
    EXPECT_EQ(Lancia(TAVOLET_CLI, {"grafica", "dxf", in}), 2);
    EXPECT_EQ(Lancia(TAVOLET_CLI, {"grafica", "png", in, file("x.png"), "--larghezza", "0"}), 2);
    EXPECT_EQ(Lancia(TAVOLET_CLI, {"grafica", "dxf", file("manca.EMP"), file("x.dxf")}, &uscita),
              1);
    EXPECT_TRUE(uscita.contains("manca.EMP")) << uscita.toStdString();
}
