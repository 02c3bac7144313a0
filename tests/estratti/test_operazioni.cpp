// The head for the libretto, the self-made skeleton, the archive of parcels.
#include "estratto.h"

#include "supporto.h"

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct Operazioni : ::testing::Test {
    PiattaformaFinta piattaforma;
    Stato stato{piattaforma};
    RadiceProva radice;
    const QString percorso = QStringLiteral("C:\\pregeo\\estratti\\R.EMP");

    void SetUp() override { radice.Scrivi(percorso, Dati("estratti/realistico.EMP")); }
};

} // namespace

TEST_F(Operazioni, ArchivioParticelle) {
    stato.amb.UnitaPregeoDati = "C:";
    Estratto e = EsplodiEstratto(stato, percorso);
    // The parcels archived one file each, a "/" of the name as "_" (the owners go with Azzera
    // Ditte).
    e.PARTICELLA << "6|PARTICELLA|12/A|01|PRATO       |10|10|0|0|";
    ASSERT_TRUE(ArchiviaParticelleEstratto(stato, e));
    EXPECT_EQ(radice.Leggi("C:\\FIDUCIAL\\PARTICELLE\\A001_00120_12_A.Map"),
              Righe({"6|PARTICELLA|12/A|01|PRATO       |10|10|0|0|"}));
    EXPECT_TRUE(ArchiviaParticelleEstratto(stato, Estratto{}));
    EXPECT_EQ(piattaforma.Messaggi(), QStringList{"Tavolet: Estratto non trovato!"});
}

// The values of a good extract are the command line's (estratto dati); here, what is missing.
TEST_F(Operazioni, DatiPerIlLibretto) {
    EXPECT_TRUE(CopiaIDatiDellEstratto(stato, "R.AGG").Comune.isEmpty());
    EXPECT_EQ(piattaforma.Messaggi(), QStringList{"Tavolet: selezionare un .EMP !"});
    const DatiEstratto manca = CopiaIDatiDellEstratto(stato, "MANCA.EMP");
    EXPECT_TRUE(manca.Comune.isEmpty() && manca.Particelle.isEmpty() && manca.EstMedio.isEmpty());
    EXPECT_TRUE(CopiaIDatiDellEstratto(stato, "").Comune.isEmpty());
    EXPECT_EQ(piattaforma.Messaggi().size(), 1);
    // Rows that are not there: the report, with the outputs empty.
    EXPECT_TRUE(
        DatiDaRigheEstratto(stato, {"0|AUTOALLESTITO|0|0|0|0|0|0|0|0|"}).EstMedio.isEmpty());
    EXPECT_EQ(piattaforma.Messaggi().size(), 2);
}

// The self-made skeleton, whole (the command line checks only its head).
TEST_F(Operazioni, AutoallestitoTieneLoScheletro) {
    ASSERT_TRUE(RendiAutoallestito(stato, "R.EMP"));
    EXPECT_EQ(radice.Leggi(percorso), Dati("estratti/realistico_autoallestito.EMP"));
    EXPECT_FALSE(RendiAutoallestito(stato, "MANCA.EMP"));
    EXPECT_EQ(piattaforma.Messaggi().size(), 1);
}
