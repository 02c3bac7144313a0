// Joining extracts: the rings of both inputs read back whole, the join against its plain steps,
// the rows of the result, the files.
#include "autoallestito.h"
#include "estratto.h"
#include "generatore.h"
#include "riferimento_unione.h"
#include "unisci.h"

#include "ambiente.h"
#include "errore.h"
#include "supporto.h"
#include "testo.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace tavolet;
using namespace tavolet::test;

namespace {

// Both versions give the same text, or the same error.
void Confronta(QString a, QString b, const std::string& caso) {
    // The files are bytes: what the code page cannot hold is not in them.
    a = DaWindows1252(AWindows1252(a));
    b = DaWindows1252(AWindows1252(b));
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

// Every ring expected is in the extract once, on points at its coordinates (a merge moves a
// vertex less than the tolerance), and no two points are as close as the tolerance.
void AnelliInteri(const Estratto& e, const CoppiaConAnelli& c, bool riscritto,
                  const std::string& caso) {
    QHash<QString, std::pair<double, double>> punti;
    QList<std::pair<double, double>> ordinati;
    for (const QString& riga : e.Punti) {
        const QStringList f = riga.split('|');
        const std::pair<double, double> p(f[2].toDouble(), f[3].toDouble());
        if (!punti.contains(f[1])) punti.insert(f[1], p);
        ordinati.append(p);
    }
    std::sort(ordinati.begin(), ordinati.end());
    for (qsizetype i = 0; i < ordinati.size(); ++i)
        for (qsizetype j = i + 1;
             j < ordinati.size() && ordinati[j].first - ordinati[i].first < 0.001; ++j)
            ASSERT_GE(std::hypot(ordinati[j].first - ordinati[i].first,
                                 ordinati[j].second - ordinati[i].second),
                      0.001)
                << caso;
    ASSERT_EQ(e.SETTE.size(), c.anelli.size()) << caso;
    QSet<QString> visti;
    for (const QString& riga : e.SETTE) {
        const QStringList f = riga.split('|');
        const qsizetype n = f.size() - 1;
        ASSERT_GE(n, 7) << caso;
        const QString etichetta = f[n - 3];
        ASSERT_TRUE(c.anelli.contains(etichetta) && !visti.contains(etichetta)) << caso;
        visti.insert(etichetta);
        const AnelloAtteso& a = c.anelli[etichetta];
        EXPECT_EQ(f[n - 2], a.nome) << caso;
        ASSERT_EQ(f[1].toInt(), a.vertici.size()) << caso;
        ASSERT_EQ(n - 6, a.vertici.size()) << caso;
        double doppia = 0;
        for (qsizetype k = 0; k < a.vertici.size(); ++k) {
            ASSERT_TRUE(punti.contains(f[k + 2])) << caso << " " << f[k + 2].toStdString();
            const auto [nord, est] = punti[f[k + 2]];
            EXPECT_LT(std::hypot(nord - a.vertici[k].first, est - a.vertici[k].second), 0.001)
                << caso << " " << etichetta.toStdString();
            if (k > 0)
                doppia += (a.vertici[k].second - a.vertici[k - 1].second) *
                          (a.vertici[k].first + a.vertici[k - 1].first);
        }
        // The join keeps the area; a save works it out again (whole metres) for the rings
        // that lose no island. Below a square metre the save writes the first digit of the
        // exponent form: not the join's business.
        bool isole = std::fabs(doppia) < 2;
        for (const AnelloAtteso& altro : c.anelli) isole = isole || altro.nome == a.nome + '-';
        if (!riscritto) {
            EXPECT_EQ(f[n - 1], a.area) << caso;
        } else if (!isole) {
            EXPECT_NEAR(f[n - 1].toDouble(), std::fabs(doppia) / 2, 1.5) << caso;
        }
    }
}

} // namespace

TEST(Unione, GliAnelliDiEntrambiTornanoInteriDopoLetturaERiscrittura) {
    PiattaformaFinta piattaforma;
    Stato stato(piattaforma);
    int fusi = 0, lunghi = 0;
    for (unsigned seme = 1; seme <= 300; ++seme) {
        const CoppiaConAnelli c = GeneraCoppiaConAnelli(seme);
        const std::string caso = "seme " + std::to_string(seme);
        Confronta(c.base, c.aggiunto, caso);
        const QString unito = UnisciTestiEstratti(c.base, c.aggiunto);
        fusi += int(c.base.count("\r\n8|") + c.aggiunto.count("\r\n8|") - unito.count("\r\n8|"));
        lunghi += int(unito.count("\r\n7|0|"));
        Estratto e = EsplodiTestoEstratto(stato, unito);
        AnelliInteri(e, c, false, caso);
        const std::optional<QString> riscritto = ComponiEstratto(stato, e);
        ASSERT_TRUE(riscritto) << caso;
        AnelliInteri(EsplodiTestoEstratto(stato, *riscritto), c, true, caso);
    }
    EXPECT_EQ(stato.ErroriMostrati, 0);
    EXPECT_GT(fusi, 3000); // shared and near vertices do merge
    EXPECT_GT(lunghi, 1000);
}

TEST(Unione, UgualeAiPassiSempliciAncheSuEstrattiStrani) {
    for (unsigned seme = 1; seme <= 100; ++seme) {
        const CoppiaEstratti c = GeneraCoppia(seme, 20 + int(seme % 13) * 25);
        Confronta(c.base, c.aggiunto, "seme " + std::to_string(seme));
    }
    // Whole generated extracts, odd ones included, joined with others and with themselves.
    for (unsigned seme = 1; seme <= 40; ++seme) {
        const QString a = GeneraEstratto({60 + int(seme) * 7, seme, seme % 2 == 0});
        const QString b = GeneraEstratto({50, seme + 100, seme % 3 == 0});
        Confronta(a, b, "estratti " + std::to_string(seme));
        Confronta(a, a, "con se stesso " + std::to_string(seme));
    }
    // Points far outside the grid of the others, and rows of a kind past 9.
    const CoppiaEstratti c = GeneraCoppia(7, 60);
    Confronta(c.base + "8|901%|1e12|-1e12|\r\n12|x|\r\n",
              c.aggiunto + "8|902%|-3e11|4e11|\r\n8|903%|1e12|-1e12|\r\n", "fuori griglia");
    Confronta(c.base, "8|1%|5e11|5e11|\r\n" + c.aggiunto, "fuori griglia in testa");
}

// Hand-made pairs beside the bytes of their join (tests/dati/estratti/unione/LEGGIMI.txt).
TEST(Unione, RigheDelRisultato) {
    const QString u = "estratti/unione/";
    const QStringList casi[] = {{"rinumerati_a", "rinumerati_b", "rinumerati_unito"},
                                {"vicini_a", "vicini_b", "vicini_unito"},
                                {"vicini_a", "vicini_a", "vicini_a_con_se_stesso"},
                                {"dodici_a", "dodici_b", "dodici_unito"}};
    for (const QStringList& c : casi)
        EXPECT_EQ(UnisciEstratti(Dati(u + c[0] + ".EMP"), Dati(u + c[1] + ".EMP")),
                  Dati(u + c[2] + ".EMP"))
            << c[2].toStdString();

    // The ring of twelve ids reads back whole, and is laid out again the same way.
    PiattaformaFinta piattaforma;
    Stato stato(piattaforma);
    const QString unito = DaWindows1252(Dati(u + "dodici_unito.EMP"));
    Estratto e = EsplodiTestoEstratto(stato, unito);
    ASSERT_EQ(e.SETTE.size(), 1);
    EXPECT_EQ(e.SETTE[0], "7|12|1%|3%|4%|5%|6%|7%|8%|9%|10%|11%|12%|1%|NC|77|77|9|");
    EXPECT_EQ(SpezzaRigaSette(e.SETTE[0]) + "\r\n", unito.mid(unito.indexOf("\r\n7|") + 2));
    EXPECT_EQ(SpezzaRigaSette("7|99|1%|2%|3%|1%|NC|5|5|20|"), "7|4|1%|2%|3%|1%|NC|5|5|20|");
    EXPECT_EQ(SpezzaRigaSette("7|3|NC|5|5|20|"), ""); // a ring of no point
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
    scrivi("B.EMP", "0|15032024|P|A001|00121|1|PD|0|0|0|\r\n8|1%|10|10|\r\n8|2%|20|10|\r\n"
                    "8|3%|20|20|\r\n7|4|1%|2%|3%|1%|NC|2|2|50|\r\n");
    scrivi("C.EMP", "0|15032024|P|B002|00121|1|PD|0|0|0|\r\n8|1%|30|30|\r\n"
                    "7|2|1%|1%|NC|3|3|0|\r\n");

    // The sum of two is the screen's; here the join of every extract of the comune.
    QList<std::pair<int, int>> passi;
    EXPECT_EQ(SommaEstrattiComune(s, "A.EMP",
                                  [&](int a, int b) {
                                      passi.append({a, b});
                                  }),
              "A001.EMP");
    EXPECT_EQ(passi, (QList<std::pair<int, int>>{{1, 1}})); // B; C is of another comune
    const Estratto e = EsplodiEstratto(s, "A001.EMP");
    EXPECT_EQ(e.Punti.size(), 5);
    EXPECT_EQ(e.ZERO[0], "0|AUTOALLESTITO|0|0|0|0|0|0|0|0|");
    // The folder given without its last bar and no first extract: the first of the comune's
    // is the base; a comune with none is the error report.
    EXPECT_EQ(SommaComuneInCartella(s, "C:\\pregeo\\estratti", "A001", ""), "A001.EMP");
    EXPECT_EQ(EsplodiEstratto(s, "A001.EMP").Punti.size(), 5);
    EXPECT_EQ(SommaComuneInCartella(s, cartella, "Z999", ""), "");
    EXPECT_TRUE(p.Messaggi().last().contains("Nessun estratto del comune Z999"));
    // The province of a comune from Pregeo's table; none for one it does not hold.
    CaricaComuni(s);
    EXPECT_EQ(ProvinciaDiCompetenza(s, " G224 "), "PD");
    EXPECT_EQ(ProvinciaDiCompetenza(s, "Z999"), "");

    // A missing second extract: the error report, and no temporary file left.
    const QString temp = PercorsoTempestratto(s);
    ASSERT_TRUE(EsisteFile(temp));
    EXPECT_FALSE(UnisciDueEstratti(s, "A.EMP", "MANCA.EMP"));
    EXPECT_FALSE(EsisteFile(temp));
    EXPECT_TRUE(p.Messaggi().last().contains("Nella Routine UnisciDueEstratti"));
}
