// A contour naming a missing point, and a drawing of 10,000 points. (The drawing list and the
// generation are fuzzed in fuzz/bersagli/lxc.cpp.)
#include "aiuto_disegno.h"

namespace tavolet::test {

TEST_F(Generazione, ContornoConPuntiMancantiEDiecimilaPunti) {
    // A levelling that names a missing point: the error report, nothing written.
    EXPECT_TRUE(Genera("P,100,0,0,10,,1.5\r\nP,200,100,0,10,,1.5\r\nL,0,0,0,100,0,0\r\n"
                       "7,|100|999|,LIVELLAZIONE RAGGIANTE,\r\n")
                    .isEmpty());
    EXPECT_EQ(s.ErroriMostrati, 1);
    // 10,000 points: written; stations 1000 and 2000 take the four-character names that begin
    // "1" and "2".
    QString lxc = "P,1000,0,0,10,,1.5\r\nP,2000,500,0,10,,1.5\r\nL,0,0,0,500,0,0\r\n";
    for (int i = 1; i <= 9998; ++i)
        lxc += QStringLiteral("P,%1,%2,%3,10,,1.5\r\n").arg(1000 + i).arg(i % 100).arg(i / 100 + 1);
    const QStringList r = Genera(lxc);
    const QString testo = r.join("\n");
    EXPECT_TRUE(testo.contains("\n2|1999|")) << r.size();
    EXPECT_TRUE(testo.contains("\n2|2999|"));
    EXPECT_FALSE(testo.contains("\n2|3001|"));
}

} // namespace tavolet::test
