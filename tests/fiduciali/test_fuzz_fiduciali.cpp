// The measured distances on a broken archive and on absurd coordinates. (The TAF and DDD readers
// are fuzzed in fuzz/bersagli/fiduciali.cpp.)
#include "fiduciali.h"
#include "generatore_taf.h"
#include "supporto.h"

#include <random>

namespace tavolet::test {

namespace {

QString Muta(QString testo, std::mt19937& rng) {
    const int n = 1 + int(rng() % 20);
    for (int k = 0; k < n && !testo.isEmpty(); ++k) {
        const int pos = int(rng() % testo.size());
        switch (rng() % 5) {
        case 0:
            testo.truncate(pos);
            break;
        case 1:
            testo[pos] = QChar(char16_t(rng() % 256));
            break;
        case 2:
            testo.insert(pos, QStringLiteral("\r\n"));
            break;
        case 3:
            testo.remove(pos, int(rng() % 40));
            break;
        default:
            testo.insert(pos, QString(int(rng() % 300), QChar(u'9')));
            break;
        }
    }
    return testo;
}

} // namespace

TEST_F(ConPregeo, FuzzRapportoSuArchivioGuasto) {
    std::mt19937 rng(4);
    radice.Scrivi("C:\\fiducial\\DATI\\A001.TAF", Dati("fiduciali/A001.TAF"));
    const QString base = DaWindows1252(Dati("fiduciali/PD2020.DDD"));
    for (int prova = 0; prova < 40; ++prova) {
        radice.Scrivi("C:\\fiducial\\DATI\\PD2020.DDD", AWindows1252(Muta(base, rng)));
        QList<PuntoPF> punti = {{"PF01/0100/A001", 1, 1},
                                {"PF02/0100/A001", 1, 1},
                                {"PF03/0100/A001", 23102.31, -12120.01}};
        const QStringList r = CalcolaMisuratePF(s, punti);
        // An overflowing distance in the archive is the error report; else the report stands.
        EXPECT_TRUE(!r.isEmpty() || s.ErroriMostrati > 0);
    }
    // Absurd coordinates in the drawing: the error report, no crash.
    radice.Scrivi("C:\\fiducial\\DATI\\PD2020.DDD", Dati("fiduciali/PD2020.DDD"));
    s.ErroriMostrati = 0;
    QList<PuntoPF> assurdi = {{"PF01/0100/A001", 1e308, 1e308}, {"PF02/0100/A001", -1e308, -1e308}};
    EXPECT_TRUE(CalcolaMisuratePF(s, assurdi).isEmpty());
    EXPECT_EQ(s.ErroriMostrati, 1);
}

} // namespace tavolet::test
