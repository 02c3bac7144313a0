#include "generatore_cxf.h"

#include <QList>
#include <QPair>

#include <random>

namespace tavolet::test {

namespace {

struct GeneratoreCxf {
    std::mt19937 rng;
    bool strano;
    QString t;
    int caso(int a, int b) { return std::uniform_int_distribution<int>(a, b)(rng); }
    void voce(const QString& v) {
        t += v;
        t += strano && caso(0, 30) == 0 ? QStringLiteral(",") : QStringLiteral("\r\n");
    }
    QString numero(double v) {
        QString s = QString::number(v, 'f', 3);
        if (strano) {
            switch (caso(0, 12)) {
            case 0: // the same value, another text
                while (s.endsWith(u'0')) s.chop(1);
                break;
            case 1:
                s = QString::number(v, 'E', 6);
                break;
            case 2:
                s = QString::number(v, 'e', 6);
                break;
            default:
                break;
            }
        }
        return QStringLiteral("  ") + s;
    }
    void vertice(double x, double y) {
        voce(numero(x));
        voce(numero(y));
    }
};

using Anello = QList<QPair<double, double>>;

Anello Quadrato(double x, double y, double lato) {
    return {{x, y}, {x + lato, y}, {x + lato, y + lato}, {x, y + lato}, {x, y}};
}

} // namespace

FoglioCxf GeneraCxf(const OpzioniCxf& o) {
    GeneratoreCxf g{std::mt19937(o.seme), o.stranezze, {}};
    FoglioCxf f;
    f.sup = QStringLiteral("H501D0767  SUPERFICI\r\n");
    g.voce(QStringLiteral("MAPPA"));
    g.voce(QStringLiteral("H501D076700"));
    g.voce(QStringLiteral("    4000.000"));
    const double x0 = 280000 + g.caso(0, 999), y0 = 4637000 + g.caso(0, 999);
    const double passo = 20 + g.caso(0, 30);
    // Corners of the grid, nudged so that the sort of their texts is not the sort of the grid.
    QList<QList<QPair<double, double>>> angoli(o.righe + 1);
    for (int r = 0; r <= o.righe; ++r)
        for (int c = 0; c <= o.colonne; ++c)
            angoli[r].append({x0 + c * passo + g.caso(-500, 500) / 100.0,
                              y0 + r * passo + g.caso(-500, 500) / 100.0});
    int numero = 1;
    for (int r = 0; r < o.righe; ++r) {
        for (int c = 0; c < o.colonne; ++c) {
            QString nome = QString::number(numero++);
            if (o.stranezze && g.caso(0, 40) == 0) nome += QStringLiteral("%");
            if (o.stranezze && g.caso(0, 40) == 0) nome = u'>' + nome;
            // The outer ring, closed, with a point on each side now and then.
            Anello esterno;
            const QList<QPair<double, double>> giro = {angoli[r][c], angoli[r][c + 1],
                                                       angoli[r + 1][c + 1], angoli[r + 1][c]};
            for (int k = 0; k < 4; ++k) {
                esterno.append(giro[k]);
                if (g.caso(0, 5) == 0)
                    esterno.append({(giro[k].first + giro[(k + 1) % 4].first) / 2 + 0.25,
                                    (giro[k].second + giro[(k + 1) % 4].second) / 2});
            }
            esterno.append(giro[0]);
            QList<Anello> isole;
            const int quante = g.caso(0, 6) == 0 ? g.caso(1, 3) : 0;
            for (int k = 0; k < quante; ++k)
                isole.append(Quadrato(giro[0].first + 3 + 4 * k, giro[0].second + 3, 2));
            if (o.stranezze && g.caso(0, 60) == 0) esterno.clear();
            // Some texts between the borders, one of them the word that opens a border.
            if (g.caso(0, 4) == 0) {
                g.voce(QStringLiteral("TESTO"));
                g.voce(nome);
                g.voce(QStringLiteral("  12"));
                g.voce(QStringLiteral("  0.000"));
                g.vertice(giro[0].first + 1, giro[0].second + 1);
            }
            if (g.caso(0, 9) == 0) {
                g.voce(QStringLiteral("SIMBOLO"));
                g.voce(QStringLiteral("  14"));
                g.voce(QStringLiteral("  0.000"));
                g.vertice(giro[2].first, giro[2].second);
            }
            g.voce(QStringLiteral("BORDO"));
            g.voce(nome + (g.caso(0, 1) ? QStringLiteral("      ") : QString()));
            g.voce(QStringLiteral("  12"));
            g.voce(QStringLiteral("       0.000"));
            g.vertice(giro[0].first + 1, giro[0].second + 1);
            g.vertice(giro[0].first + 2500, giro[0].second - 70); // the inner point, off
            g.voce(QStringLiteral("   ") + QString::number(isole.size()));
            int totale = int(esterno.size());
            for (const Anello& a : isole) totale += int(a.size());
            g.voce(QStringLiteral(" ") + QString::number(totale));
            for (const Anello& a : isole) g.voce(QStringLiteral("   ") + QString::number(a.size()));
            for (const auto& [x, y] : esterno) g.vertice(x, y);
            for (const Anello& a : isole)
                for (const auto& [x, y] : a) g.vertice(x, y);
            // Buildings: a ring of their own named with "+".
            if (g.caso(0, 3) == 0) {
                const QString fabbricato = QString::number(numero - 1) + u'+';
                g.voce(QStringLiteral("BORDO"));
                g.voce(fabbricato);
                for (const char* v : {"  12", "0.000", "1", "1", "1", "1"}) g.voce(v);
                g.voce(QStringLiteral("   0"));
                g.voce(QStringLiteral("   5"));
                for (const auto& [x, y] : Quadrato(giro[0].first + 5, giro[0].second + 8, 4))
                    g.vertice(x, y);
            }
            if (g.caso(0, 2) != 0)
                f.sup += nome.leftJustified(9) +
                         QString::number(g.caso(0, 9000)).rightJustified(10) +
                         QStringLiteral("\r\n");
        }
    }
    g.voce(QStringLiteral("FIDUCIALE"));
    g.voce(QStringLiteral("PF01/0767/H501"));
    g.vertice(x0, y0);
    g.voce(QStringLiteral("EOF"));
    f.cxf = g.t;
    return f;
}

} // namespace tavolet::test
