// The environment: PREGEO.INI and its tables, the working folders, the start and the close.
#include "libretto.h"
#include "piattaforma_finta.h"
#include "supporto.h"

#include <QFileInfo>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct AmbienteProva : ::testing::Test {
    RadiceProva radice;
    PiattaformaFinta p;
    Stato s{p};
    void SetUp() override { Inizializza(s); }
};

} // namespace

TEST_F(AmbienteProva, PregeoIniMancanteDiUnaRigaOSuUnAltraUnita) {
    CaricaConfig(s);
    EXPECT_EQ(s.amb.UnitaPregeoExe, "C:");
    EXPECT_EQ(s.amb.VersionePregeo, "");
    EXPECT_EQ(p.Messaggi(), QStringList{"Pregeo Non Installato: PREGEO.INI NON trovato - "
                                        "Verificare installazione Pregeo!"});
    // The first line is never looked at, even when it holds a key.
    p.eventi.clear();
    radice.Scrivi("C:\\windows\\PREGEO.INI", "DskAPPLexe=D:");
    CaricaConfig(s);
    EXPECT_EQ(s.amb.UnitaPregeoExe, "C:");
    EXPECT_TRUE(p.Messaggi().isEmpty());
    radice.Scrivi("C:\\windows\\PREGEO.INI", "DskAPPLexe=D:\r\nDskAPPLada=e:\r\n");
    CaricaConfig(s);
    EXPECT_EQ(s.amb.UnitaPregeoExe, "C:");
    EXPECT_EQ(s.amb.UnitaPregeoDati, "E:");
    EXPECT_EQ(p.Messaggi(),
              QStringList{"Pregeo Assente: Informazione gratuita:\r\n\r\nPregeo non è "
                          "installato correttamente nel PC.\r\n    Trovato "
                          "PREGEO.INI\r\nNON trovato Pregeo.EXE"});

    p.eventi.clear();
    radice.Scrivi(
        "C:\\windows\\PREGEO.INI",
        Righe({"[x]", "DskAPPLexe=d:", "DskAPPLada=E:", "Cognome = Rossi", "Nome=Mario"}));
    radice.Scrivi("D:\\PREGEO\\EXE\\PREGEO.EXE", "MZ");
    radice.Scrivi("D:\\pregeo\\exe\\qualita.txt", Righe({"intestazione", "SEMINATIVO   001",
                                                         "PRATO IRRIG  004", "ENTE URBANO  282"}));
    CaricaConfig(s);
    EXPECT_EQ(s.amb.UnitaPregeoExe, "D:");
    EXPECT_EQ(s.amb.VersionePregeo, "PREGEO 10.00-G,APAG 2.12");
    EXPECT_EQ(s.amb.PercorsoArch2, "D:\\pregeo\\arch\\arch2.db");
    EXPECT_EQ(s.testata.Tecnico, "ROSSI MARIO");
    EXPECT_EQ(s.amb.TabellaQualita,
              (QStringList{"001   SEMINATIVO  ", "004   PRATO IRRIG ", "282   ENTE URBANO "}));
    EXPECT_EQ(CodiceQualita(s, "PRATO"), "004");
    EXPECT_EQ(CodiceQualita(s, "BOSCO"), "");
    EXPECT_TRUE(p.Messaggi().isEmpty());

    // More than 501 qualities: the error report of the routine.
    QStringList righe{"intestazione"};
    for (int i = 0; i < 600; ++i)
        righe << QString("QUALITA %1   %2").arg(i, 4).arg(i, 3, 10, QChar('0'));
    radice.Scrivi("D:\\pregeo\\exe\\qualita.txt", Righe(righe));
    CaricaConfig(s);
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_TRUE(
        p.Messaggi()[0].startsWith("Rilevato errore: Si è verificato questo errore : 9\r\n"));
    EXPECT_TRUE(p.Messaggi()[0].endsWith("Nella Routine CaricaConfig_qualita"));
}

TEST_F(AmbienteProva, ComuniDelFileVeroDiPregeo) {
    // Missing: one message, once only.
    CaricaComuni(s);
    CaricaProvince(s);
    CaricaComuni(s);
    EXPECT_TRUE(s.amb.TabellaComuni.isEmpty());
    EXPECT_TRUE(s.amb.TabellaProvince.isEmpty());
    EXPECT_EQ(p.Messaggi(), QStringList{"Tavolet: C:\\pregeo\\arch\\comunt.dat\r\nNon Trovato!"});

    Stato s2(p);
    radice.PregeoMinimo();
    Inizializza(s2);
    radice.Scrivi("C:\\pregeo\\arch\\comunt.dat", Dati("pregeo/comunt.dat"));
    CaricaComuni(s2);
    const QList<Comune>& t = s2.amb.TabellaComuni;
    ASSERT_EQ(t.size(), 8741); // with the ten records marked as dropped
    EXPECT_EQ(t[0].CodiceComune, "A001");
    EXPECT_EQ(t[0].SiglaProvincia, "PD");
    EXPECT_EQ(t[0].NomeComune, "ABANOBAGNI"); // the name this copy of the table carries
    EXPECT_EQ(t[0].CodiceAggiuntivo, "D3AB");
    QStringList trovati;
    for (const Comune& c : t) {
        EXPECT_GE(c.CodiceComune.size(), 4) << c.NomeComune.toStdString();
        EXPECT_EQ(c.SiglaProvincia.size(), 2) << c.NomeComune.toStdString();
        // Sezioni: the letter of the first character goes behind the code.
        if (c.CodiceComune == "G693" || c.CodiceComune == "H501D")
            trovati << c.CodiceComune + " " + c.NomeComune + " " + c.SiglaProvincia;
    }
    EXPECT_EQ(trovati, (QStringList{"G693 PIOVE DI SACCO PD", "H501D ROMA SEZIONE D RM"}));
    // Loaded once: a changed file is not read again.
    radice.Scrivi("C:\\pregeo\\arch\\comunt.dat", QByteArray(128, '\0'));
    CaricaComuni(s2);
    EXPECT_EQ(s2.amb.TabellaComuni.size(), 8741);
    EXPECT_EQ(s2.TagRoutine, "CaricaComuni");
}

TEST_F(AmbienteProva, AlberoDelleCartelleEVersione) {
    // The working folder is written down for the other programs.
    EXPECT_TRUE(s.amb.CartellaLavoro.endsWith("\\Documents\\Tavolet"));
    EXPECT_EQ(s.amb.CartellaLavoroBarra, s.amb.CartellaLavoro + "\\");
    EXPECT_EQ(radice.Leggi(s.amb.CartellaTemp + "\\CARTELLADOCUMENTI.TXT"),
              AWindows1252(s.amb.CartellaLavoro) + "\r\n");
    radice.PregeoMinimo();
    radice.Scrivi("C:\\fiducial\\ditta", "un file dove andrebbe una cartella");
    CaricaConfig(s);
    CreaAlberoCartelle(s);
    for (const char* c : {"C:\\FIDUCIAL\\VISURE", "C:\\fiducial\\Unarvo", "C:\\PREGEO\\ESTRATTI",
                          "C:\\pregeo\\arch\\BackupDB", "C:\\fiducial\\MODULISTICA"})
        EXPECT_TRUE(EsisteCartella(c)) << c;
    for (const char* c : {"\\Tavolet\\TEMP", "\\Tavolet\\Storico_Libretti", "\\Bravanta\\TEMP"})
        EXPECT_TRUE(EsisteCartella(s.amb.CartellaDocumenti + c)) << c;
    // The existing "fiducial" folder is reused whatever its case; the file in the way of
    // DITTA is reported and the rest goes on.
    EXPECT_TRUE(QFileInfo(radice.Percorso() + "/drive_c/fiducial").isDir());
    EXPECT_FALSE(QFileInfo(radice.Percorso() + "/drive_c/FIDUCIAL").exists());
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_TRUE(p.Messaggi()[0].contains(": 75\r\n"));
    EXPECT_TRUE(p.Messaggi()[0].contains(
        "\r\no il file potrebbe essere di sola lettura!\r\nNella Routine NuovaCartella"));

    ScriviVersioneTavolino(s);
    EXPECT_EQ(radice.Leggi(s.amb.CartellaLavoro + "\\VersioneTavolino.TXT"), "Ver 6.00 0.1\r\n");
}

TEST_F(AmbienteProva, MostraErroreTestiEsatti) {
    s.TagRoutine = "X";
    MostraErrore(s, 32755, "annullato", "Apri");
    EXPECT_TRUE(p.Messaggi().isEmpty());
    EXPECT_EQ(s.TagRoutine, "");
    MostraErrore(s, 53, "Impossibile trovare il file", "Decozero_136");
    EXPECT_EQ(p.Messaggi().last(),
              "Rilevato errore: Si è verificato questo errore : 53\r\nImpossibile "
              "trovare il file\r\nNella Routine Decozero_136");
    EXPECT_EQ(p.eventi.last().icona, Icona::Critico);
    // The trap reports the tag that stands when the failure comes, and the program goes on.
    EXPECT_FALSE(ConTrappola(s, "Lunga", [&] {
        s.TagRoutine = "Lunga_02";
        throw Errore(13);
    }));
    EXPECT_EQ(p.Messaggi().last(),
              "Rilevato errore: Si è verificato questo errore : 13\r\nTipo non "
              "corrispondente\r\nNella Routine Lunga_02");
    EXPECT_EQ(s.ErroriMostrati, 2);
}

TEST_F(AmbienteProva, CarattereDellaListaScrittoAllAnticaONonValido) {
    // The round trip is in the command that chooses the font.
    EXPECT_FALSE(LeggiConfiguraCarattere(s).has_value());
    const QString ini = s.amb.CartellaLavoro + "\\CONFIGURACARATTERE.INI";
    radice.Scrivi(ini, "12,\"Arial\",#FALSE#,#TRUE#\r\n");
    EXPECT_EQ(LeggiConfiguraCarattere(s), (Carattere{"Arial", 12, false, true}));
    radice.Scrivi(ini, "garbage");
    EXPECT_FALSE(LeggiConfiguraCarattere(s).has_value());
}

TEST_F(AmbienteProva, AvvioSecondaIstanzaTerminazioneDiPregeoEChiusura) {
    p.altraIstanza = true;
    p.processiAttivi = {"tavolet.exe", "tavolet.exe"};
    EXPECT_FALSE(AvvioProgramma(s, ""));
    EXPECT_EQ(p.Messaggi(), QStringList{"Tavolet: Modulo già attivo!"});
    EXPECT_TRUE(p.processiAttivi.isEmpty());

    PiattaformaFinta p2;
    Stato s2(p2);
    radice.PregeoMinimo();
    Inizializza(s2);
    EXPECT_TRUE(AvvioProgramma(s2, ""));
    EXPECT_EQ(s2.doc.PercorsoLibretto, "");
    EXPECT_EQ(s2.doc.RigheLibretto.Conta(), 2);
    // The owners' file is named after the archive name of the libretto.
    radice.Scrivi("C:\\FIDUCIAL\\VISURE\\" + s2.testata.NomeArchivio + ".VIS",
                  "\r\n  \r\nRossi Mario\r\n\r\nVerdi Anna\r\n\r\n");
    CaricaPossessori(s2);
    EXPECT_EQ(s2.doc.TestoPossessori, "ROSSI MARIO\r\n\r\nVERDI ANNA");

    p2.processiAttivi = {"PREGEO.EXE", "elab.exe", "notepad.exe"};
    radice.Scrivi("C:\\Libretti\\L.DAT",
                  "0|01012024|77|G224|0001|1|A B|G|PADOVA|\r\n9|1|\r\n8|1|||\r\n");
    EXPECT_TRUE(AvvioProgramma(s2, "\"C:\\Libretti\\l.dat\""));
    EXPECT_EQ(p2.Messaggi(),
              (QStringList{"Kill Pregeo: Il programma pregeo.exe è stato terminato!",
                           "Kill Pregeo: Il programma elab.exe è stato terminato!"}));
    EXPECT_EQ(p2.processiAttivi, QStringList{"notepad.exe"});
    EXPECT_EQ(s2.doc.PercorsoLibretto, "C:\\LIBRETTI\\L.DAT");
    EXPECT_EQ(s2.testata.Protocollo, "77");
    // The close saves the document, with its tag rows.
    s2.doc.TestoPossessori = "rossi";
    ChiusuraProgramma(s2);
    EXPECT_EQ(radice.Leggi("C:\\Libretti\\L.DAT"),
              "0|01012024|77|G224|0001|1|A B|G|PADOVA|\r\n9|1|\r\n8|1|NOTE:||\r\n6|<EST>|\r\n"
              "6|<COD>|\r\n6|<ISC>|\r\n6|<DIT>ROSSI|\r\n\r\n");
}
