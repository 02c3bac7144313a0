// tavolet-cli disegno libretto and misurate disegno, as a script would call them.
#include "supporto.h"

#include <QFile>
#include <QProcess>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

TEST(CliDisegno, LibrettoDalDisegno) {
    RadiceProva r;
    r.PregeoMinimo();
    r.Scrivi("C:\\fiducial\\DATI\\A001.TAF", Dati("fiduciali/A001.TAF"));
    r.Scrivi("C:\\Rilievi\\RILIEVO.LXC", Dati("disegno/RILIEVO.LXC"));
    r.Scrivi("C:\\Rilievi\\RILIEVO.TXT",
             Righe({"0|15012026|1|A001|0100|125|ROSSI MARIO|GEOMETRA|PD|",
                    "9|20|10|20|15||18|TIPO MAPPALE|", "6|CONFERMA|", "8|PF09/0100/A001|1|2|"}));
    const QString uscita = r.Percorso() + "/uscita.txt";
    QProcess p;
    p.start(TAVOLET_CLI, {"--radice", r.Percorso(), "--oggi", "15012026", "disegno", "libretto",
                          r.Percorso() + "/drive_c/Rilievi/RILIEVO.LXC", uscita, "--opzioni",
                          PercorsoDati("disegno/opzioni.txt")});
    ASSERT_TRUE(p.waitForFinished(60000));
    const QString err = QString::fromUtf8(p.readAllStandardError());
    EXPECT_EQ(p.exitCode(), 0) << err.toStdString();
    // The report goes to stderr.
    EXPECT_TRUE(err.contains("Azzera su Stazione Precedente\nCarica Poligonali da Contorni 3\n"));
    EXPECT_TRUE(err.contains("Stazione : 300\n"));
    QFile f(uscita);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), Dati("disegno/RILIEVO.TXT"));

    QProcess m;
    m.start(TAVOLET_CLI, {"--radice", r.Percorso(), "misurate", "disegno",
                          r.Percorso() + "/drive_c/Rilievi/RILIEVO.LXC"});
    ASSERT_TRUE(m.waitForFinished(60000));
    // No archive for the province: the message, and no report.
    EXPECT_TRUE(
        QString::fromUtf8(m.readAllStandardError()).contains("Archivio Misurate: Archivio "));
    EXPECT_TRUE(m.readAllStandardOutput().isEmpty());
}
