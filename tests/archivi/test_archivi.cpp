#include "comuni.h"
#include "libretto.h"
#include "possessori.h"
#include "supporto.h"

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

// The screens copy a comune and owners of a .VIS into the libretto; here what they do not reach.
TEST_F(ArchiviProva, ComuniDiPregeoPerProvincia) {
    const QStringList righe = RigheCodFis(s); // of the small tree's comunt.dat
    ASSERT_EQ(righe.size(), 3);
    radice.Scrivi("C:\\pregeo\\arch\\PDcomuni.dat",
                  Righe({"PD|G224|x|y|PADOVA   |", "PD |A001|x|y| ABANO TERME|"}));
    radice.Scrivi("C:\\pregeo\\arch\\Comunt.dat", "x");
    radice.Scrivi("C:\\pregeo\\arch\\comun.dat", "x");
    ElencoComuni8 e;
    RicaricaProvince(s, e);
    // comunt.dat of the small tree is lower case: only the exact "Comunt.dat" is left out.
    EXPECT_FALSE(e.Province.contains("Comunt.dat"));
    EXPECT_TRUE(e.Province.contains("comunt.dat") && e.Province.contains("comun.dat"));
    EXPECT_EQ(TitoloComuni8(s), "Comuni C:\\pregeo\\arch");
    ScegliProvincia8(s, e, "comun.dat"); // listed, but a click does nothing
    EXPECT_TRUE(e.Comuni.isEmpty());
    EXPECT_FALSE(CopiaCodiceFiscale8(s, e));
    EXPECT_EQ(p.Messaggi(), QStringList{"Impossibile continuare: Selezionare un Comune!"});

    ScegliProvincia8(s, e, "PDcomuni.dat");
    EXPECT_EQ(e.EtichettaComune, "?");
    ScegliComune8(e, 1);
    EXPECT_TRUE(CopiaCodiceFiscale8(s, e));
    EXPECT_EQ(s.testata.NomeComuneLibretto, "ABANO TERME");
    EXPECT_EQ(s.testata.SiglaProvinciaLibretto, "PD "); // untrimmed
    EXPECT_EQ(s.testata.NomeProvinciaLibretto, "");     // "PD " is no sigla of the table
    EXPECT_EQ(radice.Leggi(PercorsoTagUno(s)), "A001\r\n");
    // The codes' screen: no row chosen does nothing; the files of the comuni by province.
    EXPECT_FALSE(CopiaCodiceFiscaleCodFis(s, "", ""));
    EXPECT_EQ(s.testata.CodiceComuneLibretto, "A001");
    EXPECT_EQ(GeneraComuniHtml(s, righe), 2);
    EXPECT_EQ(radice.Leggi(s.amb.CartellaLavoro + "\\RISORSE\\PD_Comuni.TXT"),
              AWindows1252(righe[0] + "\r\n" + righe[1] + "\r\n"));
    EXPECT_EQ(radice.Leggi(s.amb.CartellaLavoro + "\\RISORSE\\VE_Comuni.TXT"),
              AWindows1252(righe[2] + "\r\n"));
}

TEST_F(ArchiviProva, PossessoriDitEdEliminati) {
    const QString visure = "C:\\FIDUCIAL\\VISURE\\";
    radice.Scrivi(visure + "A.VIS", Righe({"ROSSI MARIO", "VERDI ANNA"}));
    radice.Scrivi(visure + "B.DIT", Righe({"6|DITTA|1|BIANCHI,LUCA|NATO A PADOVA|"}));
    radice.Scrivi(visure + "C.DIT", Righe({"6|DITTA|1|"}));
    radice.Scrivi(visure + "D.TXT", "x");
    EXPECT_EQ(ElencoPossessori(s), (QStringList{"A.VIS", "B.DIT", "C.DIT"}));
    s.doc.TestoPossessori = "ROSSI MARIO\r\n";
    // A .DIT adds one line, commas as blanks.
    EXPECT_TRUE(Associapossessori(s, "B.DIT", LeggiFilePossessori(s, "B.DIT")));
    EXPECT_EQ(s.doc.TestoPossessori, "ROSSI MARIO\r\n\r\nBIANCHI LUCA NATO A PADOVA");
    EXPECT_EQ(radice.Leggi(PercorsoTagUno(s)), "ROSSI MARIO\r\n\r\nBIANCHI LUCA NATO A PADOVA\r\n");
    // A .DIT without its fields 3 and 4: the error report, the owners stay.
    EXPECT_FALSE(Associapossessori(s, "C.DIT", LeggiFilePossessori(s, "C.DIT")));
    EXPECT_EQ(s.doc.TestoPossessori, "ROSSI MARIO\r\n\r\nBIANCHI LUCA NATO A PADOVA");
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_TRUE(p.Messaggi()[0].contains("Associapossessori"));

    EliminaArchivioPossessori(s, "A.VIS");
    EXPECT_EQ(ElencoPossessori(s), (QStringList{"B.DIT", "C.DIT"}));
}
