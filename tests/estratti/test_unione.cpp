// Joining extracts: the grid against every pair, the rows of the result, the files.
#include "estratto.h"
#include "generatore.h"
#include "riferimento_unione.h"
#include "unisci.h"

#include "errore.h"
#include "supporto.h"

#include <gtest/gtest.h>

using namespace tavolet;
using namespace tavolet::test;

namespace {

// Both versions give the same text, or the same error.
void Confronta(const QString& a, const QString& b, const std::string& caso) {
    int erroreVeloce = 0, erroreLento = 0;
    QString veloce, lento;
    try {
        veloce = UnisciTestiEstratti(a, b);
    } catch (const Errore& e) {
        erroreVeloce = e.numero;
    }
    try {
        lento = UnisciRiferimento(a, b);
    } catch (const Errore& e) {
        erroreLento = e.numero;
    }
    ASSERT_EQ(erroreVeloce, erroreLento) << caso;
    ASSERT_EQ(veloce, lento) << caso;
}

const QString kTesta = "0|AUTOALLESTITO|0|0|0|0|0|0|0|0|\r\n";

} // namespace

TEST(Unione, GrigliaUgualeAlConfrontoDiOgniCoppia) {
    int fusi = 0;
    for (unsigned seme = 1; seme <= 150; ++seme) {
        const CoppiaEstratti c = GeneraCoppia(seme, 20 + int(seme % 13) * 25);
        Confronta(c.base, c.aggiunto, "seme " + std::to_string(seme));
        const QString r = UnisciTestiEstratti(c.base, c.aggiunto);
        fusi += int(c.base.count("\r\n8|") + c.aggiunto.count("\r\n8|") - r.count("\r\n8|"));
    }
    EXPECT_GT(fusi, 1000); // the pairs do overlap
    // Whole generated extracts, odd ones included, joined with others and with themselves.
    for (unsigned seme = 1; seme <= 40; ++seme) {
        const QString a = GeneraEstratto({60 + int(seme) * 7, seme, seme % 2 == 0});
        const QString b = GeneraEstratto({50, seme + 100, seme % 3 == 0});
        Confronta(a, b, "estratti " + std::to_string(seme));
        Confronta(a, a, "con se stesso " + std::to_string(seme));
    }
}

TEST(Unione, RigheDelRisultato) {
    const QString a = "0|x|\r\n8|1%|0|0|\r\n8|2%|0|10|\r\n8|3%|10|10|\r\n8|4%|10|0.001|\r\n"
                      "7|5|1%|2%|3%|4%|1%|NC|7|7|50|\r\n6|INQUADRAMENTO|1|2|3|4|5|6|\r\n";
    // 1% falls on the second's first point; 4% stays: 0.001 apart is not below the tolerance.
    // The second's 2% and 3% are one point, and its ring keeps both references to it.
    const QString b = "0|y|\r\n8|1%|0.0004|0|\r\n8|2%|10|0|\r\n8|3%|10|0|\r\n"
                      "7|4|1%|2%|3%|1%|NC|8|8|5|\r\n";
    EXPECT_EQ(UnisciTestiEstratti(a, b),
              kTesta + "8|1%|0|10|\r\n8|2%|10|10|\r\n8|3%|10|0.001|\r\n8|4%|0.0004|0|\r\n"
                       "8|5%|10|0|\r\n"
                       "7|5|4%|1%|2%|3%|4%|NC|7|7|50|\r\n7|4|4%|5%|5%|4%|NC|8|8|5|\r\n");

    // Joined with itself: one set of points, each ring twice; never a framing row.
    const QString stesso = UnisciTestiEstratti(a, a);
    EXPECT_EQ(stesso.count("\r\n8|"), 4);
    EXPECT_EQ(stesso.count("\r\n7|5|"), 2);
    EXPECT_FALSE(stesso.contains("INQUADRAMENTO"));

    // No point in common: all of them, renumbered after the first's.
    const QString lontano = "0|\r\n8|1%|500|500|\r\n8|2%|501|500|\r\n8|3%|501|501|\r\n"
                            "7|4|1%|2%|3%|1%|NC|9|9|1|\r\n";
    const QString r = UnisciTestiEstratti(a, lontano);
    EXPECT_EQ(r.count("\r\n8|"), 7);
    EXPECT_TRUE(r.contains("7|4|5%|6%|7%|5%|NC|9|9|1|"));
}

TEST(Unione, SpezzaRigaSetteCodaSullUltimaRiga) {
    QString riga = "7|12";
    for (int k = 1; k <= 12; ++k) riga += QStringLiteral("|%1%").arg(k);
    riga += "|NC|257|257|13990|";
    EXPECT_EQ(SpezzaRigaSette(riga), "7|12|1%|2%|3%|4%|5%|6%|7%|8%|9%|10%|NC|\r\n"
                                     "7|0|11%|12%|NC|257|257|13990|");
    EXPECT_EQ(SpezzaRigaSette("7|99|1%|2%|3%|1%|NC|5|5|20|"), "7|4|1%|2%|3%|1%|NC|5|5|20|");
    QString dieci = "7|10";
    for (int k = 1; k <= 10; ++k) dieci += QStringLiteral("|%1%").arg(k);
    EXPECT_EQ(SpezzaRigaSette(dieci + "|NC|A|A|1|").count("\r\n"), 0);
    EXPECT_THROW(SpezzaRigaSette("7|3|1%|"), Errore);
}

struct UnioneSuFile : ConPregeo {};

TEST_F(UnioneSuFile, TemporaneoSommaEComune) {
    const QString cartella = "C:\\pregeo\\estratti\\";
    auto scrivi = [&](const QString& nome, const QString& testo) {
        radice.Scrivi(cartella + nome, AWindows1252(testo));
    };
    scrivi("A.EMP", "0|15032024|P|A001|00120|1|PD|0|0|0|\r\n8|1%|0|0|\r\n8|2%|0|10|\r\n"
                    "8|3%|10|10|\r\n7|4|1%|2%|3%|1%|NC|1|1|50|\r\n");
    radice.Scrivi(cartella + "A.TIF", "tif");
    scrivi("B.EMP", "0|15032024|P|A001|00121|1|PD|0|0|0|\r\n8|1%|10|10|\r\n8|2%|20|10|\r\n"
                    "8|3%|20|20|\r\n7|4|1%|2%|3%|1%|NC|2|2|50|\r\n");
    scrivi("C.EMP", "0|15032024|P|B002|00121|1|PD|0|0|0|\r\n8|1%|30|30|\r\n"
                    "7|2|1%|1%|NC|3|3|0|\r\n");

    ASSERT_TRUE(UnisciDueEstratti(s, "A.EMP", "B.EMP"));
    const QString temp = PercorsoTempestratto(s);
    EXPECT_TRUE(EsisteFile(temp));
    EXPECT_EQ(GeneraSommaEstratti(s, "A.EMP", "AB"), "AB.emp");
    EXPECT_EQ(radice.Leggi(cartella + "AB.emp"), LeggiByte(temp));
    EXPECT_EQ(radice.Leggi(cartella + "AB.TIF"), "tif");
    EXPECT_EQ(LeggiTesto(temp).count("\r\n8|"), 5);

    // A missing second extract: the error report, and no temporary file left.
    EXPECT_FALSE(UnisciDueEstratti(s, "A.EMP", "MANCA.EMP"));
    EXPECT_FALSE(EsisteFile(temp));
    EXPECT_TRUE(p.Messaggi().last().contains("Nella Routine UnisciDueEstratti"));

    QList<std::pair<int, int>> passi;
    EXPECT_EQ(SommaEstrattiComune(s, "A.EMP",
                                  [&](int a, int b) {
                                      passi.append({a, b});
                                  }),
              "A001.EMP");
    EXPECT_EQ(passi, (QList<std::pair<int, int>>{{1, 1}})); // B: AB is self-made, C elsewhere
    const Estratto e = EsplodiEstratto(s, "A001.EMP");
    EXPECT_EQ(e.Punti.size(), 5);
    EXPECT_EQ(e.ZERO[0], "0|AUTOALLESTITO|0|0|0|0|0|0|0|0|");
}
