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

// Duplica, Elimina, Vuota, Azzera Ditte and the parcel commands are the screen's and the command
// line's, the protocol's search the act's; here the rename, the suffix and the export.
TEST_F(Archivio, RinominaCopiaEsporta) {
    ASSERT_TRUE(RinominaEstratto(s, "F120.EMP", "NUOVO"));
    EXPECT_FALSE(EsisteFile(kCartella + "F120.EMP") || EsisteFile(kCartella + "F120.PNG"));
    EXPECT_EQ(Leggi("NUOVO.PNG"), Dati("estratti/realistico.PNG"));
    EXPECT_EQ(CopiaEstrattoConSuffisso(s, "NUOVO.EMP"), "NUOVO1.EMP");
    EXPECT_EQ(Leggi("NUOVO1.PNG"), Dati("estratti/realistico.PNG"));
    radice.Scrivi("C:\\Esportati\\LEGGIMI.TXT", "");
    ASSERT_TRUE(EsportaEstratto(s, "NUOVO.EMP", "C:\\Esportati\\COPIA.EMP"));
    EXPECT_EQ(radice.Leggi("C:\\Esportati\\COPIA.EMP"), Dati("estratti/realistico.EMP"));
    EXPECT_EQ(radice.Leggi("C:\\Esportati\\COPIA.PNG"), Dati("estratti/realistico.PNG"));
    EXPECT_TRUE(p.Messaggi().isEmpty());
}

// The rest of the self-made extract is the command line's estratto completa and the screen's.
TEST(Autoallestito, RinominaParticella) {
    QStringList righe = {"0|AUTOALLESTITO|PD|A001|00120|12,13|PD|0|0|0|",
                         "7|4|1%|2%|3%|1%|NC|12|12|50|"};
    RinominaParticellaAutoallestito(righe, "12", "14");
    EXPECT_EQ(righe[0], "0|AUTOALLESTITO|PD|A001|00120|14,13|PD|0|0|0|");
    EXPECT_EQ(righe[1], "7|4|1%|2%|3%|1%|NC|14|12|50|");
}
