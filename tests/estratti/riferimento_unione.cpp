#include "riferimento_unione.h"

#include "errore.h"
#include "file_testo.h"
#include "testo.h"
#include "unisci.h"

#include <QHash>
#include <QStringList>

#include <algorithm>
#include <random>

namespace tavolet::test {

namespace {

struct PuntoR {
    QStringList campi;
    double nord, est;
};

struct EstrattoR {
    QList<PuntoR> punti;
    QStringList anelli; // each ring gathered in one line
    double massimo = 0; // the highest number of a point
};

// The first row of a ring, its continuation rows in the middle, its tail behind.
QString Raccogli(const QStringList& righe) {
    const QStringList campi = righe[0].split('|');
    const int n = int(campi.size()) - 1;
    if (n < 4) throw Errore(9);
    QString unita;
    for (int k = 0; k < n - 4; ++k) unita += campi[k] + '|';
    for (int i = 1; i < righe.size(); ++i)
        unita += QString(righe[i]).replace("7|0|", "").replace("NC|", "");
    return unita + QStringList(campi.mid(n - 4, 4)).join('|') + '|';
}

EstrattoR Leggi(const QString& testo, bool base) {
    EstrattoR e;
    bool primo = true;
    QStringList anello;
    auto chiudi = [&] {
        bool escluso = false;
        for (const QString& r : anello)
            escluso = escluso || r.contains('T') || r.contains('L') || r.contains('P');
        if (!anello.isEmpty() && !escluso) e.anelli.append(Raccogli(anello));
        anello.clear();
    };
    for (const QString& riga : RigheDiTesto(testo)) {
        if (primo) { // the head
            primo = false;
            continue;
        }
        const double tipo = Val(riga);
        const QStringList campi = riga.split('|');
        if (tipo == 8 && riga.contains('%')) {
            if (campi.size() < 4) throw Errore(9);
            if (base) {
                const double numero = Val(campi[1]);
                e.massimo = e.punti.isEmpty() ? numero : std::max(e.massimo, numero);
            }
            e.punti.append({campi, Val(campi[2]), Val(campi[3])});
        } else if (tipo == 7) {
            if (campi.size() < 2) throw Errore(9);
            if (Val(campi[1]) > 0) {
                chiudi();
                anello.append(riga);
            } else if (!anello.isEmpty()) {
                anello.append(riga);
            }
        }
    }
    chiudi();
    return e;
}

} // namespace

QString UnisciRiferimento(const QString& testoBase, const QString& testoAggiunto) {
    const EstrattoR base = Leggi(testoBase, true);
    const EstrattoR aggiunto = Leggi(testoAggiunto, false);
    const int nb = int(base.punti.size());
    const QList<PuntoR> punti = base.punti + aggiunto.punti; // the base's first
    const int tutti = int(punti.size());
    auto vicini = [&](int a, int b) {
        return DistanzaPunti(punti[a].nord, punti[a].est, punti[b].nord, punti[b].est) <
               kTolleranzaUnione;
    };
    // Each point that falls on another goes into it: a point of the base into the first point
    // of the second; a point of the second into the first later one of the second; a point of
    // the base still there into the first later one of the base.
    QList<int> in(tutti, -1);
    for (int a = 0; a < nb; ++a)
        for (int b = nb; b < tutti && in[a] < 0; ++b)
            if (vicini(a, b)) in[a] = b;
    for (int a = nb; a < tutti; ++a)
        for (int b = a + 1; b < tutti && in[a] < 0; ++b)
            if (vicini(a, b)) in[a] = b;
    for (int a = 0; a < nb; ++a)
        for (int b = a + 1; b < nb && in[a] < 0; ++b)
            if (vicini(a, b)) in[a] = b;

    // The points left take 1%, 2%, 3%... in their order; every point, the new id of the one it
    // went into.
    QString testo = "0|AUTOALLESTITO|0|0|0|0|0|0|0|0|\r\n";
    QList<int> numero(tutti, 0);
    int ultimo = 0;
    for (int a = 0; a < tutti; ++a) {
        if (in[a] >= 0) continue;
        numero[a] = ++ultimo;
        testo += "8|" + QString::number(ultimo) + "%|" + punti[a].campi[2] + '|' +
                 punti[a].campi[3] + "|\r\n";
    }
    QList<QString> nuovoId(tutti);
    for (int a = 0; a < tutti; ++a) {
        int b = a;
        while (in[b] >= 0) b = in[b];
        nuovoId[a] = QString::number(numero[b]) + '%';
    }
    // Old id to new id, one map for each extract: a ring names the first point of its own
    // extract that bears the id.
    QHash<QString, QString> mappaBase, mappaAggiunto;
    for (int a = 0; a < tutti; ++a) {
        QHash<QString, QString>& mappa = a < nb ? mappaBase : mappaAggiunto;
        if (!mappa.contains(punti[a].campi[1])) mappa.insert(punti[a].campi[1], nuovoId[a]);
    }

    for (int r = 0; r < base.anelli.size() + aggiunto.anelli.size(); ++r) {
        const bool delBase = r < base.anelli.size();
        const QStringList campi =
            (delBase ? base.anelli[r] : aggiunto.anelli[r - base.anelli.size()]).split('|');
        const int n = int(campi.size()) - 1;
        if (n < 6) throw Errore(9);
        QStringList ids = campi.mid(2, n - 6);
        if (ids.isEmpty()) continue; // a ring of no point
        for (QString& id : ids) {
            const QHash<QString, QString>& mappa = delBase ? mappaBase : mappaAggiunto;
            if (mappa.contains(id))
                id = mappa[id];
            else if (!delBase && id.endsWith('%'))
                id = CStr(Val(id) + base.massimo) + '%'; // moved on by n
        }
        // Ten ids a row: the tail on the first, the continuation rows closed by "NC|".
        const QString coda = QStringList(campi.mid(n - 4, 4)).join('|') + '|';
        for (int k = 0; k < ids.size(); k += 10) {
            const QString riga = QStringList(ids.mid(k, 10)).join('|') + '|';
            if (k == 0)
                testo += "7|" + QString::number(ids.size()) + '|' + riga + coda + "\r\n";
            else
                testo += "7|0|" + riga + "NC|\r\n";
        }
    }
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

CoppiaConAnelli GeneraCoppiaConAnelli(unsigned seme) {
    std::mt19937 rng(seme);
    auto caso = [&](int a, int b) { return std::uniform_int_distribution<int>(a, b)(rng); };
    // Sites half a metre apart on a lattice; coordinates as written, four decimals.
    const int lato = caso(4, 12);
    auto coordinata = [](double v) { return QString::number(v, 'f', 4); };
    CoppiaConAnelli c;
    for (int e = 0; e < 2; ++e) {
        struct P {
            QString id, nord, est;
        };
        QList<P> punti;
        QList<QList<int>> perSito(lato * lato); // the points of each site
        int numero = caso(0, 4);
        for (int s = 0; s < lato * lato; ++s) {
            if (caso(0, 9) < 3) continue;
            for (int k = caso(0, 5) == 0 ? caso(2, 3) : 1; k > 0; --k) {
                const int dn = caso(0, 2) ? 0 : caso(-3, 3), de = caso(0, 2) ? 0 : caso(-3, 3);
                numero += caso(1, 3);
                perSito[s].append(int(punti.size()));
                punti.append({QString::number(numero) + '%',
                              coordinata(-5000 + (s / lato) * 0.5 + dn * 0.0001),
                              coordinata(-3000 + (s % lato) * 0.5 + de * 0.0001)});
            }
        }
        QList<int> siti;
        for (int s = 0; s < lato * lato; ++s)
            if (!perSito[s].isEmpty()) siti.append(s);
        QStringList righe = {"0|15032024|XX1/2024|A001|0012" + QString::number(e) + "|1|PD|0|0|0|"};
        QList<P> ordine = punti;
        std::shuffle(ordine.begin(), ordine.end(), rng);
        for (const P& p : ordine) righe << "8|" + p.id + '|' + p.nord + '|' + p.est + '|';
        righe << "8|PF01/0120/A001|-5000.1|-3000.2|"
              << "8|9T|-5000|-3000|0|VIA|";
        const int quanti = siti.size() < 3 ? 0 : caso(1, 12);
        for (int r = 0; r < quanti; ++r) {
            std::shuffle(siti.begin(), siti.end(), rng);
            const int lati = std::min(int(siti.size()), caso(0, 1) ? caso(3, 12) : caso(3, 60));
            const QString etichetta = QString(e ? "A" : "B") + QString::number(r);
            AnelloAtteso a;
            a.nome = r > 0 && caso(0, 3) == 0
                         ? QString(e ? "A" : "B") + "0" + (caso(0, 1) ? "+" : "-")
                         : etichetta;
            a.area = QString::number(caso(1, 99999)) + ".5";
            QStringList ids;
            for (int k = 0; k <= lati; ++k) {
                const QList<int>& qui = perSito[siti[k % lati]];
                const P& p = punti[qui[caso(0, int(qui.size()) - 1)]];
                ids << (k < lati ? p.id : ids[0]);
                a.vertici.append(k < lati ? std::pair(p.nord.toDouble(), p.est.toDouble())
                                          : a.vertici[0]);
            }
            c.anelli.insert(etichetta, a);
            // As the extract writer lays it out: the tail on the first row.
            for (int k = 0; k < ids.size(); k += 10) {
                const QString pezzo = QStringList(ids.mid(k, 10)).join('|') + '|';
                righe << (k == 0 ? "7|" + QString::number(ids.size()) + '|' + pezzo + "NC|" +
                                       etichetta + '|' + a.nome + '|' + a.area + '|'
                                 : "7|0|" + pezzo + "NC|");
            }
        }
        righe << "7|2|1L|2L|NC|"
              << "6|INQUADRAMENTO|1|2|3|4|5|6|";
        (e ? c.aggiunto : c.base) = righe.join("\r\n") + "\r\n";
    }
    return c;
}

} // namespace tavolet::test
