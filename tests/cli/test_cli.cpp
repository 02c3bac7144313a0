// tavolet-cli as a script would use it: output on stdout, messages on stderr, exit status.
#include "sul_demo.h"

#include <QDir>
#include <QProcess>

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
    // --oggi fixes the date of the default rows a document without its head takes.
    e = Esegui({"libretto", "testata", Scrivi("corto.dat", "1|1|\r\n")});
    EXPECT_EQ(e.codice, 0);
    EXPECT_TRUE(e.out.startsWith("DataLibretto=21112026\nAnnoLibretto=2026\nProtocollo=1\n"))
        << e.out.toStdString();
    EXPECT_TRUE(e.out.contains("NomeComuneLibretto=PIOVE DI SACCO\n"));
}

TEST_F(Cli, SalvaScriveComeIlProgramma) {
    const QString uscita = radice.filePath("uscita.dat");
    Esito e = Esegui({"libretto", "salva", Esempio(), uscita});
    EXPECT_EQ(e.codice, 0) << e.err.toStdString();
    EXPECT_EQ(LeggiFile(uscita), Dati("cli/salva_esempio.dat"));

    // A write that fails is an error report and exit status 1.
    e = Esegui({"libretto", "salva", Esempio(), radice.path() + "/manca/uscita.dat"});
    EXPECT_EQ(e.codice, 1);
    EXPECT_TRUE(e.err.contains("Rilevato errore: Si è verificato questo errore : 76\n"))
        << e.err.toStdString();
    EXPECT_TRUE(e.err.contains("Nella Routine SalvaLibrettoMisure"));
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

TEST_F(Cli, SenzaRadiceNienteNellaCartellaHome) {
    // No --radice, no Wine prefix: the run says where it looked and works without making
    // anything in the home folder.
    QTemporaryDir casa;
    QProcessEnvironment ambiente = QProcessEnvironment::systemEnvironment();
    ambiente.remove("TAVOLET_RADICE");
    ambiente.remove("WINEPREFIX");
    ambiente.insert("HOME", casa.path());
    ambiente.insert("XDG_CONFIG_HOME", casa.path() + "/.config");
    QProcess p;
    p.setProcessEnvironment(ambiente);
    p.start(TAVOLET_CLI, {"libretto", "righe", Esempio()});
    ASSERT_TRUE(p.waitForFinished(60000));
    const QString err = QString::fromUtf8(p.readAllStandardError());
    EXPECT_EQ(p.readAllStandardOutput(), Dati("cli/righe_esempio.txt"));
    EXPECT_TRUE(err.startsWith("Pregeo non trovato: nessuna --radice, nessun WINEPREFIX e "
                               "nessuna cartella " +
                               casa.path() + "/.wine; si prosegue in una cartella temporanea.\n"))
        << err.toStdString();
    EXPECT_FALSE(err.contains("Sostituire il Libretto")) << err.toStdString();
    EXPECT_TRUE(QDir(casa.path()).isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden))
        << QDir(casa.path())
               .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden)
               .join(' ')
               .toStdString();
}
