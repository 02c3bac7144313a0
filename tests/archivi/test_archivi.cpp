#include "codice_fiscale.h"
#include "comuni.h"
#include "libretto.h"
#include "possessori.h"
#include "supporto.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct ArchiviProva : ConPregeo {
    void SetUp() override {
        ConPregeo::SetUp();
        CaricaProvince(s);
        CreaAlberoCartelle(s);
    }
};

} // namespace

TEST(CodiceFiscale, RegolaDelCarattereDiControllo) {
    // Tested in upper case. Lengths other than 16 are wrong without computation, whatever the
    // characters; the 16th is only compared.
    for (const char* c : {"RSSMRA80A01G224W", "rssmra80a01g224w", "VRDNNA80A41H620M"})
        EXPECT_EQ(VerificaCodiceFiscale(c), "CORRETTO") << c;
    for (const char* c : {"RSSMRA80A01G224X", "", "RSSMRA80A01G224", "RSSMRA80A01G224WW", "***",
                          "RSSMRA80A01G224-"})
        EXPECT_EQ(VerificaCodiceFiscale(c), "ERRATO") << c;
    // A character outside letters and digits has no value: the table access fails.
    EXPECT_THROW(VerificaCodiceFiscale("RSSMRA80A01G22-W"), Errore);

    PiattaformaFinta p;
    Stato s(p);
    s.TagRoutine = "Chiamante";
    EXPECT_EQ(ControllaCodiceFiscale(s, "RSSMRA80A01G224W"), "CORRETTO");
    EXPECT_EQ(s.TagRoutine, "Chiamante");
    EXPECT_EQ(ControllaCodiceFiscale(s, "RSSMRA80A01G2è4W"), "ERRATO");
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_TRUE(p.Messaggi()[0].contains("Nella Routine VerificaCodiceFiscale"));

    // Random codes of any characters: an answer or the error, nothing else.
    QRandomGenerator caso(9);
    for (int i = 0; i < 3000; ++i) {
        QString c;
        const int n = 14 + int(caso.bounded(4));
        for (int k = 0; k < n; ++k) c += QChar(char16_t(32 + caso.bounded(224)));
        try {
            const QString r = VerificaCodiceFiscale(c);
            EXPECT_TRUE(r == "CORRETTO" || r == "ERRATO");
        } catch (const Errore& e) {
            EXPECT_EQ(e.numero, 9);
        }
    }
}

TEST_F(ArchiviProva, ComuniDiPregeoPerProvincia) {
    radice.Scrivi("C:\\pregeo\\arch\\PDcomuni.dat",
                  Righe({"PD|G224|x|y|PADOVA   |", "PD |A001|x|y| ABANO TERME|"}));
    radice.Scrivi("C:\\pregeo\\arch\\ZZcomuni.dat", Righe({"ZZ|Z999|x|y|NESSUNO|"}));
    radice.Scrivi("C:\\pregeo\\arch\\Comunt.dat", "x");
    radice.Scrivi("C:\\pregeo\\arch\\comun.dat", "x");
    ElencoComuni8 e;
    RicaricaProvince(s, e);
    // comunt.dat of the small tree is lower case: only the exact "Comunt.dat" is left out.
    EXPECT_FALSE(e.Province.contains("Comunt.dat"));
    EXPECT_TRUE(e.Province.contains("comunt.dat"));
    EXPECT_TRUE(e.Province.contains("comun.dat"));
    EXPECT_EQ(TitoloComuni8(s), "Comuni C:\\pregeo\\arch");

    ScegliProvincia8(s, e, "comun.dat"); // listed, but a click does nothing
    EXPECT_TRUE(e.Comuni.isEmpty());
    EXPECT_EQ(e.EtichettaFile, "");
    EXPECT_FALSE(CopiaCodiceFiscale8(s, e));
    EXPECT_EQ(p.Messaggi(), QStringList{"Impossibile continuare: Selezionare un Comune!"});

    ScegliProvincia8(s, e, "PDcomuni.dat");
    EXPECT_EQ(e.Comuni.size(), 2);
    EXPECT_EQ(e.EtichettaProvincia, "PD");
    EXPECT_EQ(e.EtichettaComune, "?");
    ScegliComune8(e, 1);
    EXPECT_EQ(e.EtichettaComune, " ABANO TERME");
    EXPECT_TRUE(CopiaCodiceFiscale8(s, e));
    EXPECT_EQ(s.testata.CodiceComuneLibretto, "A001");
    EXPECT_EQ(s.testata.NomeComuneLibretto, "ABANO TERME");
    EXPECT_EQ(s.testata.SiglaProvinciaLibretto, "PD "); // untrimmed
    EXPECT_EQ(s.testata.NomeProvinciaLibretto, "");     // "PD " is no sigla of the table
    EXPECT_EQ(p.appunti, "A001");
    EXPECT_EQ(radice.Leggi(PercorsoTagUno(s)), "A001\r\n");
    EXPECT_EQ(s.EsitoDialogo, 1);

    ScegliComune8(e, 0);
    CopiaCodiceFiscale8(s, e);
    EXPECT_EQ(s.testata.NomeProvinciaLibretto, "PADOVA");
    // A sigla that is not in the table leaves the province's name as it was.
    ScegliProvincia8(s, e, "ZZcomuni.dat");
    ScegliComune8(e, 0);
    CopiaCodiceFiscale8(s, e);
    EXPECT_EQ(s.testata.CodiceComuneLibretto, "Z999");
    EXPECT_EQ(s.testata.NomeProvinciaLibretto, "PADOVA");

    // A province file that vanished: the error report, and the screen goes on.
    p.eventi.clear();
    ScegliProvincia8(s, e, "XXcomuni.dat");
    EXPECT_TRUE(e.Comuni.isEmpty());
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_TRUE(p.Messaggi()[0].startsWith("Rilevato errore"));
}

TEST_F(ArchiviProva, CodiciDeiComuniRicercaEFile) {
    const QStringList righe = RigheCodFis(s);
    ASSERT_EQ(righe.size(), 3);
    EXPECT_EQ(righe[0], "ABANO TERME                             |D3AB |A001 |PD");
    EXPECT_EQ(righe[2], "VENEZIA                                 |E7VE |L736 |VE");
    EXPECT_EQ(CercaDaSinistra(righe, "pad"), 1);
    EXPECT_EQ(CercaDaSinistra(righe, "TERME"), -1);
    EXPECT_EQ(CercaGenerale(righe, "terme"), 0);
    EXPECT_EQ(CercaGenerale(righe, "|VE"), 2);
    EXPECT_EQ(CodiceDellaRiga(righe[1]), "G224");

    EXPECT_FALSE(CopiaCodiceFiscaleCodFis(s, "", "")); // no row chosen: nothing
    EXPECT_EQ(s.EsitoDialogo, -1);
    EXPECT_TRUE(CopiaCodiceFiscaleCodFis(s, "L736", righe[2]));
    EXPECT_EQ(s.testata.CodiceComuneLibretto, "L736");
    EXPECT_EQ(s.testata.SiglaProvinciaLibretto, "VE");
    EXPECT_EQ(s.testata.NomeProvinciaLibretto, "VENEZIA");
    EXPECT_EQ(p.appunti, "L736");
    EXPECT_EQ(s.UltimoRisultato, "L736");

    EXPECT_EQ(GeneraComuniHtml(s, righe), 2);
    EXPECT_EQ(radice.Leggi(s.amb.CartellaLavoro + "\\RISORSE\\PD_Comuni.TXT"),
              AWindows1252(righe[0] + "\r\n" + righe[1] + "\r\n"));
    EXPECT_EQ(radice.Leggi(s.amb.CartellaLavoro + "\\RISORSE\\VE_Comuni.TXT"),
              AWindows1252(righe[2] + "\r\n"));
}

TEST_F(ArchiviProva, PossessoriVisEDit) {
    const QString visure = "C:\\FIDUCIAL\\VISURE\\";
    radice.Scrivi(visure + "A.VIS", Righe({"ROSSI MARIO", "VERDI ANNA"}));
    radice.Scrivi(visure + "B.DIT", Righe({"6|DITTA|1|BIANCHI,LUCA|NATO A PADOVA|"}));
    radice.Scrivi(visure + "C.DIT", Righe({"6|DITTA|1|"}));
    radice.Scrivi(visure + "D.TXT", "x");
    const QStringList file = ElencoPossessori(s);
    EXPECT_EQ(file, (QStringList{"A.VIS", "B.DIT", "C.DIT"}));
    EXPECT_EQ(CercaPossessore(s, file, "verdi"), 0);
    EXPECT_EQ(CercaPossessore(s, file, "padova"), 1);
    EXPECT_EQ(CercaPossessore(s, file, "NESSUNO"), -1);

    s.doc.TestoPossessori = "VECCHIO";
    // A .VIS replaces the owners.
    EXPECT_TRUE(Associapossessori(s, "A.VIS", LeggiFilePossessori(s, "A.VIS")));
    EXPECT_EQ(s.doc.TestoPossessori, "ROSSI MARIO\r\nVERDI ANNA\r\n");
    // A .DIT adds one line, commas as blanks.
    EXPECT_TRUE(Associapossessori(s, "B.DIT", LeggiFilePossessori(s, "B.DIT")));
    EXPECT_EQ(s.doc.TestoPossessori, "ROSSI MARIO\r\nVERDI ANNA\r\n\r\nBIANCHI LUCA NATO A PADOVA");
    EXPECT_EQ(radice.Leggi(PercorsoTagUno(s)),
              "ROSSI MARIO\r\nVERDI ANNA\r\n\r\nBIANCHI LUCA NATO A PADOVA\r\n");
    EXPECT_EQ(s.EsitoDialogo, 1);
    // A .DIT without its fields 3 and 4: the error report, the owners stay.
    const QString prima = s.doc.TestoPossessori;
    EXPECT_FALSE(Associapossessori(s, "C.DIT", LeggiFilePossessori(s, "C.DIT")));
    EXPECT_EQ(s.doc.TestoPossessori, prima);
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_TRUE(p.Messaggi()[0].contains("Associapossessori"));

    // An empty text is never saved; another one replaces the file.
    EXPECT_FALSE(SalvaModifichePossessori(s, "A.VIS", "  \r\n"));
    EXPECT_EQ(radice.Leggi(visure + "A.VIS"), Righe({"ROSSI MARIO", "VERDI ANNA"}));
    EXPECT_TRUE(SalvaModifichePossessori(s, "A.VIS", "NERI PAOLO\r\n"));
    EXPECT_EQ(radice.Leggi(visure + "A.VIS"), "NERI PAOLO\r\n");
    EliminaArchivioPossessori(s, "A.VIS");
    EXPECT_EQ(ElencoPossessori(s), (QStringList{"B.DIT", "C.DIT"}));
}
