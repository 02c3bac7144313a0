// The pieces that several parts of the program share: tag blocks and the launcher of sibling
// programs.
#include "libretto.h"
#include "piattaforma_finta.h"
#include "supporto.h"

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

// blocchi.pdf: one page whose content stream draws the act's tag blocks as text, without
// compression, as Pregeo's printer driver leaves it.
TEST(BlocchiTag, BlocchiDalleRigheDelPdf) {
    const QByteArray pdf = Dati("core/blocchi.pdf");
    const BlocchiTag b = LeggiBlocchiTagDaDati(pdf);
    ASSERT_EQ(b.blocchi.size(), 4);
    EXPECT_EQ(b.Testo(1000), "0|01012024|7|G224|0001|5|ROSSI\r\n9|1|10|20|\r\n");
    EXPECT_EQ(b.Pezzi(2000), (QStringList{"1|100|1.5|", "2|P|x|"}));
    EXPECT_EQ(b.Pezzi(3000).value(2), "A001_00120.EMP");
    // The string's escapes and the owners' bars go; a backslash never reaches the owners.
    EXPECT_EQ(b.Testo(4000), "ROSSI MARIO\r\nBIANCHI");
    EXPECT_TRUE(b.Testo(5000).isEmpty());

    // Text outside blocks, a cut block, an absurd number and no block at all give nothing.
    EXPECT_TRUE(LeggiBlocchiTagDaDati("[TAG1000]|0|x|<nr>senza fine").Vuoto());
    EXPECT_TRUE(LeggiBlocchiTagDaDati("[TAG1e30]|0|[/TAG").Vuoto());
    EXPECT_TRUE(LeggiBlocchiTagDaDati(QByteArray(1 << 20, 'x')).Vuoto());
    EXPECT_TRUE(LeggiBlocchiTagDaFile("C:\\non\\esiste.pdf").Vuoto());
}

TEST_F(ConPregeo, ProgrammaFratelloAssente) {
    // Not mapped and not there: the error report says which, and the program goes on.
    p.esegui = AvviaProcessoHost;
    EXPECT_EQ(ShellInfinita(s, "C:\\T\\Dexaro.exe"), -1);
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_TRUE(p.Messaggi().first().contains("Dexaro.exe")) << p.Messaggi().first().toStdString();
    EXPECT_EQ(s.ErroriMostrati, 1);
}
