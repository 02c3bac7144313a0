#include "libretto.h"
#include "piattaforma_finta.h"
#include "riordino.h"
#include "supporto.h"

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

const QString kRiga0 = "0|15012026|123|G224|0010|125|ROSSI MARIO|GEOMETRA|PADOVA|";
const QString kRiga9 = "9|20|10|20|1070|10.00-G,STDA 2.08|FR|STAZIONE TOTALE|";

struct EsplodiProva : ::testing::Test {
    PiattaformaFinta p;
    Stato s{p};
    GruppiLibretto Esplodi(const QStringList& righe) {
        s.doc.TestoLibretto = righe.join(CRLF) + CRLF;
        return EsplodiLibretto(s);
    }
};

// A one-field comment of the given length.
QString Commento(int lunghezza) {
    return "6|" + QString(lunghezza - 3, u'c') + "|";
}

QString Censuario(const QString& inizio) {
    return inizio.leftJustified(69) + "|";
}

} // namespace

TEST_F(EsplodiProva, OgniRigaAlGruppoDellaPrimaRegolaCheVale) {
    const QString lungo75 = Commento(75), lungo76 = Commento(76), lungo70 = Commento(70);
    const GruppiLibretto g = Esplodi({
        kRiga0,
        kRiga9,
        "6|Rilievo celerimetrico|",    // behind row 9: the comment of the head
        "6|Seconda riga di commento|", // behind a comment: with the outlines
        "Rilievo del 12 gennaio",      // no number: a row 0
        "6|DettaglioTipoAgg=CONFERMA|",
        "1|10000|4410603.370,653928.450,4545947.070|0.000|", // comma in field 2: GPS
        "1|S1|1.500|Note: a,b|",                             // comma in field 3: a station
        "2|101|-21739.268,13037.636,19044.321|0.0|PDOP=2|",
        "2|A,B|12.5000|", // comma in the name: a point
        "6|L1|12.3|",
        "6|due|campi|",
        "6|Dati per aggiornare il D.B. Censuario|",
        "6|*****   Fine   Relazione *****|", // an end marker first: no Relazione at all
        "6|***** Relazione  Tecnica *****|",
        lungo75,
        lungo76,
        lungo70,
        "6| - appunto|",
        "12|strano|",
        "1.5|mezzo|",
        "3|S1|S2|",
        "4|P1|0.00|",
        "5|P2|1.250|",
        "7|2|P1|P2|RC|",
        "8|P1|100.000|200.000|",
        "9|altra testata|",
        "6|Dietro la seconda riga 9|",
    });
    EXPECT_TRUE(g.completo);
    EXPECT_EQ(g.GruppoRiga0, (QStringList{kRiga0, "Rilievo del 12 gennaio"}));
    EXPECT_EQ(g.GruppoRiga9, (QStringList{kRiga9, "9|altra testata|"}));
    EXPECT_EQ(g.GruppoCommento,
              (QStringList{"6|Rilievo celerimetrico|", "6|DettaglioTipoAgg=CONFERMA|",
                           "6|Dietro la seconda riga 9|"}));
    EXPECT_EQ(g.GruppoGPS,
              (QStringList{"1|10000|4410603.370,653928.450,4545947.070|0.000|",
                           "2|101|-21739.268,13037.636,19044.321|0.0|PDOP=2|", "6|L1|12.3|"}));
    // The row 2 right behind the row 1 is the orientation; the rest is sorted by the name
    // right-aligned, rows of no known kind included.
    EXPECT_EQ(g.GruppoStazioni,
              (QStringList{"1|S1|1.500|Note: a,b|", "2|A,B|12.5000|", "1.5|mezzo|", "12|strano|"}));
    // A 75-character comment stays; the 76-character one is lost, as is a comment of two
    // fields and the header of the censuary data.
    EXPECT_EQ(g.GruppoContorni,
              (QStringList{"6|Seconda riga di commento|", "6|*****   Fine   Relazione *****|",
                           lungo75, "7|2|P1|P2|RC|"}));
    // 70 characters make a censuary row, model or not.
    EXPECT_EQ(g.GruppoCensuario, QStringList{lungo70});
    EXPECT_EQ(g.GruppoAppunti, QStringList{"6| - appunto|"});
    EXPECT_EQ(g.GruppoPoligonali, QStringList{"3|S1|S2|"});
    EXPECT_EQ(g.GruppoRighe45, (QStringList{"4|P1|0.00|", "5|P2|1.250|"}));
    EXPECT_EQ(g.GruppoFiduciali, QStringList{"8|P1|100.000|200.000|"});
    EXPECT_TRUE(g.GruppoRelazione.isEmpty());
    EXPECT_TRUE(g.GruppoProposta.isEmpty());
    EXPECT_TRUE(p.Messaggi().isEmpty());
}

TEST_F(EsplodiProva, RelazioneEProposta) {
    // Without its end marker the Relazione runs to the end of the text, the empty piece behind
    // the last line end included, and nothing after the marker is classified.
    GruppiLibretto g = Esplodi({kRiga0, kRiga9, "6|***** Relazione  Tecnica *****|",
                                "6|Rilievo eseguito.|", "8|1|1.000|2.000|"});
    EXPECT_EQ(g.GruppoRelazione, (QStringList{"6|***** Relazione  Tecnica *****|",
                                              "6|Rilievo eseguito.|", "8|1|1.000|2.000|", ""}));
    EXPECT_TRUE(g.GruppoFiduciali.isEmpty());

    // Without a Proposta everything up to the last row is classified.
    g = Esplodi({kRiga0, kRiga9, "8|1|1.000|2.000|"});
    EXPECT_EQ(g.GruppoFiduciali, QStringList{"8|1|1.000|2.000|"});
    EXPECT_TRUE(s.doc.TestoProposta.isEmpty());

    // With two markers the rows between them are both Proposta and classified; the Proposta
    // text is trimmed.
    g = Esplodi({kRiga0, kRiga9, "6|ESTRATTO DI MAPPA|", "8|1|1.000|2.000|", "6|ESTRATTO DI MAPPA|",
                 "7|2|1|2|RC|  "});
    EXPECT_EQ(g.GruppoProposta, (QStringList{"6|ESTRATTO DI MAPPA|", "8|1|1.000|2.000|",
                                             "6|ESTRATTO DI MAPPA|", "7|2|1|2|RC|  "}));
    EXPECT_EQ(g.GruppoFiduciali, QStringList{"8|1|1.000|2.000|"});
    EXPECT_EQ(g.GruppoCommento, QStringList{"6|ESTRATTO DI MAPPA|"});
    EXPECT_TRUE(g.GruppoContorni.isEmpty());
    EXPECT_EQ(s.doc.TestoProposta, "6|ESTRATTO DI MAPPA|\r\n8|1|1.000|2.000|\r\n"
                                   "6|ESTRATTO DI MAPPA|\r\n7|2|1|2|RC|\r\n");
}

TEST_F(EsplodiProva, PuntiOrdinatiPerNomeDietroLOrientamento) {
    const GruppiLibretto g = Esplodi({
        kRiga0,
        kRiga9,
        "1|A|1.500|",
        "2|B|0.0000|",
        "2|10|1.0|",
        "2|4|2.0|",
        "2|9|3.0|",
        "2|PF01/0010/G224|4.0|",
        "1|C|1.600|",
        "2|X|0.0000|",
        // In the last station a point equal to the orientation of the first goes.
        "2|B|0.0000|",
        "2|Z|5.0|",
        "2|  7|6.0|",
    });
    EXPECT_EQ(g.GruppoStazioni, (QStringList{"1|A|1.500|", "2|B|0.0000|", "2|4|2.0|", "2|9|3.0|",
                                             "2|10|1.0|", "2|PF01/0010/G224|4.0|", "1|C|1.600|",
                                             "2|X|0.0000|", "2|7|6.0|", "2|Z|5.0|"}));
}

TEST_F(EsplodiProva, BlocchiGps) {
    // A block opens on a row 1 or a row 6; the row 2 right behind a row 6 keeps its place, the
    // others are sorted; a row 2 behind the row 1 is sorted too.
    const GruppiLibretto g = Esplodi({
        kRiga0,
        kRiga9,
        "1|10000|4410603.370,653928.450,4545947.070|0.000|",
        "2|30|1.0,2.0,3.0|",
        "2|5|1.0,2.0,3.0|",
        "6|L2|12012026-09:32|12012026-10:44|RTK|PDOP=1|",
        "2|100|1.0,2.0,3.0|0.0|PDOP=2|0.000|MR[VRS]|",
        "2|12|1.0,2.0,3.0|",
        "2|  3|1.0,2.0,3.0|",
    });
    EXPECT_EQ(g.GruppoGPS,
              (QStringList{"1|10000|4410603.370,653928.450,4545947.070|0.000|", "2|5|1.0,2.0,3.0|",
                           "2|30|1.0,2.0,3.0|", "6|L2|12012026-09:32|12012026-10:44|RTK|PDOP=1|",
                           "2|100|1.0,2.0,3.0|0.0|PDOP=2|0.000|MR[VRS]|", "2|3|1.0,2.0,3.0|",
                           "2|12|1.0,2.0,3.0|"}));
}

TEST_F(EsplodiProva, ConteggioDelleRigheCensuarie) {
    const QString titolo = "6|Dati per aggiornare il D.B. Censuario dell'Ufficio Tecnico Erariale|";
    const QString testa = Censuario("6|51FTP|002|");
    const QString o = "6|O|35   |000|  |     |000029390|SN|  |     |001|1 |                 |";
    const QString s1 = "6|S|35   |000|  |     |000000000|  |  |     |000|  |                 |";
    const QString c = "6|C|     |000|a |AAA  |000029090|SN|  |     |282|  |                 |";
    const QString avviso =
        "Tavolet: Il numero delle righe INDICATE nel Modello Censuario\r\nnon corrisponde al "
        "numero delle righe PRESENTI nel Modello Censuario!";

    // The count starts from 1 and adds 2 and 1: four rows in all.
    GruppiLibretto g = Esplodi({kRiga0, kRiga9, testa, o, s1, c});
    EXPECT_EQ(g.GruppoCensuario.size(), 4);
    EXPECT_TRUE(p.Messaggi().isEmpty());

    // With the title row the model holds one row too many; it's a warning, the groups stand.
    g = Esplodi({kRiga0, kRiga9, titolo, testa, o, s1, c});
    EXPECT_EQ(p.Messaggi(), QStringList{avviso});
    EXPECT_TRUE(g.completo);
    EXPECT_EQ(g.GruppoCensuario.size(), 5);

    // A count too large to read is an error report, not a crash, and the groups stand.
    p.eventi.clear();
    g = Esplodi({kRiga0, kRiga9, Censuario("6|3SPC |9e9999999|"), "8|1|1.0|2.0|"});
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_TRUE(p.Messaggi()[0].startsWith("Rilevato errore: Si è verificato questo errore : 6"));
    EXPECT_TRUE(p.Messaggi()[0].endsWith("Nella Routine EsplodiLibretto_Censuario"));
    EXPECT_TRUE(g.completo);
    EXPECT_EQ(g.GruppoFiduciali, QStringList{"8|1|1.0|2.0|"});
}
