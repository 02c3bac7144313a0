// Runs of a type imploded, and the modest building repaired against the parcel.
#include "casistiche.h"
#include "supporto.h"

#include <QRegularExpression>

using namespace tavolet;
using namespace tavolet::test;

// Runs of two types: each run ends with its code, the same code twice makes one run (the
// wrapping and its way back are the command line's).
TEST(Proposta, ImplodiUnisceLeCorseDelloStessoTipo) {
    QString misto = "7|6|1%|2%|NC|3*|RC|4*|5*|1%|RC|7+|7|40|";
    Implodi_Proposta(misto);
    EXPECT_EQ(misto, "7|6|1%|2%|NC|7+|7|40|\r\n7|0|3*|4*|5*|1%|RC|");
}

// The repair of the proposal against the parcel is run by the command line and the case's
// screen; here a building of twelve points with one side on the parcel (1-2), wrapped again.
TEST_F(ConPregeo, ModestaEntitaLatiSullaParticella) {
    radice.Scrivi("C:\\pregeo\\estratti\\particella_123.EMP",
                  Dati("casistiche/particella_123.EMP"));
    s.doc.NomeEstratto = "particella_123.EMP";
    s.testata.MappaliLibretto = "123";
    Casistica c;
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
}
