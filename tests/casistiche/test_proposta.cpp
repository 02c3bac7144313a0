// Outlines exploded and imploded, and the proposal repaired against the parcel.
#include "casistiche.h"
#include "supporto.h"

#include <QRegularExpression>

using namespace tavolet;
using namespace tavolet::test;

namespace {

QString Anello(int n, const QString& marca, const QString& tipo) {
    QString r = "7|" + QString::number(n + 1) + "|";
    for (int i = 1; i <= n; ++i) r += QString::number(i) + marca + "|";
    return r + "1" + marca + "|" + tipo + "|";
}

} // namespace

// Runs of two types: each run ends with its code, the same code twice makes one run (the
// wrapping and its way back are the command line's).
TEST(Proposta, ImplodiUnisceLeCorseDelloStessoTipo) {
    QString misto = "7|6|1%|2%|NC|3*|RC|4*|5*|1%|RC|7+|7|40|";
    Implodi_Proposta(misto);
    EXPECT_EQ(misto, "7|6|1%|2%|NC|7+|7|40|\r\n7|0|3*|4*|5*|1%|RC|");
}

TEST_F(ConPregeo, SistemaPropostaSulleParticelle) {
    radice.Scrivi("C:\\pregeo\\estratti\\particella_123.EMP",
                  Dati("casistiche/particella_123.EMP"));
    s.doc.NomeEstratto = "particella_123.EMP";
    s.testata.MappaliLibretto = "123";
    QString t = "8|1*|200.000|100.000|\r\n8|2*|200.000|106.000|\r\n8|3*|204.000|106.000|\r\n"
                "8|4*|204.000|100.000|\r\n"
                "7|5|1*|2*|3*|4*|1*|RC|123+|123|24|\r\n6|un commento|\r\n";
    SistemaProposta(s, t, "7|3*|2*|9*|3*|RT|\r\n");
    EXPECT_EQ(t, "8|3*|204.000|106.000|\r\n8|4*|204.000|100.000|\r\n"
                 "7|3*|2*|9*|3*|RT|\r\n"
                 "7|5|1%|2%|NC|123+|123|24|\r\n7|0|3*|4*|1%|RC|\r\n");

    // Coordinates that differ in the third decimal do not merge: the outline stays new.
    QString lontano = "8|1*|200.001|100.000|\r\n7|3|1*|5*|1*|RC|123+|123|0|\r\n";
    SistemaProposta(s, lontano, QString());
    EXPECT_EQ(lontano, "8|1*|200.001|100.000|\r\n7|3|1*|5*|1*|RC|123+|123|0|\r\n");

    // Another parcel named in the libretto: nothing of the extract matches.
    s.testata.MappaliLibretto = "999";
    QString altro = "8|1*|200.000|100.000|\r\n7|2|1*|1*|RC|999+|999|0|\r\n";
    SistemaProposta(s, altro, QString());
    EXPECT_EQ(altro, "8|1*|200.000|100.000|\r\n7|2|1*|1*|RC|999+|999|0|\r\n");
    EXPECT_TRUE(p.eventi.isEmpty());
}

TEST_F(ConPregeo, ModestaEntitaLatiSullaParticella) {
    radice.Scrivi("C:\\pregeo\\estratti\\particella_123.EMP",
                  Dati("casistiche/particella_123.EMP"));
    s.doc.NomeEstratto = "particella_123.EMP";
    s.testata.MappaliLibretto = "123";
    Casistica c;
    // A building of twelve points with one side on the parcel (1-2).
    QString righe;
    const double xs[] = {100, 106, 106, 105, 105, 104, 104, 103, 103, 102, 102, 100};
    const double ys[] = {200, 200, 201, 201, 202, 202, 203, 203, 204, 204, 205, 205};
    for (int i = 0; i < 12; ++i)
        righe += QStringLiteral("8|%1|%2|%3|SF|\r\n")
                     .arg(i + 1)
                     .arg(Formato(ys[i], "###########.##0"), Formato(xs[i], "###########.##0"));
    righe += "8|1|200.000|100.000|SF|\r\n6|Contorno fabbricato|\r\n" +
             AvvolgiDieciPunti("7|13|1|2|3|4|5|6|7|8|9|10|11|12|1|RC|");
    c.RigheProposta = righe;
    SistemaModestaEntita(s, c);
    EXPECT_TRUE(c.RigheProposta.endsWith("6|Contorno fabbricato|\r\n7|13|1|2|NC|\r\n"
                                         "7|0|3|4|5|6|7|8|9|10|11|12|RC|\r\n7|0|1|RC|\r\n"))
        << c.RigheProposta.toStdString();
    EXPECT_EQ(Split(c.RigheProposta, CRLF).filter(QRegularExpression("^8\\|")).size(), 13);

    // A building inside the parcel with no shared side stays as it was.
    Casistica dentro;
    dentro.RigheProposta = "8|1|190.000|100.000|SF|\r\n8|2|190.000|101.000|SF|\r\n"
                           "8|3|191.000|101.000|SF|\r\n8|1|190.000|100.000|SF|\r\n"
                           "6|Contorno fabbricato|\r\n7|4|1|2|3|1|RC|\r\n";
    const QString prima = dentro.RigheProposta;
    SistemaModestaEntita(s, dentro);
    EXPECT_EQ(dentro.RigheProposta, prima);
}
