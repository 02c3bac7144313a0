// EsplodiEstratto: where each row goes, the merged rings and lines, the head values.
#include "estratto.h"

#include "supporto.h"

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct Lettura : ::testing::Test {
    PiattaformaFinta piattaforma; // today is 15 January 2026
    Stato stato{piattaforma};

    Estratto Leggi(const QStringList& righe) {
        return EsplodiTestoEstratto(stato, DaWindows1252(Righe(righe)),
                                    QStringLiteral("C:\\x.EMP"));
    }
};

const QString kTesta = QStringLiteral("0|15032024|PD0012345/2024|A001|00120|257,258|PD|0|0|0|");

} // namespace

TEST_F(Lettura, EstrattoRealisticoNelleSueListe) {
    const Estratto e =
        EsplodiTestoEstratto(stato, DaWindows1252(Dati("estratti/realistico.EMP")), "C:\\r.EMP");
    EXPECT_TRUE(piattaforma.Messaggi().isEmpty());
    EXPECT_EQ(stato.TagRoutine, "EsplodiEstratto1");
    EXPECT_EQ(e.ZERO, QStringList{kTesta});
    EXPECT_EQ(e.Punti.size(), 22);
    EXPECT_EQ(e.PF.size(), 2);
    EXPECT_EQ(e.Toponimi,
              QStringList({"8|1T|-5675.0000000000|-3770.0000000000|1.5707963268|VIA DEI MILLE|",
                           "8|2T|-5655.0000000000|-3710.0000000000|0|FOSSO|"}));
    EXPECT_EQ(e.PLinee.size(), 3);
    // Rings in the reverse of the file's order, the continuation row merged into its ring.
    ASSERT_EQ(e.SETTE.size(), 4);
    EXPECT_EQ(e.SETTE[0], "7|4|50%|51%|52%|50%|NC|258+|258+|50|");
    EXPECT_EQ(e.SETTE[2], "7|13|3%|5%|7%|9%|11%|13%|15%|17%|19%|21%|23%|25%|3%|NC|257|257|"
                          "3217.4400000000|");
    EXPECT_EQ(e.SETTE[3], "7|5|40%|41%|42%|43%|40%|NC|257-|257-|64|");
    EXPECT_EQ(e.Linee, QStringList{"7|3|101L|102L|103L|NT|||0|"});
    EXPECT_EQ(e.EstrattoSette, e.SETTE.join(CRLF) + CRLF);
    EXPECT_EQ(e.EstrattoSetteIsole, e.SETTE[0] + CRLF + e.SETTE[3] + CRLF);
    EXPECT_EQ(e.EstrattoSetteSemplici, e.SETTE[1] + CRLF + e.SETTE[2] + CRLF);
    EXPECT_EQ(e.DITTA.size(), 2);
    EXPECT_EQ(e.EstrattoDitte, "257|ROSSI|MARIO|RSSMRA50A01A001X|1/1|\r\n"
                               "258|BIANCHI|ANNA|BNCNNA60B41A001Y|1/2|\r\n");
    EXPECT_EQ(e.EstrattoParticelleTesto, "257|03|SEMINATIVO  |3153|3153|12.50|8.20|SN|\r\n"
                                         "258|01|VIGNETO     |860|860|20.10|10.00|SN|\r\n");
    EXPECT_EQ(e.PFCART.size(), 1);
    // "6|DIST" is tested first, so DISTORSIONE lands with the distances.
    EXPECT_EQ(e.DISTANZA, QStringList({"6|DISTANZA|PF01/0120/A001|PF02/0120/A001|63.6396|",
                                       "6|DISTORSIONE|1.5|"}));
    EXPECT_EQ(e.ALTRO, QStringList{"6|SCALAORIGINARIA|2000|"});
    // The framing row, then each of its fields from index 2, the empty last one too.
    ASSERT_EQ(e.INQUADRAMENTO.size(), 8);
    EXPECT_EQ(e.INQUADRAMENTO[1], "-5314.4370600949");
    EXPECT_EQ(e.INQUADRAMENTO[6], "6.2823896247");
    EXPECT_EQ(e.INQUADRAMENTO[7], "");

    EXPECT_EQ(e.EstrattoPercorso, "C:\\r.EMP");
    EXPECT_EQ(e.EstrattoRigaZero, kTesta);
    EXPECT_EQ(e.EstrattoComune, "A001");
    EXPECT_EQ(e.EstrattoFoglio, "00120");
    EXPECT_EQ(e.EstrattoParticelle, "257,258");
    EXPECT_EQ(e.EstrattoProvincia, "PD");
    EXPECT_EQ(e.EstrattoData, "15032024");
    EXPECT_EQ(e.EstrattoMesi, 22);
    // East from -3800.5678901234 to -3650 (the free-line and fiducial points do not count).
    EXPECT_EQ(e.EstrattoEstMedio, "-3725");
}

TEST_F(Lettura, EtaInMesiDiCalendario) {
    const QStringList punto = {"8|1%|-5.0|-7.0|"};
    piattaforma.adesso = QDateTime(QDate(2026, 2, 1), QTime(9, 0));
    EXPECT_EQ(Leggi(QStringList{"0|31012026|P|A001|00001|1|PD|0|0|0|"} + punto).EstrattoMesi, 1);
    EXPECT_EQ(Leggi(QStringList{"0|01022025|P|A001|00001|1|PD|0|0|0|"} + punto).EstrattoMesi, 12);
    // A self-made extract counts from 1 December 2009.
    const Estratto a = Leggi(QStringList{"0|AUTOALLESTITO|0|0|0|0|0|0|0|0|"} + punto);
    EXPECT_EQ(a.EstrattoData, "01122009");
    EXPECT_EQ(a.EstrattoMesi, (2026 - 2009) * 12 + 2 - 12);
    EXPECT_EQ(a.ZERO[0], "0|AUTOALLESTITO|0|0|0|0|0|0|0|0|");
    EXPECT_EQ(a.EstrattoEstMedio, "-7");
    EXPECT_TRUE(piattaforma.Messaggi().isEmpty());
    // A date that is no date is a type mismatch.
    Leggi(QStringList{"0|31022024|P|A001|00001|1|PD|0|0|0|"} + punto);
    ASSERT_EQ(piattaforma.Messaggi().size(), 1);
    EXPECT_TRUE(piattaforma.Messaggi()[0].contains(": 13\r\n"));
}

TEST_F(Lettura, SenzaVerticiRapportoDiErrore) {
    const Estratto e = Leggi({kTesta, "7|3|1%|2%|1%|NC|1|1|0|"});
    ASSERT_EQ(piattaforma.Messaggi().size(), 1);
    EXPECT_EQ(piattaforma.Messaggi()[0],
              "Rilevato errore: Si è verificato questo errore : 9\r\n"
              "Indice non incluso nell'intervallo\r\nNella Routine EsplodiEstratto");
    // What came before the error stays.
    EXPECT_EQ(e.EstrattoComune, "A001");
    EXPECT_EQ(e.SETTE.size(), 1);
    EXPECT_TRUE(e.EstrattoEstMedio.isEmpty());

    // A row 8 without an id stops the reading there.
    const Estratto corto = Leggi({kTesta, "8|1%|1|2|", "8", "8|2%|1|2|"});
    EXPECT_EQ(piattaforma.Messaggi().size(), 2);
    EXPECT_EQ(corto.Punti.size(), 1);
}

TEST_F(Lettura, NomiEPercorsi) {
    RadiceProva radice;
    stato.amb.UnitaPregeoExe = "C:";
    radice.Scrivi("C:\\pregeo\\estratti\\PROVA.EMP", Righe({kTesta, "8|1%|1|2|"}));
    const Estratto e = EsplodiEstratto(stato, "PROVA.EMP");
    EXPECT_EQ(e.Percorso, "C:\\pregeo\\estratti\\PROVA.EMP");
    EXPECT_EQ(e.Punti.size(), 1);
    EXPECT_TRUE(piattaforma.Messaggi().isEmpty());

    // A name ending in a backslash: nothing was selected, nothing is said.
    const Estratto nulla = EsplodiEstratto(stato, "C:\\pregeo\\estratti\\");
    EXPECT_TRUE(nulla.ZERO.isEmpty());
    EXPECT_TRUE(piattaforma.Messaggi().isEmpty());

    // A missing file: empty lists, and the head step reports.
    const Estratto manca = EsplodiEstratto(stato, "C:\\pregeo\\estratti\\MANCA.EMP");
    EXPECT_TRUE(manca.ZERO.isEmpty());
    EXPECT_EQ(manca.Percorso, "C:\\pregeo\\estratti\\MANCA.EMP");
    ASSERT_EQ(piattaforma.Messaggi().size(), 1);
    EXPECT_TRUE(piattaforma.Messaggi()[0].endsWith("Nella Routine EsplodiEstratto"));
}

TEST_F(Lettura, LineeLibereEIsole) {
    const Estratto e =
        Leggi({kTesta, "8|1%|0|0|", "8|2%|0|10|", "8|3+%|10|10|",
               // A label holding "L|" makes a free line of a ring.
               "7|4|1%|2%|3+%|1%|NC|CANALL|5|0|",
               // A plus in a point id is enough for an island.
               "7|4|1%|2%|3+%|1%|NC|5|5|0|", "7|12|1L|2L|3L|4L|5L|6L|7L|8L|9L|10L|NT|||0|",
               "7|0|11L|12L|NC|", "7|0|13L|NC|"});
    EXPECT_EQ(e.Linee,
              QStringList({"7|4|1%|2%|3+%|1%|NC|CANALL|5|0|",
                           "7|12|1L|2L|3L|4L|5L|6L|7L|8L|9L|10L|NT|||0|11L|12L|NC|13L|NC|"}));
    EXPECT_EQ(e.SETTE.size(), 1);
    EXPECT_EQ(e.EstrattoSetteIsole, "7|4|1%|2%|3+%|1%|NC|5|5|0|\r\n");
    EXPECT_TRUE(e.EstrattoSetteSemplici.isEmpty());

    // Continuation rows before any ring row are dropped; two rings keep their own pieces.
    const Estratto d =
        Leggi({kTesta, "8|1%|0|0|", "7|0|9%|NC|", "7|12|1%|2%|3%|4%|5%|6%|7%|8%|9%|10%|NC|A|A|1|",
               "7|0|11%|1%|NC|", "7|3|1%|2%|1%|NC|B|B|1|"});
    EXPECT_EQ(d.SETTE, QStringList({"7|3|1%|2%|1%|NC|B|B|1|",
                                    "7|12|1%|2%|3%|4%|5%|6%|7%|8%|9%|10%|11%|1%|NC|A|A|1|"}));
}
