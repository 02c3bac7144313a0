// The environment: PREGEO.INI and its tables, the start.
#include "libretto.h"
#include "piattaforma_finta.h"
#include "supporto.h"

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

TEST_F(AmbienteProva, PregeoIniSenzaPregeoOSuUnAltraUnita) {
    radice.Scrivi("C:\\windows\\PREGEO.INI", "DskAPPLexe=D:\r\nDskAPPLada=e:\r\n");
    CaricaConfig(s);
    // The first line is never looked at, even when it holds a key.
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
    EXPECT_EQ(s.amb.PercorsoArch2, "D:\\pregeo\\arch\\arch2.db");
    EXPECT_EQ(s.testata.Tecnico, "ROSSI MARIO");
    EXPECT_EQ(CodiceQualita(s, "PRATO"), "004");
    EXPECT_EQ(CodiceQualita(s, "BOSCO"), "");
    EXPECT_TRUE(p.Messaggi().isEmpty());
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

TEST_F(AmbienteProva, AvvioSecondaIstanzaEPossessori) {
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
    // The owners' file is named after the archive name of the libretto.
    radice.Scrivi("C:\\FIDUCIAL\\VISURE\\" + s2.testata.NomeArchivio + ".VIS",
                  "\r\n  \r\nRossi Mario\r\n\r\nVerdi Anna\r\n\r\n");
    CaricaPossessori(s2);
    EXPECT_EQ(s2.doc.TestoPossessori, "ROSSI MARIO\r\n\r\nVERDI ANNA");
}
