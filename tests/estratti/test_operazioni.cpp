// Deleting a parcel, the head for the libretto, the self-made skeleton, the archives.
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
    QStringList Ids(const QStringList& punti) {
        QStringList ids;
        for (const QString& p : punti) ids << p.split('|')[1];
        return ids;
    }
};

} // namespace

TEST_F(Operazioni, EliminaParticellaConISuoiPuntiSoltanto) {
    Estratto e = EsplodiEstratto(stato, percorso);
    ASSERT_TRUE(EliminaParticellaEstratto(stato, e, "258"));
    // The label must match: "258+" stays; of the ring's points only those of no other ring go,
    // and the isolated 60% with them.
    ASSERT_EQ(e.SETTE.size(), 3);
    for (const QString& r : e.SETTE) EXPECT_FALSE(r.contains("|258|"));
    EXPECT_EQ(Ids(e.Punti),
              QStringList({"40%", "41%", "42%", "43%", "3%", "5%", "7%", "9%", "11%", "13%", "15%",
                           "17%", "19%", "21%", "23%", "25%", "50%", "51%", "52%"}));
    EXPECT_TRUE(EliminaParticellaEstratto(stato, e, "NESSUNA"));
    EXPECT_EQ(e.SETTE.size(), 3);
    EXPECT_TRUE(piattaforma.Messaggi().isEmpty());
    // A ring row too short for a label goes to the error report.
    e.SETTE << "7|";
    EXPECT_FALSE(EliminaParticellaEstratto(stato, e, "257"));
    EXPECT_TRUE(
        piattaforma.Messaggi().value(0).endsWith("Nella Routine EliminaParticellaEstratto"));
}

// The values of a good extract are the command line's (estratto dati); here, what is missing.
TEST_F(Operazioni, DatiPerIlLibretto) {
    const DatiEstratto agg = CopiaIDatiDellEstratto(stato, "R.AGG");
    EXPECT_TRUE(agg.Comune.isEmpty());
    EXPECT_EQ(piattaforma.Messaggi(), QStringList{"Tavolet: selezionare un .EMP !"});
    const DatiEstratto manca = CopiaIDatiDellEstratto(stato, "MANCA.EMP");
    const DatiEstratto vuoto = CopiaIDatiDellEstratto(stato, "");
    EXPECT_TRUE(manca.Comune.isEmpty() && manca.Particelle.isEmpty() && manca.EstMedio.isEmpty());
    EXPECT_TRUE(vuoto.Comune.isEmpty());
    EXPECT_EQ(piattaforma.Messaggi().size(), 1);

    // Rows that are not there: the report, with the outputs empty.
    const DatiEstratto corto = DatiDaRigheEstratto(stato, {"0|AUTOALLESTITO|0|0|0|0|0|0|0|0|"});
    EXPECT_EQ(piattaforma.Messaggi().size(), 2);
    EXPECT_TRUE(corto.EstMedio.isEmpty());
}

TEST_F(Operazioni, AutoallestitoTieneLoScheletro) {
    ASSERT_TRUE(RendiAutoallestito(stato, "R.EMP"));
    EXPECT_EQ(radice.Leggi(percorso), Dati("estratti/realistico_autoallestito.EMP"));
    // The result reads as a self-made extract.
    const Estratto e = EsplodiEstratto(stato, percorso);
    EXPECT_TRUE(piattaforma.Messaggi().isEmpty());
    EXPECT_EQ(e.EstrattoData, "01122009");
    EXPECT_TRUE(e.Toponimi.isEmpty() && e.PF.isEmpty() && e.Linee.isEmpty());
    EXPECT_FALSE(RendiAutoallestito(stato, "MANCA.EMP"));
    EXPECT_EQ(piattaforma.Messaggi().size(), 1);
}

TEST_F(Operazioni, ArchivioParticelleEDitte) {
    stato.amb.UnitaPregeoDati = "C:";
    Estratto e = EsplodiEstratto(stato, percorso);
    e.PARTICELLA << "6|PARTICELLA|12/A|01|PRATO       |10|10|0|0|";
    ASSERT_TRUE(ArchiviaParticelleEstratto(stato, e));
    EXPECT_EQ(radice.Leggi("C:\\FIDUCIAL\\PARTICELLE\\A001_00120_257.Map"),
              Righe({"6|PARTICELLA|257|03|SEMINATIVO  |3153|3153|12.50|8.20|SN|"}));
    EXPECT_EQ(radice.Leggi("C:\\FIDUCIAL\\PARTICELLE\\A001_00120_12_A.Map"),
              Righe({"6|PARTICELLA|12/A|01|PRATO       |10|10|0|0|"}));

    ASSERT_TRUE(ArchiviaDitteEstratto(stato, e, "A001_00120"));
    ASSERT_TRUE(ArchiviaDitteEstratto(stato, e, "A001_00120"));
    EXPECT_EQ(radice.Leggi("C:\\fiducial\\DITTA\\A001_00120_257_ROSSI.DIT"),
              Righe({"6|DITTA|257|ROSSI|MARIO|RSSMRA50A01A001X|1/1|",
                     "6|DITTA|257|ROSSI|MARIO|RSSMRA50A01A001X|1/1|"}));
    EXPECT_TRUE(piattaforma.Messaggi().isEmpty());

    const Estratto nessuno;
    EXPECT_TRUE(ArchiviaParticelleEstratto(stato, nessuno));
    EXPECT_EQ(piattaforma.Messaggi(), QStringList{"Tavolet: Estratto non trovato!"});
}
