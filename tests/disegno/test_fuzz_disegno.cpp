// Random and mutated drawing lists: the reader and the generation never crash or hang.
#include "aiuto_disegno.h"

#include <random>

namespace tavolet::test {

TEST(FuzzDisegno, ListeCasualiEMutate) {
    std::mt19937 rng(31);
    const QString base = DaWindows1252(Dati("disegno/RILIEVO.LXC"));
    for (int prova = 0; prova < 500; ++prova) {
        QString t = base;
        for (int k = 0; k < 1 + int(rng() % 15); ++k) {
            const int pos = int(rng() % t.size());
            switch (rng() % 4) {
            case 0:
                t.truncate(pos);
                break;
            case 1:
                t[pos] = QChar(char16_t(rng() % 256));
                break;
            case 2:
                t.insert(pos, QStringLiteral(",,|,7,P,L,"));
                break;
            default:
                t.remove(pos, int(rng() % 30));
                break;
            }
            if (t.isEmpty()) t = base;
        }
        const Disegno d = LeggiLxc(t);
        for (const QString& v : RiconosciLinee(d)) EXPECT_TRUE(v.contains(" - "));
    }
}

TEST_F(Generazione, FuzzGenerazione) {
    std::mt19937 rng(5);
    const QString base = DaWindows1252(Dati("disegno/RILIEVO.LXC"));
    for (int prova = 0; prova < 40; ++prova) {
        QString t = base;
        for (int k = 0; k < 1 + int(rng() % 6); ++k) {
            const int pos = int(rng() % t.size());
            if (rng() % 2)
                t[pos] = QChar(char16_t(u'0' + rng() % 10));
            else
                t.insert(pos, QStringLiteral("|MAPPALE 3|0|"));
        }
        p.eventi.clear();
        Genera(t); // a missing point of a contour is the error report, never a crash
    }
}

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
