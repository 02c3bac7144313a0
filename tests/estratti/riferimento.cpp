#include "riferimento.h"

#include "errore.h"
#include "testo.h"

#include <algorithm>
#include <cmath>

namespace tavolet::test {

namespace {

const QString B = QStringLiteral("|");

const QString& C(const QStringList& c, qsizetype i) {
    if (i < 0 || i >= c.size()) throw Errore(9);
    return c[i];
}
QString& CR(QStringList& c, qsizetype i) {
    if (i < 0 || i >= c.size()) throw Errore(9);
    return c[i];
}
double& T(std::array<double, 501>& t, qsizetype i) {
    if (i < 0 || i > 500) throw Errore(9);
    return t[size_t(i)];
}

QStringList DividiTesto(const QString& testo) {
    return testo.isEmpty() ? QStringList() : Split(testo, CRLF);
}

void Area(Estratto& e, const QString& riga) {
    const QStringList c = Split(riga, B);
    const qsizetype n = c.size() - 1;
    qsizetype conta = 0;
    for (qsizetype k = 2; k <= n - 4; ++k) {
        ++conta;
        const QString cerca = QStringLiteral("8|") + c[k] + B;
        for (const QString& p : e.Punti) {
            if (Left(p, Len(cerca)) == cerca) {
                const QStringList q = Split(p, B);
                T(e.YVertici, conta) = Val(C(q, 2));
                T(e.XVertici, conta) = Val(C(q, 3));
                break;
            }
        }
    }
    T(e.XVertici, 0) = T(e.XVertici, conta);
    T(e.YVertici, 0) = T(e.YVertici, conta);
    T(e.XVertici, conta + 1) = T(e.XVertici, 1);
    T(e.YVertici, conta + 1) = T(e.YVertici, 1);
    double area = 0;
    if (conta >= 3)
        for (qsizetype i = 1; i <= conta; ++i) {
            const double dx = e.XVertici[size_t(i + 1)] - e.XVertici[size_t(i)];
            area = area + dx * (e.YVertici[size_t(i)] + e.YVertici[size_t(i + 1)]) / 2;
        }
    e.AreaRigaSette = std::fabs(area);
}

} // namespace

QString ComponiRiferimento(Estratto& e) {
    // Sort: a list that keeps itself sorted on every insertion.
    e.SORTED.clear();
    for (const QString& riga : e.Punti) {
        QStringList c = Split(riga, B);
        CR(c, 1) = Right(Space(20) + c[1], 10);
        const QString nuova = Join(c, B);
        auto dove = std::upper_bound(e.SORTED.begin(), e.SORTED.end(), nuova,
                                     [](const QString& a, const QString& b) {
                                         return a.compare(b, Qt::CaseInsensitive) < 0;
                                     });
        e.SORTED.insert(dove - e.SORTED.begin(), nuova);
    }
    e.Punti.clear();
    for (const QString& riga : e.SORTED) {
        QStringList c = Split(riga, B);
        c[1] = Trim(c[1]);
        e.Punti.append(Join(c, B));
    }
    // Renumber through the text of the rings.
    QString testo = Join(e.SETTE, CRLF);
    for (qsizetype i = 0; i < e.Punti.size(); ++i) {
        QStringList c = Split(e.Punti[i], B);
        const QString nuovo = QString::number(i + 1) + QStringLiteral("%");
        testo = Replace(testo, B + C(c, 1) + B, B + nuovo + B);
        c[1] = nuovo;
        e.Punti[i] = Join(c, B);
    }
    e.SETTE = DividiTesto(testo);
    // Areas.
    for (qsizetype i = 0; i < e.SETTE.size(); ++i) {
        Area(e, e.SETTE[i]);
        QStringList c = Split(e.SETTE[i], B);
        const qsizetype n = c.size() - 1;
        CR(c, n - 1) = Replace(CStr(e.AreaRigaSette), QStringLiteral(","), QStringLiteral("."));
        e.SETTE[i] = Join(c, B);
    }
    // Islands.
    for (qsizetype i = 0; i + 1 < e.SETTE.size(); ++i) {
        QStringList c = Split(e.SETTE[i], B);
        const qsizetype n = c.size() - 1;
        const QString nome = C(c, n - 2);
        if (InStr(nome, QStringLiteral("-")) > 0 || InStr(nome, QStringLiteral("+")) > 0) continue;
        double area = Val(C(c, n - 1));
        for (qsizetype j = i + 1; j < e.SETTE.size(); ++j) {
            const QStringList d = Split(e.SETTE[j], B);
            const qsizetype m = d.size() - 1;
            if (C(d, m - 2) == nome + QStringLiteral("-")) area = area - Val(C(d, m - 1));
        }
        // The Italian runtime writes a decimal comma; the replace after it searches "".
        c[n - 1] = Replace(Replace(CStr(area), QStringLiteral("."), QStringLiteral(",")), QString(),
                           QStringLiteral("."));
        e.SETTE[i] = Join(c, B);
    }
    // Round.
    for (qsizetype i = 0; i < e.SETTE.size(); ++i) {
        QStringList c = Split(e.SETTE[i], B);
        const qsizetype n = c.size() - 1;
        CR(c, n - 1) = Replace(Trim(Formato(Val(C(c, n - 1)), QStringLiteral("##############"))),
                               QStringLiteral(","), QStringLiteral("."));
        e.SETTE[i] = Join(c, B);
    }
    QString out = (e.ZERO.isEmpty() ? QString() : e.ZERO[0]) + CRLF;
    for (const QString& r : e.Punti) out += r + CRLF;
    for (qsizetype i = 0; i < e.Toponimi.size(); ++i) {
        QStringList c = Split(e.Toponimi[i], B);
        CR(c, 1) = QString::number(i + 1 + e.Punti.size()) + QStringLiteral("T");
        e.Toponimi[i] = Join(c, B);
        out += e.Toponimi[i] + CRLF;
    }
    if (!e.PLinee.isEmpty()) {
        const qsizetype base = e.Punti.size() + e.Toponimi.size();
        const qsizetype conta = e.PLinee.size();
        QString linee = Join(e.Linee, CRLF);
        auto uno = [&](qsizetype i) {
            QStringList c = Split(e.PLinee[i], B);
            const QString nuovo = QString::number(i + 1 + base) + QStringLiteral("L");
            linee = Replace(linee, B + C(c, 1) + B, B + nuovo + B);
            c[1] = nuovo;
            e.PLinee[i] = Join(c, B);
        };
        if (Val(C(Split(e.PLinee[0], B), 1)) <= double(base + conta))
            for (qsizetype i = conta - 1; i >= 0; --i) uno(i);
        else
            for (qsizetype i = 0; i < conta; ++i) uno(i);
        e.Linee = DividiTesto(linee);
        for (const QString& r : e.PLinee) out += r + CRLF;
    }
    for (const QString& r : e.PF) out += r + CRLF;
    // Rings, ten ids a row.
    e.List1.clear();
    for (const QString& riga : e.SETTE) {
        if (riga.isEmpty()) continue;
        const QStringList c = Split(riga, B);
        const qsizetype n = c.size() - 1;
        const QString coda = C(c, n - 4) + B + C(c, n - 3) + B + C(c, n - 2) + B + C(c, n - 1) + B;
        QString r = QStringLiteral("7|") + C(c, 1) + B;
        int conta = 0;
        auto emetti = [&] {
            if (Left(r, 4) != QStringLiteral("7|0|"))
                e.List1.append(r + coda);
            else
                e.List1.append(r + QStringLiteral("NC|"));
        };
        for (qsizetype k = 2; k <= n - 5; ++k) {
            r += c[k] + B;
            ++conta;
            if (conta == 10) {
                emetti();
                r = QStringLiteral("7|0|");
                conta = 0;
            }
        }
        if (Len(r) >= 7) emetti();
    }
    for (const QString& r : e.List1) out += r + CRLF;
    for (const QStringList* l :
         {&e.Linee, &e.DITTA, &e.PARTICELLA, &e.PFCART, &e.DISTANZA, &e.ALTRO})
        for (const QString& r : *l) out += r + CRLF;
    out += (e.INQUADRAMENTO.isEmpty() ? QString() : e.INQUADRAMENTO[0]) + CRLF;
    return out;
}

} // namespace tavolet::test
