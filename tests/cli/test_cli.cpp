// tavolet-cli as a script would use it: output on stdout, messages on stderr, exit status.
#include "sul_demo.h"

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

using Cli = SulDemo;

TEST_F(Cli, Ambiente) {
    const Esito e = Esegui({"ambiente"});
    EXPECT_EQ(e.codice, 0) << e.err.toStdString();
    const QStringList righe = e.out.split('\n', Qt::SkipEmptyParts);
    ASSERT_EQ(righe.size(), 8);
    EXPECT_TRUE(righe[0].startsWith("CartellaLavoro=C:\\users\\"));
    EXPECT_TRUE(righe[0].endsWith("\\Documents\\Tavolet"));
    EXPECT_EQ(righe.mid(1),
              (QStringList{"UnitaPregeoExe=C:", "UnitaPregeoDati=C:",
                           "PercorsoArch2=C:\\pregeo\\arch\\arch2.db",
                           "VersionePregeo=PREGEO 10.00-G,APAG 2.12", "TabellaComuni=160",
                           "TabellaProvince=103", "TabellaQualita=16"}));
}

TEST_F(Cli, TestataERigheDelLibrettoDemo) {
    Esito e = Esegui({"libretto", "testata", "C:\\LIBRETTI\\esempio.dat"});
    EXPECT_EQ(e.codice, 0) << e.err.toStdString();
    EXPECT_EQ(e.out.toUtf8(), Dati("cli/testata_esempio.txt"));
    e = Esegui({"libretto", "righe", Esempio()});
    EXPECT_EQ(e.codice, 0);
    EXPECT_EQ(e.out.toUtf8(), Dati("cli/righe_esempio.txt"));
    // The question of the drop is answered with its default, shown only with --verbose.
    EXPECT_EQ(e.err, "");
    e = Esegui({"--verbose", "libretto", "righe", Esempio()});
    EXPECT_EQ(e.out.toUtf8(), Dati("cli/righe_esempio.txt"));
    EXPECT_EQ(e.err, "Trascina Libretto: Sostituire il Libretto Esistente?\n");
    e = Esegui({"--no", "libretto", "righe", Esempio()});
    EXPECT_EQ(e.codice, 1);
    EXPECT_EQ(e.out, "");
}

TEST_F(Cli, UsoSbagliato) {
    Esito e = Esegui({"libretto", "salva", "solo-uno"});
    EXPECT_EQ(e.codice, 2);
    EXPECT_TRUE(e.err.startsWith("Uso: tavolet-cli libretto salva IN OUT"));
    EXPECT_EQ(Esegui({"nessuno"}).codice, 2);
    EXPECT_EQ(Esegui({"--oggi", "31022026", "ambiente"}).codice, 2);
    e = Esegui({"--help"});
    EXPECT_EQ(e.codice, 0);
    for (const char* c : {"libretto salva", "libretto righe", "libretto testata", "ambiente"})
        EXPECT_TRUE(e.out.contains(c)) << c;
}
