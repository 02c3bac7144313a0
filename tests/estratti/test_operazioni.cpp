// The head for the libretto and the archive of parcels without an extract.
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
};

} // namespace

// The values of a good extract and the self-made skeleton are the command line's, the parcels
// archived the file names' test; here the messages when there is no extract.
TEST_F(Operazioni, SenzaEstratto) {
    EXPECT_TRUE(CopiaIDatiDellEstratto(stato, "R.AGG").Comune.isEmpty());
    EXPECT_TRUE(ArchiviaParticelleEstratto(stato, Estratto{}));
    EXPECT_EQ(piattaforma.Messaggi(),
              QStringList({"Tavolet: selezionare un .EMP !", "Tavolet: Estratto non trovato!"}));
}
