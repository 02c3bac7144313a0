// The stampa commands of tavolet-cli.
#include "supporto.h"

#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tavolet::test;

namespace {

int Lancia(const QString& radice, const QStringList& argomenti, QString* err = nullptr) {
    QProcess p;
    p.start(TAVOLET_CLI, QStringList{"--radice", radice, "--oggi", "15012026"} + argomenti);
    p.waitForFinished(120000);
    if (err) *err = QString::fromUtf8(p.readAllStandardError());
    return p.exitCode();
}

void Scrivi(const QString& p, const QByteArray& b) {
    QFile f(p);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(b);
}

} // namespace

TEST(CliStampa, ModelloEPdf) {
    QTemporaryDir dir;
    RadiceProva radice;
    radice.PregeoMinimo();
    Scrivi(dir.filePath("ROSSI.DAT"),
           "0|15032024|1234|A001|0120|257,258|ROSSI MARIO|GEOMETRA|PADOVA|\r\n"
           "9|20|10|20|1070|10.00-G,STDA 2.08|18|TIPO SENZA GEOMETRIA|\r\n"
           "6|<DIT>ROSSI MARIO|\r\n6|<DIT>BIANCHI ANNA|\r\n");
    Scrivi(dir.filePath("righe.txt"), "8|1|100.000|200.000|   \r\n7|3|1|2|1|RC|\r\n");
    QString err;
    EXPECT_EQ(
        Lancia(radice.Percorso(),
               {"--si", "stampa", "modello", PercorsoDati("stampa/Relazione.rtf"),
                dir.filePath("ROSSI.DAT"), dir.filePath("righe.txt"), dir.filePath("out.rtf")},
               &err),
        0)
        << err.toStdString();
    if (qEnvironmentVariableIsSet("TAVOLET_RIGENERA")) {
        QFile g(PercorsoDati("stampa/Relazione_compilata_cli.rtf"));
        if (g.open(QIODevice::WriteOnly)) g.write(LeggiFile(dir.filePath("out.rtf")));
    }
    EXPECT_EQ(LeggiFile(dir.filePath("out.rtf")), Dati("stampa/Relazione_compilata_cli.rtf"));

    EXPECT_EQ(Lancia(radice.Percorso(), {"stampa", "pdf", dir.filePath("righe.txt"),
                                         dir.filePath("out.pdf"), "--orizzontale"}),
              0);
    const QByteArray pdf = LeggiFile(dir.filePath("out.pdf"));
    EXPECT_TRUE(pdf.contains("/MediaBox [0 0 841.89 595.28]"));
    QProcess q;
    q.start("pdftotext", {dir.filePath("out.pdf"), "-"});
    if (!q.waitForFinished(20000) || q.exitStatus() != QProcess::NormalExit || q.exitCode() != 0)
        GTEST_SKIP() << "pdftotext (poppler-utils) non installato";
    const QString testo = QString::fromUtf8(q.readAllStandardOutput());
    EXPECT_TRUE(testo.contains("8|1|100.000|200.000|")) << testo.toStdString();
    EXPECT_TRUE(testo.contains("7|3|1|2|1|RC|"));

    EXPECT_EQ(Lancia(radice.Percorso(),
                     {"stampa", "pdf", dir.filePath("manca.txt"), dir.filePath("x.pdf")}),
              1);
}
