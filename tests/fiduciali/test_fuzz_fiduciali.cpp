// Absurd coordinates in the drawing: the error report, no crash. (The TAF and DDD readers and
// the distances on a broken archive are fuzzed in fuzz/bersagli/fiduciali.cpp.)
#include "fiduciali.h"
#include "supporto.h"

namespace tavolet::test {

TEST_F(ConPregeo, MisuratePFConCoordinateAssurde) {
    radice.Scrivi("C:\\fiducial\\DATI\\A001.TAF", Dati("fiduciali/A001.TAF"));
    radice.Scrivi("C:\\fiducial\\DATI\\PD2020.DDD", Dati("fiduciali/PD2020.DDD"));
    s.ErroriMostrati = 0;
    QList<PuntoPF> assurdi = {{"PF01/0100/A001", 1e308, 1e308}, {"PF02/0100/A001", -1e308, -1e308}};
    EXPECT_TRUE(CalcolaMisuratePF(s, assurdi).isEmpty());
    EXPECT_EQ(s.ErroriMostrati, 1);
}

} // namespace tavolet::test
