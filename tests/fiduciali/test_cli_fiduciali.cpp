// The taf and misurate commands of tavolet-cli, as a script would call them.
#include "supporto.h"

#include <QProcess>
#include <QProcessEnvironment>

#include <gtest/gtest.h>

using namespace tavolet::test;

namespace {} // namespace

TEST(CliFiduciali, ElencoRighe8Misurate) {
    RadiceProva r;
    r.PregeoMinimo();
    r.Scrivi("C:\\fiducial\\DATI\\A001.TAF", Dati("fiduciali/A001.TAF"));
    r.Scrivi("C:\\fiducial\\DATI\\PD2020.DDD", Dati("fiduciali/PD2020.DDD"));
    r.Scrivi("C:\\Libretti\\PF.DAT",
             Righe({"0|15012026|P|A001|0100|1|ROSSI MARIO|GEOMETRA|PD|", "9|20|10|20|15|X|18|Y|",
                    "1|100|1.500|Note: |", "2|PF01/0100/A001|0.0000|", "2|PF03/0100/A001|12.3|",
                    "8|PF01/0100/A001|-12345.670|23456.780|01|X|", "8|PF03/0100/A001|1|2|"}));

    const Esito elenco =
        Esegui(r.Percorso(), {"taf", "elenco", PercorsoDati("fiduciali/A001.TAF")});
    EXPECT_EQ(elenco.codice, 0) << elenco.err.toStdString();
    EXPECT_EQ(elenco.out, QString::fromUtf8(Dati("fiduciali/A001_elenco.txt")));

    const Esito righe8 = Esegui(r.Percorso(), {"taf", "righe8", "C:\\Libretti\\PF.DAT", "--quote"});
    EXPECT_EQ(righe8.codice, 0) << righe8.err.toStdString();
    EXPECT_EQ(righe8.out,
              "8|PF01/0100/A001|-12345.670|23456.780|01|SPIGOLO FABBRICATO LATO NORD-EST|\n"
              "8|PF01/0100/A001|12.450|02|BASE SPIGOLO|\n"
              "8|PF03/0100/A001|-12120.005|23102.300|01|CHIODO SU CORDOLO MARCIAPIEDE|\n"
              "8|PF03/0100/A001|11.980|04|Base Spigolo|\n");

    const Esito libretto = Esegui(r.Percorso(), {"misurate", "libretto", "C:\\Libretti\\PF.DAT"});
    EXPECT_EQ(libretto.codice, 0) << libretto.err.toStdString();
    EXPECT_TRUE(libretto.out.startsWith("Elenco Distanze Misurate Trovate\n \nPF1 "));
    EXPECT_TRUE(libretto.out.contains("PF01/0100/A001 - PF03/0100/A001       420.230   0.020"));

    const Esito pf = Esegui(r.Percorso(), {"misurate", "pf", "PF04/0100/A001"});
    EXPECT_EQ(pf.codice, 0);
    EXPECT_EQ(pf.out, "Provincia di : PD2020.DDD\n"
                      "PF02/0100/A001   PF04/0100/A001       497.551   0.040  2012  PD0056789\n");

    // A TAF that is not there: the error report, exit status 1.
    const Esito manca = Esegui(r.Percorso(), {"taf", "elenco", "/nessuno/X.TAF"});
    EXPECT_EQ(manca.codice, 1);
}
