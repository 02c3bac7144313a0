// The provisional extract from the list of a CAD program (the list's rules, its limits and a
// real list are read by the command line, the fuzz target and the case's screen).
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
