#include "riferimento_cxf.h"

#include "errore.h"
#include "file_testo.h"
#include "testo.h"

#include <QRegularExpression>

#include <algorithm>

namespace tavolet::test {

namespace {

QStringList Voci(const QString& testo) {
    QStringList voci;
    static const QRegularExpression bordi(QStringLiteral("^[ \\t]+|[ \\t]+$"));
    for (const QString& riga : RigheDiTesto(testo))
        for (QString voce : riga.split(u',')) voci << voce.remove(bordi);
    return voci;
}

bool Numero(const QString& s) {
    static const QRegularExpression n(
        QStringLiteral("^[+-]?([0-9]+\\.?[0-9]*|\\.[0-9]+)([EeDd][+-]?[0-9]+)?$"));
    return n.match(s).hasMatch();
}

long long Intero(const QString& s) {
    if (!Numero(s)) throw Errore(13);
    const double v = std::nearbyint(Val(s));
    if (v < -2147483648.0 || v > 2147483647.0) throw Errore(6);
    return (long long)v;
}

QString RigaSette(const QString& riga, const QString& coda) {
    const QStringList campi = riga.split(u'|');
    QStringList righe = {QStringLiteral("7|") + (campi.size() > 1 ? campi[1] : QString())};
    int conta = 0;
    for (int k = 2; k < campi.size(); ++k) {
        ++conta;
        if (conta == 11) {
            righe.last() += QStringLiteral("|NC|");
            righe << QStringLiteral("7|0|") + campi[k];
            conta = 1;
        } else {
            righe.last() += u'|' + campi[k];
        }
    }
    righe.last() += QStringLiteral("|NC|");
    righe[0] += coda;
    return righe.join(QStringLiteral("\r\n"));
}

QString Area(const QStringList& sup, const QString& nome) {
    for (int i = 1; i < sup.size(); ++i)
        if (sup[i].left(nome.size()) == nome) {
            const QString area = Trim(Mid(sup[i], 10));
            if (Val(area) == 0) return QStringLiteral("20");
            return area;
        }
    return QStringLiteral("20");
}

} // namespace

RiferimentoCxf ComponiEmpDaCxfRiferimento(const QString& cxf, const QStringList& sup) {
    const QStringList voci = Voci(cxf);
    int i = 3;
    auto prossima = [&]() -> QString {
        if (i >= voci.size()) throw Errore(62);
        return voci[i++];
    };
    QStringList coordinate, bordi;
    auto inserisci = [&](const QString& voce) {
        auto dove = std::upper_bound(coordinate.begin(), coordinate.end(), voce,
                                     [](const QString& a, const QString& b) {
                                         return a.compare(b, Qt::CaseInsensitive) < 0;
                                     });
        coordinate.insert(dove, voce);
    };
    while (i < voci.size()) {
        if (voci[i++] != u"BORDO") continue;
        const QString nome = prossima();
        for (int k = 0; k < 6; ++k) prossima();
        const long long isole = Intero(prossima());
        const long long totale = Intero(prossima());
        QList<long long> anelli = {0};
        for (long long k = 1; k <= isole; ++k) {
            if (k > 500) throw Errore(9);
            anelli << Intero(prossima());
        }
        long long somma = 0;
        for (int k = 1; k < anelli.size(); ++k) somma += anelli[k];
        anelli[0] = totale - somma;
        bordi << u'>' + nome;
        for (long long dimensione : anelli) {
            bordi << QString::number(dimensione);
            for (long long v = 0; v < dimensione; ++v) {
                const QString x = prossima(), y = prossima();
                if (!Numero(x) || !Numero(y)) throw Errore(13);
                inserisci(u'|' + x + u'|' + y + u'|');
                bordi << u'|' + x + u'|' + y + u'|';
            }
        }
    }
    for (int k = coordinate.size() - 1; k >= 1; --k)
        if (coordinate[k] == coordinate[k - 1]) coordinate.removeAt(k);
    for (int k = 0; k < coordinate.size(); ++k)
        coordinate[k] = QString::number(k + 1) + u'%' + coordinate[k];
    for (QString& voce : bordi) {
        if (!voce.contains(u'|')) continue;
        for (const QString& c : coordinate)
            if (c.contains(voce)) {
                voce = c.split(u'|')[0] + voce;
                break;
            }
    }

    RiferimentoCxf r;
    QStringList righe = {
        QStringLiteral("0|05102017|XX0000000/2017|A000|00180|1,2,3|XX|PUB|ABCDEF|00000000000000|")};
    for (const QString& c : coordinate) {
        const QStringList f = c.split(u'|');
        righe << QStringLiteral("8|%1|%2|%3|").arg(f[0], f.value(2), f.value(1));
    }
    QString xy;
    if (coordinate.isEmpty()) {
        r.senzaCornice = true;
    } else {
        const QStringList f = coordinate.last().split(u'|');
        xy = f.value(1) + u'|' + f.value(2);
    }
    for (QString& voce : bordi)
        if (voce.contains(u'|')) voce = voce.split(u'|')[0];
    if (!bordi.isEmpty()) {
        QString nome = bordi[0].mid(bordi[0].indexOf(u'>') + 1);
        QString riga = QStringLiteral("7|") + bordi.value(1);
        for (int k = 2; k <= bordi.size(); ++k) {
            const QString voce = k < bordi.size() ? bordi[k] : QStringLiteral(">");
            if (voce.contains(u'%')) {
                riga += u'|' + voce;
            } else if (voce.contains(u'>')) {
                righe << RigaSette(riga, nome + u'|' + nome + u'|' + Area(sup, nome) + u'|');
                riga = QStringLiteral("7|");
                nome = voce.mid(voce.indexOf(u'>') + 1);
            } else {
                riga += voce;
            }
        }
    }
    righe << QStringLiteral("6|DISTORSIONE|1.5|") << QStringLiteral("6|SCALAORIGINARIA|2000|")
          << QStringLiteral("6|INQUADRAMENTO|") + xy + QStringLiteral("|0.1693333333|0|0|0|");
    r.emp = righe.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n");
    return r;
}

} // namespace tavolet::test
