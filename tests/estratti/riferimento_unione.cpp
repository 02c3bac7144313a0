#include "riferimento_unione.h"

#include "testo.h"
#include "unisci.h"

#include <QStringList>

#include <random>

namespace tavolet::test {

QString UnisciRiferimento(const QString& base, const QString& aggiunto) {
    Unione u = PreparaUnione(base, aggiunto);
    QList<QStringList> anelli;
    for (const QString& a : u.anelli) anelli.append(a.split('|'));
    auto sostituisci = [&](const QString& vecchio, const QString& nuovo) {
        for (QStringList& campi : anelli)
            for (int k = 1; k + 1 < campi.size(); ++k)
                if (campi[k] == vecchio) campi[k] = nuovo;
    };
    auto vicini = [](const Unione::Punto& a, const Unione::Punto& b) {
        return DistanzaPunti(a.nord, a.est, b.nord, b.est) < kTolleranzaUnione;
    };
    for (auto& a : u.base) {
        for (auto& b : u.aggiunti) {
            if (!a.vuoto && !b.vuoto && vicini(a, b)) {
                a.vuoto = true;
                sostituisci(a.id, b.id);
            }
        }
    }
    for (QList<Unione::Punto>* lista : {&u.aggiunti, &u.base}) {
        for (int i = 0; i < lista->size(); ++i) {
            for (int j = i + 1; j < lista->size(); ++j) {
                Unione::Punto& a = (*lista)[i];
                const Unione::Punto& b = (*lista)[j];
                if (!a.vuoto && !b.vuoto && vicini(a, b)) {
                    a.vuoto = true;
                    sostituisci(a.id, b.id);
                }
            }
        }
    }
    QString testo = "0|AUTOALLESTITO|0|0|0|0|0|0|0|0|\r\n";
    int n = 0;
    for (QList<Unione::Punto>* lista : {&u.base, &u.aggiunti}) {
        for (const auto& p : *lista) {
            if (p.vuoto) continue;
            const QString nuovo = QString::number(++n) + '%';
            sostituisci(p.id, nuovo);
            const QStringList c = p.riga.split('|');
            testo += "8|" + nuovo + '|' + c[2] + '|' + c[3] + "|\r\n";
        }
    }
    for (const QStringList& campi : anelli)
        if (!campi.join('|').isEmpty()) testo += SpezzaRigaSette(campi.join('|')) + "\r\n";
    return testo;
}

CoppiaEstratti GeneraCoppia(unsigned seme, int punti) {
    std::mt19937 rng(seme);
    auto caso = [&](int a, int b) { return std::uniform_int_distribution<int>(a, b)(rng); };
    struct P {
        double n, e;
    };
    QList<P> base;
    for (int i = 0; i < punti; ++i)
        base.append({-5000 + caso(0, 4000) * 0.01, -3000 + caso(0, 4000) * 0.01});
    QList<P> agg;
    for (int i = 0; i < punti; ++i) {
        const P q = base[caso(0, punti - 1)];
        switch (caso(0, 7)) {
        case 0:
            agg.append(q);
            break; // the same point
        case 1:
            agg.append({q.n + 0.0005, q.e});
            break; // merged
        case 2:
            agg.append({q.n, q.e + 0.001});
            break; // 0.001 apart
        case 3:
            agg.append({q.n + 0.0007, q.e + 0.0002});
            break; // near
        case 4:    // a chain
            agg.append({q.n + 0.0006, q.e});
            agg.append({q.n + 0.0012, q.e});
            agg.append({q.n + 0.0018, q.e});
            break;
        case 5:
            agg.append(agg.isEmpty() ? q : agg.last());
            break; // repeated in the extract
        default:
            agg.append({-5000 + caso(0, 4000) * 0.01, -3000 + caso(0, 4000) * 0.01});
        }
    }
    // Repeats within the first extract as well.
    for (int k = 0; k < punti / 20; ++k) base.append(base[caso(0, punti - 1)]);
    auto testo = [&](const QList<P>& pp, bool inversa) {
        QString t = "0|15032024|XX1/2024|A001|00120|1|PD|0|0|0|\r\n";
        const int m = int(pp.size());
        for (int i = 0; i < m; ++i) {
            const int id = inversa ? m - i : i + 1;
            t += QStringLiteral("8|%1%|%2|%3|\r\n")
                     .arg(id)
                     .arg(pp[i].n, 0, 'f', 4)
                     .arg(pp[i].e, 0, 'f', 4);
        }
        t += "8|PF01/0120/A001|-5000.1|-3000.2|\r\n8|9T|-5000|-3000|0|VIA|\r\n";
        for (int r = 0; r < m / 3; ++r) {
            const int lati = caso(3, 24);
            QStringList ids;
            for (int k = 0; k < lati; ++k) ids << QString::number(caso(1, m)) + '%';
            ids << ids[0];
            const QString nome = caso(0, 9) == 0 ? "STRADA" : QString::number(r + 1);
            QString riga = "7|" + QString::number(ids.size());
            for (int k = 0; k < ids.size(); ++k) {
                if (k == 10) riga += "|NC|" + nome + '|' + nome + "|123.5|\r\n7|0";
                riga += '|' + ids[k];
            }
            riga += ids.size() > 10 ? QString("|NC|") : "|NC|" + nome + '|' + nome + "|123.5|";
            t += riga + "\r\n";
        }
        t += "7|2|1L|2L|NC|\r\n6|INQUADRAMENTO|1|2|3|4|5|6|\r\n";
        return t;
    };
    return {testo(base, seme % 5 == 0), testo(agg, false)};
}

} // namespace tavolet::test
