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
const QString kO = "6|O|125  |000|  |     |000029390|SN|  |     |001|1 |                 |";
const QString kS = "6|S|125  |000|  |     |000000000|  |  |     |000|  |                 |";

struct RicomponiProva : ConPregeo {
    void SetUp() override {
        ConPregeo::SetUp();
        InstallaRiordino(s);
    }
    QStringList RigheTesto() const {
        QStringList r = Split(s.doc.TestoLibretto, CRLF);
        EXPECT_EQ(r.takeLast(), "");
        return r;
    }
};

} // namespace

TEST_F(RicomponiProva, LibrettoCompletoNellOrdineDiPregeo) {
    radice.Scrivi("C:\\Lavori\\COMPLETO.DAT", Dati("riordino/completo.dat"));
    ASSERT_TRUE(TrascinaLibretto(s, PercorsoLocale("C:\\Lavori\\COMPLETO.DAT")));
    subRiordinoRighe(s);
    // The model counts its title row, so no warning; nothing else to say.
    EXPECT_TRUE(p.Messaggi().isEmpty()) << p.Messaggi().join('\n').toStdString();
    EXPECT_EQ(s.doc.RigheLibretto.Riga(2), "6|Frazionamento del mappale 125|");
    EXPECT_EQ(Split(s.doc.TestoProposta, CRLF).size(), 6);

    s.doc.PercorsoLibretto = "C:\\Lavori\\RIORDINATO.DAT";
    ScriviLibrettoMisure(s);
    EXPECT_EQ(radice.Leggi("C:\\Lavori\\RIORDINATO.DAT"), Dati("riordino/completo_riordinato.dat"));

    // A regrouped libretto is a fixed point.
    const QString prima = s.doc.TestoLibretto;
    subRiordinoRighe(s);
    EXPECT_EQ(s.doc.TestoLibretto, prima);
}

TEST_F(RicomponiProva, OrdineRelazioneVuotaEDoppieVicine) {
    GruppiLibretto g;
    g.GruppoRiga0 = {kRiga0};
    g.GruppoRiga9 = {kRiga9};
    g.GruppoFiduciali = {"8|1|1.000|2.000|"};
    g.GruppoContorni = {"7|2|1|2|RC|"};
    g.GruppoRighe45 = {"4|1|0.00|"};
    g.GruppoStazioni = {"1|A|1.5|", "2|1|0.0|"};
    g.GruppoGPS = {"6|L1|x|"};
    g.GruppoPoligonali = {"3|A|B|"};
    g.GruppoAppunti = {"6| - nota|"};
    g.GruppoCommento = {"6|Commento|"};
    g.GruppoCensuario = {kO};
    // Only its two markers: the Relazione goes.
    g.GruppoRelazione = {"6|***** Relazione  Tecnica *****|", "6|*****   Fine   Relazione *****|"};
    // The last row of the model again, in lower case, at the head of the Proposta: the two
    // meet after the join and one of them stays.
    g.GruppoProposta = {kO.toLower(), "8|1|1.000|2.000|", "7|2|1|2|rc|"};
    g.completo = true;
    ASSERT_TRUE(RicomponiLibretto(s, g));
    EXPECT_EQ(RigheTesto(),
              (QStringList{kRiga0, kRiga9, "6|Commento|", "6| - nota|", "3|A|B|", "6|L1|x|",
                           "1|A|1.5|", "2|1|0.0|", "4|1|0.00|", "7|2|1|2|RC|", "8|1|1.000|2.000|",
                           kO, "8|1|1.000|2.000|", "7|2|1|2|rc|"}));

    // Three rows are a Relazione.
    g.GruppoRelazione.insert(1, "6|Testo|");
    ASSERT_TRUE(RicomponiLibretto(s, g));
    EXPECT_EQ(RigheTesto().mid(9, 4),
              (QStringList{"7|2|1|2|RC|", "6|***** Relazione  Tecnica *****|", "6|Testo|",
                           "6|*****   Fine   Relazione *****|"}));
}

TEST_F(RicomponiProva, ModelloCensuarioDiGorizia) {
    s.doc.TestoLibretto = Join({kRiga0, kRiga9, "8|1|1.000|2.000|", kO, kS}, CRLF) + CRLF;
    s.testata.SiglaProvinciaLibretto = "GO";
    GruppiLibretto g = EsplodiLibretto(s);
    ASSERT_TRUE(RicomponiLibretto(s, g));
    p.eventi.clear(); // the count warning of a model without its head
    // Fields 2, 5 and 9 take ten characters, field 12 two blanks: a standard row stays 70 wide.
    const QString o = "6|O|125       |000|  |          |000029390|SN|  |          |001|1 |  |";
    EXPECT_EQ(o.size(), 70);
    EXPECT_EQ(RigheTesto().mid(3),
              (QStringList{o, "6|S|125       |000|  |          |000000000|  |  "
                              "|          |000|  |  |"}));

    // A short row, as the head row of the model, can't be rewritten: the report, and the
    // document as it was.
    s.doc.TestoLibretto =
        Join({kRiga0, kRiga9, QString("6|51FTP|000|").leftJustified(69) + "|", kO}, CRLF) + CRLF;
    const QString prima = s.doc.TestoLibretto;
    g = EsplodiLibretto(s);
    EXPECT_FALSE(RicomponiLibretto(s, g));
    EXPECT_EQ(s.doc.TestoLibretto, prima);
    EXPECT_EQ(p.Messaggi(),
              QStringList{"Rilevato errore: Si è verificato questo errore : 9\r\nIndice non "
                          "incluso nell'intervallo\r\nNella Routine RicomponiLibretto_Censuario"});
}

// Head, comment, appunti, Relazione, rows 8, model and Proposta come from the .DAT; the
// measured part from the .LXB beside it, in its own order.
TEST_F(RicomponiProva, CompagnoLxbSostituisceIlRilievo) {
    radice.Scrivi("C:\\Lavori\\COMPLETO.DAT", Dati("riordino/completo.dat"));
    radice.Scrivi("C:\\Lavori\\COMPLETO.LXB", Dati("riordino/completo.lxb"));
    ASSERT_TRUE(TrascinaLibretto(s, PercorsoLocale("C:\\Lavori\\completo.lxb")));
    EXPECT_TRUE(s.doc.PercorsoLibretto.endsWith("COMPLETO.DAT"));
    EXPECT_EQ(AWindows1252(s.doc.TestoLibretto), Dati("riordino/completo_da_lxb.dat"));
    EXPECT_EQ(s.testata.Tecnico, "ROSSI MARIO");
    EXPECT_EQ(s.doc.NomeEstratto, "G224_0010.EMP");

    // Without the .LXB on disk the .DAT is loaded as it stands.
    radice.Scrivi("C:\\Lavori\\SOLO.DAT", Dati("riordino/completo.dat"));
    ASSERT_TRUE(TrascinaLibretto(s, PercorsoLocale("C:\\Lavori\\SOLO.LXB")));
    EXPECT_EQ(RigheTesto().size(), 44);
    EXPECT_EQ(RigheTesto()[2], "6|Frazionamento del mappale 125|");
}
