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
