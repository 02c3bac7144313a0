#include "stazioni.h"

#include "geometria.h"
#include "libretto.h"

#include <QHash>

#include <algorithm>
#include <cmath>

namespace tavolet {

namespace {

const QString kSeparatore = QStringLiteral(" - ");

// The first point in table order within 0.005 of (x, y). A grid of cells of the tolerance
// keeps this fast on drawings of thousands of points; the first match in table order wins.
class Vicini {
public:
    explicit Vicini(const Disegno& d) : d_(d) {
        for (int i = 0; i < d.PuntiDisegno.size(); ++i) {
            const auto& p = d.PuntiDisegno[i];
            if (!std::isfinite(p.X) || !std::isfinite(p.Y)) continue;
            celle_[Cella(p.X, p.Y)].append(i);
        }
    }
    int Primo(double x, double y) const {
        if (!std::isfinite(x) || !std::isfinite(y)) return -1;
        const auto [cx, cy] = Cella(x, y);
        int migliore = -1;
        for (qint64 i = cx - 1; i <= cx + 1; ++i)
            for (qint64 j = cy - 1; j <= cy + 1; ++j)
                for (int k : celle_.value({i, j})) {
                    const auto& p = d_.PuntiDisegno[k];
                    if (DistanzaPiana(p.X, p.Y, x, y) < 0.005 && (migliore < 0 || k < migliore))
                        migliore = k;
                }
        return migliore;
    }

private:
    static std::pair<qint64, qint64> Cella(double x, double y) {
        const double limite = 9e15;
        return {qint64(std::clamp(std::floor(x / 0.005), -limite, limite)),
                qint64(std::clamp(std::floor(y / 0.005), -limite, limite))};
    }
    const Disegno& d_;
    QHash<std::pair<qint64, qint64>, QList<int>> celle_;
};

} // namespace

QString ADestra(const QString& s, int n) {
    return s.size() >= n ? s : Space(n - int(s.size())) + s;
}

QStringList RiconosciLinee(const Disegno& d) {
    const Vicini vicini(d);
    QStringList voci;
    for (const LineaDisegno& l : d.LineeDisegno) {
        const int a = vicini.Primo(l.X1, l.Y1);
        const int b = vicini.Primo(l.X2, l.Y2);
        if (a < 0 || b < 0) continue;
        QString na = ADestra(d.PuntiDisegno[a].nome, 15);
        QString nb = ADestra(d.PuntiDisegno[b].nome, 15);
        if (nb < na) std::swap(na, nb);
        voci << na + kSeparatore + nb;
    }
    std::sort(voci.begin(), voci.end());
    for (int i = int(voci.size()) - 1; i >= 1; --i)
        if (voci[i] == voci[i - 1]) voci.removeAt(i);
    for (QString& v : voci) {
        const int p = int(v.indexOf(kSeparatore, 15));
        v = Trim(v.left(p)) + kSeparatore + Trim(v.mid(p + 3));
    }
    return voci;
}

QString NomeSinistro(const QString& voce) {
    const int p = int(voce.indexOf(kSeparatore));
    return p < 0 ? voce : voce.left(p);
}

QString NomeDestro(const QString& voce) {
    const int p = int(voce.indexOf(kSeparatore));
    return p < 0 ? QString() : voce.mid(p + 3);
}

bool StazioneMillesimale(const QString& nome) {
    if (nome.startsWith(QStringLiteral("PF"))) return false;
    if (nome.size() == 3) return nome.endsWith(QStringLiteral("00"));
    return nome.size() >= 4 && nome.endsWith(QStringLiteral("000"));
}

bool StazioneCentesimale(const QString& nome) {
    return nome.endsWith(QStringLiteral("00")) && !nome.startsWith(QStringLiteral("PF"));
}

QList<StazionePlot> StazioniPerGrafica(const Disegno& d, const QStringList& listaLinee) {
    QList<StazionePlot> stazioni;
    QStringList viste;
    for (const QString& voce : listaLinee) {
        const QString a = NomeSinistro(voce);
        const bool stazione = (a.size() == 3 && a.endsWith(QStringLiteral("00"))) ||
                              (a.size() >= 4 && a.endsWith(QStringLiteral("000")));
        if (!stazione || viste.contains(a)) continue;
        viste << a;
        StazionePlot s{a, TrovaPuntoDisegno(d, a), {}};
        for (int i = 0; i < d.PuntiDisegno.size(); ++i) {
            const QString& n = d.PuntiDisegno[i].nome;
            if (n == a) continue;
            if (a.size() == 3 ? (n.size() == 3 && n[0] == a[0])
                              : (n.size() >= 4 && n.left(n.size() - 3) == a.left(a.size() - 3)))
                s.punti << i;
        }
        stazioni << s;
    }
    return stazioni;
}

} // namespace tavolet
