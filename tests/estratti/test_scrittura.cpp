// The save's area of one ring, on its own (the save's bytes are the rewrite's and the plain
// writer's tests, and the command line's).
#include "estratto.h"

#include "supporto.h"

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

// The first row of an id counts (a 3 x 4 triangle); past the tables, the report under the
// caller's tag.
TEST(Scrittura, CalcolaAreaRigaSette) {
    PiattaformaFinta piattaforma;
    Stato stato{piattaforma};
    Estratto e;
    e.Punti = {"8|1%|0|0|", "8|2%|0|4|", "8|3%|3|4|", "8|1%|99|99|"};
    ASSERT_TRUE(CalcolaAreaRigaSette(stato, e, "7|4|1%|2%|3%|1%|NC|T|T|0|"));
    EXPECT_DOUBLE_EQ(e.AreaRigaSette, 6);
    stato.TagRoutine = "Chiamante";
    EXPECT_FALSE(
        CalcolaAreaRigaSette(stato, e, "7|600|" + QString("1%|").repeated(600) + "NC|L|L|0|"));
    ASSERT_EQ(piattaforma.Messaggi().size(), 1);
    EXPECT_TRUE(piattaforma.Messaggi()[0].endsWith("Nella Routine Chiamante"));
}
