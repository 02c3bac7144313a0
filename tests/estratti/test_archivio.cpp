// The commands of the archive of extracts on files.
#include "archivio.h"
#include "autoallestito.h"
#include "estratto.h"

#include "supporto.h"

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

const QString kCartella = "C:\\pregeo\\estratti\\";

struct Archivio : ConPregeo {
    void SetUp() override {
        ConPregeo::SetUp();
        radice.Scrivi(kCartella + "F120.EMP", Dati("estratti/realistico.EMP"));
        radice.Scrivi(kCartella + "F120.PNG", Dati("estratti/realistico.PNG"));
    }
    QByteArray Leggi(const QString& nome) { return radice.Leggi(kCartella + nome); }
};

} // namespace

// Duplica and Elimina on the screen, Vuota and the parcel commands on the command line; here
// what they leave to the routines: the copy that fails without its image, the rename, the
// suffix, the owners' backup, a parcel in no ring, the export.
TEST_F(Archivio, ComandiSuiFile) {
    radice.Scrivi(kCartella + "SOLO.EMP", "0|\r\n");
    EXPECT_FALSE(DuplicaEstratto(s, "SOLO.EMP", "SOLO2"));
    EXPECT_TRUE(p.Messaggi().last().contains("Nella Routine DuplicaEstratto"));
    EXPECT_FALSE(EsisteFile(kCartella + "SOLO2.EMP"));

    ASSERT_TRUE(RinominaEstratto(s, "F120.EMP", "NUOVO"));
    EXPECT_FALSE(EsisteFile(kCartella + "F120.EMP") || EsisteFile(kCartella + "F120.PNG"));
    EXPECT_EQ(Leggi("NUOVO.PNG"), Dati("estratti/realistico.PNG"));
    EXPECT_EQ(CopiaEstrattoConSuffisso(s, "NUOVO.EMP"), "NUOVO1.EMP");
    EXPECT_EQ(Leggi("NUOVO1.PNG"), Dati("estratti/realistico.PNG"));

    const int messaggi = p.Messaggi().size();
    ASSERT_TRUE(AzzeraDitte(s, "NUOVO.EMP"));
    EXPECT_EQ(p.Messaggi().last(),
              "Azzera Ditte: Intestatari archiviati ed eliminati dall'Estratto!");
    EXPECT_EQ(LeggiByte(s.amb.CartellaLavoro + "\\TEMP\\NUOVO.BAK"),
              Dati("estratti/realistico.EMP"));
    // A parcel in no ring: the file stays as it was, with no message.
    const QByteArray prima = Leggi("NUOVO.EMP");
    ASSERT_TRUE(RinominaParticella(s, "NUOVO.EMP", "999", "1000"));
    EXPECT_EQ(Leggi("NUOVO.EMP"), prima);
    EXPECT_EQ(p.Messaggi().size(), messaggi + 1);

    radice.Scrivi("C:\\Esportati\\LEGGIMI.TXT", "");
    ASSERT_TRUE(EsportaEstratto(s, "NUOVO.EMP", "C:\\Esportati\\COPIA.EMP"));
    EXPECT_EQ(radice.Leggi("C:\\Esportati\\COPIA.EMP"), prima);
    EXPECT_EQ(radice.Leggi("C:\\Esportati\\COPIA.PNG"), Leggi("NUOVO.PNG"));
}

// The sample extracts are the screen's; here the act's protocol finds its extract, the first
// match, and an empty first line ends the search.
TEST_F(Archivio, Protocollo) {
    radice.Scrivi(kCartella + "P.EMP", "0|01012025|XX1/2025|A001|\r\n");
    radice.Scrivi(kCartella + "VUOTO.EMP", "\r\n8|1%|0|0|\r\n");
    EXPECT_EQ(TrovaEstrattoPerProtocollo(s, {"F120.EMP", "P.EMP"}, "XX1/2025"), "P.EMP");
    EXPECT_EQ(TrovaEstrattoPerProtocollo(s, {"VUOTO.EMP", "P.EMP"}, "XX1/2025"), "");
}

// The rest of the self-made extract is the command line's estratto completa and the screen's.
TEST(Autoallestito, RinominaParticella) {
    QStringList righe = {"0|AUTOALLESTITO|PD|A001|00120|12,13|PD|0|0|0|",
                         "7|4|1%|2%|3%|1%|NC|12|12|50|"};
    RinominaParticellaAutoallestito(righe, "12", "14");
    EXPECT_EQ(righe[0], "0|AUTOALLESTITO|PD|A001|00120|14,13|PD|0|0|0|");
    EXPECT_EQ(righe[1], "7|4|1%|2%|3%|1%|NC|14|12|50|");
}
