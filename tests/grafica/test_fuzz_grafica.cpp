// Every loader fed with many broken inputs: no crash, no hang, sane tables.
#include "generatore.h"
#include "grafica.h"
#include "registratore.h"
#include "supporto.h"

#include "testo.h"

#include <random>

using namespace tavolet;
using namespace tavolet::test;

namespace {

QString Muta(QString testo, std::mt19937& rng) {
    static const QStringList pezzi = {"|",
                                      "7|0|",
                                      "8|",
                                      "NC|",
                                      "T|",
                                      "1e308",
                                      "nan",
                                      "-",
                                      "\r\n",
                                      "|PF",
                                      "+",
                                      "L|",
                                      "[TAG",
                                      "[/TAG",
                                      "<nr>",
                                      ",",
                                      "\"",
                                      "2000]|",
                                      "6|ESTRATTO DI MAPPA|",
                                      "6|ESTRATTO DI MAPPA AGGIORNATO|"};
    const int n = 1 + int(rng() % 12);
    for (int k = 0; k < n && !testo.isEmpty(); ++k) {
        const int pos = int(rng() % testo.size());
        switch (rng() % 4) {
        case 0:
            testo.remove(pos, int(rng() % 20));
            break;
        case 1:
            testo.insert(pos, pezzi[int(rng() % pezzi.size())]);
            break;
        case 2:
            testo[pos] = QChar(ushort(rng() % 256));
            break;
        default:
            testo.truncate(pos);
            break;
        }
    }
    return testo;
}

void Controlla(ModelloGrafica& g) {
    BV_ZoomTutto(g);
    TelaRegistratore tela;
    BV_RidisegnaGrafica(g, tela);
    EXPECT_LE(tela.tratti.size(), g.ContaLinee() + 3 * g.ContaPunti());
    BV_ZoomPiu(g);
    BV_RidisegnaGrafica(g, tela);
    (void)TestoPuntiCoincidenti(g);
    MuoviMouse(g, 1, 1);
}

} // namespace

TEST(FuzzGrafica, OgniCaricatoreRegge) {
    PiattaformaFinta p;
    Stato s(p);
    std::mt19937 rng(20261122);
    QStringList basi;
    {
        OpzioniEstratto o;
        o.vertici = 300;
        o.stranezze = true;
        basi << GeneraEstratto(o);
    }
    basi << QString::fromLatin1(Dati("grafica/ESTRATTO.EMP"));
    basi << QString::fromLatin1(Dati("grafica/PROPOSTA.SUR"));
    basi << "P,A,1,2,3,x,4\r\nL,0,0,0,1,1,1,2,3,1\r\n\"Q\",5,5\r\n";
    basi << "x[TAG2000]|6|ESTRATTO DI MAPPA|<nr>8|1%|0|0|<nr>8|2%|1|1|<nr>7|3|1%|2%|1%|NC|"
            "9|9|0|[/TAG][TAG3000]|a|b|[/TAG]";
    for (int giro = 0; giro < 600; ++giro) {
        const QString testo = Muta(basi[giro % basi.size()], rng);
        const QStringList righe = RigheDiTesto(testo);
        VistaGrafica vista;
        vista.NomiNo = giro % 3 == 0;
        vista.ToponimiNo = giro % 5 == 0;
        vista.PFNo = giro % 7 == 0;
        ModelloGrafica g(&vista);
        g.PropostaSiNo = giro % 2;
        switch (giro % 5) {
        case 0:
            CaricaRigheEstratto(s, g, righe);
            break;
        case 1:
            CaricaRigheProposta(s, g, righe);
            break;
        case 2:
            CaricaRigheElaborazione(s, g, righe);
            break;
        case 3:
            CaricaRigheCSV(s, g, righe);
            break;
        default:
            EsplodiBlocchiTag(s, g, LeggiBlocchiTagDaDati(AWindows1252(testo)));
            break;
        }
        // Points come from rows 8 (or CSV rows) and labels, lines from ring sides.
        EXPECT_LE(g.ContaPunti(), 2 * righe.size() + 10);
        Controlla(g);
        // The exporters either write or report, never throw.
        EXPECT_NO_THROW({
            try {
                (void)TestoDXF(g);
                (void)TestoCopiaInFile(g);
                (void)TestoStampa(g);
                (void)TestoHTML5(g);
            } catch (const Errore&) {
            }
        });
    }
}

TEST(FuzzGrafica, UnAnelloDiDiecimilaIdEUnEstrattoConNumeriAssurdi) {
    PiattaformaFinta p;
    Stato s(p);
    QStringList righe = {"0|x|"};
    QString anello = "7|10001|";
    for (int i = 1; i <= 10000; ++i) {
        righe << QStringLiteral("8|%1%|%2|%3|").arg(i).arg(i % 100).arg(i / 100);
        anello += QString::number(i) + "%|";
    }
    anello += "1%|NC|1|1|0|";
    righe << anello;
    righe << "8|9999999%|1e308|-1e308|"
          << "8|55%|nan|abc|"
          << "8|77T|0.5|0.5|1e308|testo|";
    VistaGrafica vista;
    ModelloGrafica g(&vista);
    CaricaRigheEstratto(s, g, righe);
    EXPECT_EQ(g.ContaLinee(), 10000);
    EXPECT_EQ(g.ContaPunti(), 10004);
    Controlla(g);
    // Ten thousand points on a grid of one unit: none coincide, and the check is quick.
    EXPECT_TRUE(TestoPuntiCoincidenti(g).isEmpty()) << TestoPuntiCoincidenti(g).toStdString();
}
