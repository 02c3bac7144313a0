// The plot of the fiducials off its screen: the corners the screen's buttons never reach (its
// selections, measures, copy and list are clicked on the screen).
#include "fiduciali.h"
#include "generatore_taf.h"
#include "supporto.h"

namespace tavolet::test {

TEST_F(ConPregeo, GraficaPFRecordAssentiETabellaVuota) {
    radice.Scrivi("C:\\fiducial\\DATI\\A001.TAF", Dati("fiduciali/A001.TAF"));
    TabellaPF t = TabellaDaTaf(LeggiTafComune(s, "A001"));
    ASSERT_EQ(t.Conta(), 8);
    EXPECT_EQ(FogliTabella(t), QStringList({"0100", "012A", "0140", "0150"}));
    SelezionaIntorno(t, 0, 450);
    SelezionaIntorno(t, 99, 400); // no such record: nothing changes
    EXPECT_EQ(t.Selezionati(), 4);
    EXPECT_EQ(RecordVicino(t, 23456, -12345), 0);
    EXPECT_EQ(RecordVicino(TabellaPF(), 0, 0), -1);
    // The status line carries the scale it is given.
    EXPECT_TRUE(TestoStatoGraficaPF(t, 23456.0, -12345.0, 2000).contains(" Scala : 2000"));
    // A table from the names of the grid: the TAF's fields come with it.
    const TabellaPF g = TabellaDaGriglia(s, "A001", {"PF03/0100/A001", "PF99/0100/A001"});
    ASSERT_EQ(g.Conta(), 1);
    EXPECT_EQ(g.record[0].taf.mappa, "88");
}

} // namespace tavolet::test
