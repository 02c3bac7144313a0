// The libretto and the provisional extract from the list of a CAD program.
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
    QStringList Righe7() const {
        QStringList r;
        for (const QString& riga : Split(c.RigheSpezzate, CRLF))
            if (riga.startsWith(u"7|")) r << riga;
        return r;
    }
};

QString Vertice(double x, double y) {
    return QStringLiteral("    al punto  X=%1  Y=%2  Z=   0.0000")
        .arg(x, 10, 'f', 4)
        .arg(y, 10, 'f', 4);
}

} // namespace

// The rest of a real list is pasted on the case's screen and read by the command line.
TEST_F(ListaCad, ListaRealisticaNellEstrattoDelDisegno) {
    radice.Scrivi("C:\\pregeo\\estratti\\particella_123.EMP",
                  Dati("casistiche/particella_123.EMP"));
    s.doc.NomeEstratto = "particella_123.EMP";
    s.testata.MappaliLibretto = "123";
    c.Codice = "08";
    ASSERT_TRUE(Genera(QString::fromLatin1(Dati("casistiche/lista_cad.txt"))));
    EXPECT_EQ(Temp("MODESTAENTITA.EMP"), Dati("casistiche/lista_cad_MODESTAENTITA.EMP"));
}

TEST_F(ListaCad, NienteDaLeggere) {
    EXPECT_FALSE(Genera("   \r\n  "));
    EXPECT_FALSE(Genera(Vertice(1, 2))); // one vertex and no layer: two items are needed
    EXPECT_FALSE(Genera("Premere INVIO per continuare:\r\nSelezionare oggetti:\r\n"));
    EXPECT_EQ(p.Messaggi(), QStringList(3, "Tavolet: Nessun dato trovato in memoria!"));
    EXPECT_FALSE(radice.Leggi("C:\\pregeo\\ESTRATTI\\ESTRATTOPROVVISORIO.EMP").size() > 0);
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

TEST_F(ListaCad, ContorniLunghiEAreaLimite) {
    // A square of 4 x 5 = 20 square metres: exactly the limit, no message.
    QString testo = "LAYER RC" + CRLF;
    for (auto [x, y] : {std::pair{0., 0.}, {4., 0.}, {4., 5.}, {0., 5.}, {0., 0.}})
        testo += Vertice(x, y) + CRLF;
    // An outline of eleven points on NC: a second row with one point.
    testo += "LAYER NC" + CRLF;
    for (int i = 0; i < 11; ++i) testo += Vertice(100 + i, 100) + CRLF;
    c.Codice = "08";
    s.testata.MappaliLibretto = "45";
    ASSERT_TRUE(Genera(testo));
    EXPECT_TRUE(p.Messaggi().isEmpty());
    EXPECT_EQ(Righe7(), (QStringList{"7|5|1|2|3|4|1|RC|", "7|11|5|6|7|8|9|10|11|12|13|14|NC|",
                                     "7|0|15|NC|"}));
    // The building carries the parcels and its area on its first row.
    EXPECT_TRUE(Temp("MODESTAENTITA.EMP").contains("7|5|1*|2*|3*|4*|1*|RC|45+|45|20|\r\n"));
    // The extract: the continuation ends in NC, the rings are counted.
    const QByteArray emp = Temp("EstrattoProvvisorio.EMP");
    EXPECT_TRUE(emp.contains("7|5|1%|2%|3%|4%|1%|NC|X1|X1|1|\r\n"
                             "7|11|5%|6%|7%|8%|9%|10%|11%|12%|13%|14%|NC|X2|X2|1|\r\n"
                             "7|0|15%|NC|\r\n6|INQUADRAMENTO|.000|.000|0|0|0|0|\r\n"));

    // Another case code: the area is no matter.
    Casistica altra;
    altra.Codice = "8";
    testo.replace("Y=    5.0000", "Y=   50.0000");
    p.appunti = testo;
    ASSERT_TRUE(GeneraLibrettoDaList(s, altra));
    EXPECT_TRUE(p.Messaggi().isEmpty());
}

TEST_F(ListaCad, AnelloTroppoLungoNelRapportoErrori) {
    QString testo = "LAYER RC" + CRLF;
    for (int i = 0; i < 600; ++i) testo += Vertice(i, i % 2) + CRLF;
    EXPECT_FALSE(Genera(testo));
    ASSERT_EQ(p.Messaggi().size(), 1);
    EXPECT_TRUE(p.Messaggi()[0].contains("GeneraLibrettoDaList")) << p.Messaggi()[0].toStdString();
    // The same ring on the frame layer is not measured, so it goes through.
    testo.replace("LAYER RC", "LAYER NC");
    EXPECT_TRUE(Genera(testo));
    EXPECT_EQ(Righe7().size(), 60);
}
