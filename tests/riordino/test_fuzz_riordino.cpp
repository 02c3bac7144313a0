// Random libretti through the regrouping: no crash, no row invented, failures reported.
#include "libretto.h"
#include "piattaforma_finta.h"
#include "riordino.h"

#include <gtest/gtest.h>

#include <random>

using namespace tavolet;

namespace {

QString RigaCasuale(std::mt19937& g) {
    static const QStringList inizi = {"0|",
                                      "9|",
                                      "1|",
                                      "2|",
                                      "3|",
                                      "4|",
                                      "5|",
                                      "6|",
                                      "7|",
                                      "8|",
                                      "6| -",
                                      "6|BAS|",
                                      "6|L1|",
                                      "6|ESTRATTO DI MAPPA|",
                                      "6|***** Relazione  Tecnica *****|",
                                      "6|*****   Fine   Relazione *****|",
                                      "6|51FTP|",
                                      "6|3SPC |",
                                      "12|",
                                      "1.5|",
                                      "-3|",
                                      "A",
                                      " 6|",
                                      "",
                                      "|",
                                      "6|DettaglioTipoAgg=",
                                      "6|Dati per aggiornare il D.B. Censuario"};
    static const QStringList pezzi = {"|",
                                      ",",
                                      "P",
                                      "10",
                                      "4",
                                      " ",
                                      "1.0,2.0",
                                      "PDOP=",
                                      "|RTK|",
                                      "||",
                                      "9e9999999",
                                      "è",
                                      "PF01/0010/G224",
                                      "|GDOP=2"};
    std::uniform_int_distribution<int> inizio(0, int(inizi.size()) - 1);
    std::uniform_int_distribution<int> pezzo(0, int(pezzi.size()) - 1);
    std::uniform_int_distribution<int> quanti(0, 8);
    QString r = inizi[inizio(g)];
    for (int i = quanti(g); i > 0; --i) r += pezzi[pezzo(g)];
    // Now and then a row of the censuary width, with whatever bars it happens to have.
    if (std::uniform_int_distribution<int>(0, 5)(g) == 0) r = r.leftJustified(70, u' ', true);
    return r;
}

} // namespace

TEST(FuzzRiordino, LibrettiCasuali) {
    std::mt19937 g(20260115);
    int rifiutati = 0, riusciti = 0;
    for (int giro = 0; giro < 400; ++giro) {
        PiattaformaFinta p;
        Stato s(p);
        const bool gorizia = giro % 3 == 0;
        s.testata.SiglaProvinciaLibretto = gorizia ? "GO" : "PD";
        QStringList righe;
        for (int i = std::uniform_int_distribution<int>(0, 40)(g); i > 0; --i)
            righe << RigaCasuale(g);
        s.doc.TestoLibretto = righe.join(CRLF) + (giro % 5 ? CRLF : QString());
        const QStringList pezzi = Split(s.doc.TestoLibretto, CRLF);

        const GruppiLibretto gruppi = EsplodiLibretto(s);
        ASSERT_TRUE(gruppi.completo);
        bool corta = false;
        for (const QString& r : gruppi.GruppoCensuario)
            if (Split(r, "|").size() < 13) corta = true;
        const QString prima = s.doc.TestoLibretto;
        const int errori = s.ErroriMostrati;
        const bool riuscito = RicomponiLibretto(s, gruppi);
        // Under "GO" a short censuary row is a report and leaves the document alone.
        EXPECT_EQ(riuscito, !(gorizia && corta));
        EXPECT_EQ(s.ErroriMostrati - errori, riuscito ? 0 : 1);
        ++(riuscito ? riusciti : rifiutati);
        if (!riuscito) {
            EXPECT_EQ(s.doc.TestoLibretto, prima);
            continue;
        }
        if (gorizia && !gruppi.GruppoCensuario.isEmpty()) continue; // rows rewritten on purpose
        // Every row comes from the document; station and GPS names may lose their blanks.
        QStringList uscita = Split(s.doc.TestoLibretto, CRLF);
        EXPECT_EQ(uscita.takeLast(), "");
        for (const QString& r : std::as_const(uscita)) {
            if (pezzi.contains(r)) continue;
            const bool rinominata =
                gruppi.GruppoStazioni.contains(r) || gruppi.GruppoGPS.contains(r);
            EXPECT_TRUE(rinominata) << r.toStdString();
        }
        // The silent regrouping of the same text goes through as well.
        subRiordinoRighe(s);
        EXPECT_GE(s.doc.RigheLibretto.Conta(), 2);
    }
    // Both roads were taken.
    EXPECT_GT(rifiutati, 10);
    EXPECT_GT(riusciti, 100);
}
