// The libretto and the provisional extract from the list of a CAD program: its rules compared
// with tests/dati, the plot's extract of a real list, a long outline (the area limit is the case
// screen's and the command line's).
#include "casistiche.h"
#include "supporto.h"

using namespace tavolet;
using namespace tavolet::test;

namespace {

struct ListaCad : ConPregeo {
    Casistica c;
    bool Genera(const QString& testo) {
        p.appunti = testo;
        return GeneraLibrettoDaList(s, c);
    }
    QByteArray Temp(const QString& nome) const {
        return radice.Leggi(s.amb.CartellaLavoro + QStringLiteral("\\TEMP\\") + nome);
    }
};

QString Vertice(double x, double y) {
    return QStringLiteral("    al punto  X=%1  Y=%2  Z=   0.0000")
        .arg(x, 10, 'f', 4)
        .arg(y, 10, 'f', 4);
}

} // namespace

// The plot's extract of a real list (its .DAT and provisional extract are the command line's).
TEST_F(ListaCad, ListaRealisticaNellEstrattoDelDisegno) {
    radice.Scrivi("C:\\pregeo\\estratti\\particella_123.EMP",
                  Dati("casistiche/particella_123.EMP"));
    s.doc.NomeEstratto = "particella_123.EMP";
    s.testata.MappaliLibretto = "123";
    c.Codice = "08";
    ASSERT_TRUE(Genera(QString::fromLatin1(Dati("casistiche/lista_cad.txt"))));
    EXPECT_EQ(Temp("MODESTAENTITA.EMP"), Dati("casistiche/lista_cad_MODESTAENTITA.EMP"));
}

TEST_F(ListaCad, RegoleDellaLista) {
    const QString testo =
        // a vertex before any layer: no description and no layer
        Vertice(5, 5) + CRLF +
        // "RT" inside a word and LAYER anywhere: taken for the layer RT
        "Oggetto CERTO sul LAYER corrente" + CRLF + Vertice(1, 1) + CRLF + Vertice(1, 1) + CRLF +
        Vertice(2, 1) + CRLF + Vertice(2, 2) + CRLF +
        // English listing, layer NC
        "  LWPOLYLINE  Layer: NC" + CRLF +
        "          at point  X=    3.0000  Y=    3.0000  Z=  "
        " 0.0000" +
        CRLF + "Locazione:  X=    4.0000  Y=    4.0000  Z=   0.0000" + CRLF +
        // a vertex seen before, not adjacent: old number, own row
        Vertice(1, 1) + CRLF;
    ASSERT_TRUE(Genera(testo));
    EXPECT_EQ(c.RigheSpezzate, DaWindows1252(Dati("casistiche/regole_lista.txt")));
    // The porch is kept apart, its count marked as the rest.
    EXPECT_EQ(c.RigheAParte, "7|3*|2*|3*|4*|RT|\r\n");
}

// An outline of eleven points on NC goes on in a row of count 0; the rings are counted.
TEST_F(ListaCad, ContorniLunghiNellEstrattoProvvisorio) {
    QString testo = "LAYER RC" + CRLF;
    for (auto [x, y] : {std::pair{0., 0.}, {4., 0.}, {4., 5.}, {0., 5.}, {0., 0.}})
        testo += Vertice(x, y) + CRLF;
    testo += "LAYER NC" + CRLF;
    for (int i = 0; i < 11; ++i) testo += Vertice(100 + i, 100) + CRLF;
    ASSERT_TRUE(Genera(testo));
    EXPECT_TRUE(Temp("EstrattoProvvisorio.EMP")
                    .contains("7|5|1%|2%|3%|4%|1%|NC|X1|X1|1|\r\n"
                              "7|11|5%|6%|7%|8%|9%|10%|11%|12%|13%|14%|NC|X2|X2|1|\r\n"
                              "7|0|15%|NC|\r\n6|INQUADRAMENTO|.000|.000|0|0|0|0|\r\n"));
}
