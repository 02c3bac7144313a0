// tavolet-cli disegno libretto and misurate disegno, as a script would call them.
#include "supporto.h"

#include <gtest/gtest.h>

using namespace tavolet::test;

TEST(CliDisegno, LibrettoDalDisegno) {
    RadiceProva r;
    r.PregeoMinimo();
    r.Scrivi("C:\\fiducial\\DATI\\A001.TAF", Dati("fiduciali/A001.TAF"));
    r.Scrivi("C:\\Rilievi\\RILIEVO.LXC", Dati("disegno/RILIEVO.LXC"));
    r.Scrivi("C:\\Rilievi\\RILIEVO.TXT",
             Righe({"0|15012026|1|A001|0100|125|ROSSI MARIO|GEOMETRA|PD|",
                    "9|20|10|20|15||18|TIPO MAPPALE|", "6|CONFERMA|", "8|PF09/0100/A001|1|2|"}));
    const QString lxc = r.Percorso() + "/drive_c/Rilievi/RILIEVO.LXC";
    const QString uscita = r.Percorso() + "/uscita.txt";
    const Esito libretto = Esegui(r.Percorso(), {"disegno", "libretto", lxc, uscita, "--opzioni",
                                                 PercorsoDati("disegno/opzioni.txt")});
    EXPECT_EQ(libretto.codice, 0) << libretto.err.toStdString();
    // The report goes to stderr.
    EXPECT_TRUE(libretto.err.contains("Azzera su Stazione Precedente\nCarica Poligonali da "
                                      "Contorni 3\n"));
    EXPECT_TRUE(libretto.err.contains("Stazione : 300\n"));
    EXPECT_EQ(LeggiFile(uscita), Dati("disegno/RILIEVO.TXT"));

    // No archive for the province: the message, and no report.
    const Esito misurate =
        Esegui(QStringList{"--radice", r.Percorso(), "misurate", "disegno", lxc});
    EXPECT_TRUE(misurate.err.contains("Archivio Misurate: Archivio "));
    EXPECT_TRUE(misurate.out.isEmpty());
}
