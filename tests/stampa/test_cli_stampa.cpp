// The stampa commands of tavolet-cli.
#include "supporto.h"

#include <QStandardPaths>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tavolet::test;

TEST(CliStampa, ModelloEPdf) {
    QTemporaryDir dir;
    RadiceProva radice;
    radice.PregeoMinimo();
    radice.Scrivi(dir.filePath("ROSSI.DAT"),
                  "0|15032024|1234|A001|0120|257,258|ROSSI MARIO|GEOMETRA|PADOVA|\r\n"
                  "9|20|10|20|1070|10.00-G,STDA 2.08|18|TIPO SENZA GEOMETRIA|\r\n"
                  "6|<DIT>ROSSI MARIO|\r\n6|<DIT>BIANCHI ANNA|\r\n");
    radice.Scrivi(dir.filePath("righe.txt"), "8|1|100.000|200.000|   \r\n7|3|1|2|1|RC|\r\n");
    Esito e =
        Esegui(radice.Percorso(),
               {"--si", "stampa", "modello", PercorsoDati("stampa/Relazione.rtf"),
                dir.filePath("ROSSI.DAT"), dir.filePath("righe.txt"), dir.filePath("out.rtf")});
    EXPECT_EQ(e.codice, 0) << e.err.toStdString();
    EXPECT_EQ(LeggiFile(dir.filePath("out.rtf")), Dati("stampa/Relazione_compilata_cli.rtf"));

    e = Esegui(radice.Percorso(),
               {"stampa", "pdf", dir.filePath("manca.txt"), dir.filePath("x.pdf")});
    EXPECT_EQ(e.codice, 1);
    e = Esegui(radice.Percorso(), {"stampa", "pdf", dir.filePath("righe.txt"),
                                   dir.filePath("out.pdf"), "--orizzontale"});
    EXPECT_EQ(e.codice, 0) << e.err.toStdString();
    EXPECT_TRUE(LeggiFile(dir.filePath("out.pdf")).contains("/MediaBox [0 0 841.89 595.28]"));
    if (QStandardPaths::findExecutable("pdftotext").isEmpty())
        GTEST_SKIP() << "pdftotext (poppler-utils) non installato";
    const Esito testo = EseguiProgramma("pdftotext", {dir.filePath("out.pdf"), "-"}, 20000);
    ASSERT_EQ(testo.codice, 0) << testo.err.toStdString();
    EXPECT_TRUE(testo.out.contains("8|1|100.000|200.000|")) << testo.out.toStdString();
    EXPECT_TRUE(testo.out.contains("7|3|1|2|1|RC|"));
}
