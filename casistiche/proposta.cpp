// The outlines of a proposal joined into one row each and wrapped back, and the repair of the
// proposal against the parcel of the associated extract.
#include "casistiche.h"
#include "interno_casistiche.h"

#include "estratto.h"
#include "righe.h"
#include "stato.h"
#include "testo.h"

#include <QHash>

namespace tavolet {

namespace {

bool ETipoLinea(const QString& campo) {
    return campo == u"RC" || campo == u"NC";
}

} // namespace

namespace casistiche {

QString RigheInTesto(const QStringList& righe) {
    QString t;
    for (const QString& r : righe) t += r + CRLF;
    return t;
}

QString SenzaDoppiACapo(QString testo) {
    const QString doppio = CRLF + CRLF;
    while (testo.contains(doppio)) testo = Replace(testo, doppio, CRLF);
    return testo;
}

ParticellaEstratto LeggiParticella(Stato& stato) {
    ParticellaEstratto p;
    if (Trim(stato.doc.NomeEstratto).isEmpty()) return p;
    const Estratto e = EsplodiEstratto(stato, stato.doc.NomeEstratto);
    // The ring of the parcel: its label and name follow the style token.
    const QString cerca = QStringLiteral("|NC|") + stato.testata.MappaliLibretto + kBarra;
    for (const QString& r : e.SETTE)
        if (r.contains(cerca)) {
            p.Outline = r;
            break;
        }
    if (p.Outline.isEmpty()) return p;
    QHash<QString, QString> punti;
    for (const QString& r : e.Punti) {
        const QString id = Split(r, kBarra).value(1);
        if (!punti.contains(id)) punti.insert(id, r);
    }
    // In the order of the ring, so that neighbours are the sides of the parcel.
    for (const QString& id : Split(p.Outline, kBarra).mid(2)) {
        const auto trovato = punti.constFind(id);
        if (trovato != punti.cend()) p.Punti << *trovato;
    }
    return p;
}

} // namespace casistiche

using namespace casistiche;

void Esplodi_Proposta(QString& testo) {
    const QStringList righe = Split(testo, CRLF);
    QString uscita, coda;
    for (qsizetype i = righe.size() - 1; i >= 0; --i) {
        const QString& riga = righe[i];
        if (Trim(riga).isEmpty()) continue;
        QStringList f = Split(riga, kBarra);
        if (f.value(1) == u"0") {
            coda = Replace(Replace(riga, QStringLiteral("7|0|"), QString()), QStringLiteral("RC|"),
                           QString()) +
                   coda;
            continue;
        }
        const qsizetype u = f.size() - 1;
        QString tail;
        for (qsizetype k = u - 3; k <= u - 1; ++k)
            if (k >= 0) tail += f[k] + kBarra;
        for (qsizetype k = qMax<qsizetype>(u - 4, 0); k <= u - 1; ++k) f[k].clear();
        const QString corpo = Replace(Join(f, kBarra), QStringLiteral("||||"), QString());
        uscita += corpo + coda + tail + CRLF;
        coda.clear();
    }
    testo = uscita;
}

void Implodi_Proposta(QString& testo) {
    // 1. A type code ends a row and a continuation starts behind it.
    QStringList f = Split(testo, kBarra);
    for (QString& campo : f)
        if (ETipoLinea(campo)) campo += kBarra + CRLF + QStringLiteral("7|0");
    // 2. The last row holds the tail.
    QStringList righe = Split(Join(f, kBarra), CRLF);
    const QString coda = Mid(righe.last(), 5);
    righe.last().clear();
    righe = Split(SenzaDoppiACapo(Join(righe, CRLF)), CRLF);
    // 3. Runs of the same type become one.
    for (qsizetype i = righe.size() - 1; i >= 1; --i) {
        QString& prima = righe[i - 1];
        const QString& questa = righe[i];
        if (questa.size() < 5 || prima.size() < 4 || Right(questa, 4) != Right(prima, 4)) continue;
        prima = Left(prima, int(prima.size()) - 3) + Mid(questa, 5);
        righe[i].clear();
    }
    // 4, 5. At most ten points to a row, each row closed by its type code.
    QStringList uscita;
    for (const QString& riga : righe) {
        if (Trim(riga).isEmpty()) continue;
        const QStringList p = Split(riga, kBarra);
        if (p.size() < 3) {
            uscita << riga;
            continue;
        }
        const QString tipo = p[p.size() - 2];
        QString r = p[0] + kBarra + p[1] + kBarra;
        int n = 0;
        for (qsizetype j = 2; j < p.size() - 2; ++j) {
            if (n == 10) {
                r += tipo + kBarra + CRLF + QStringLiteral("7|0|");
                n = 0;
            }
            r += p[j] + kBarra;
            ++n;
        }
        uscita << Split(r + tipo + kBarra, CRLF);
    }
    // 6. The tail on the first row.
    if (uscita.isEmpty())
        uscita << coda;
    else
        uscita[0] += coda;
    testo = Join(uscita, CRLF);
}

void SistemaProposta(Stato& stato, QString& testo, const QString& righeAParte) {
    const ParticellaEstratto particella = LeggiParticella(stato);

    QStringList puntiNuovi;
    QString contorniNuovi;
    for (const QString& riga : Split(testo, CRLF)) {
        const int tipo = TipoRiga(riga);
        if (tipo == 8)
            puntiNuovi << riga;
        else if (tipo == 7 && riga.contains(u"RC"))
            contorniNuovi += riga + CRLF;
    }

    // A new point on a point of the parcel takes its name.
    for (const QString& vecchio : particella.Punti) {
        const QStringList v = Split(vecchio, kBarra);
        for (QString& nuovo : puntiNuovi) {
            if (nuovo == u"|||||") continue;
            const QStringList n = Split(nuovo, kBarra);
            if (n.value(2) != v.value(2) || n.value(3) != v.value(3)) continue;
            contorniNuovi =
                Replace(contorniNuovi, kBarra + n.value(1) + kBarra, kBarra + v.value(1) + kBarra);
            nuovo = QStringLiteral("|||||");
        }
    }
    puntiNuovi.removeAll(QStringLiteral("|||||"));

    // Runs of old points are existing lines, runs of new points new ones.
    Esplodi_Proposta(contorniNuovi);
    QStringList c = Split(contorniNuovi, kBarra);
    for (qsizetype i = 1; i + 1 < c.size(); ++i) {
        const QString& p = c[i - 1];
        const QString& n = c[i + 1];
        const bool iVecchio = c[i].contains(u'%'), iNuovo = c[i].contains(u'*');
        if (iVecchio && p.contains(u'%') && n.contains(u'*'))
            c[i] += QStringLiteral("|NC");
        else if (iNuovo && n.contains(u'%'))
            c[i + 1] += QStringLiteral("|RC");
        else if (iVecchio && p.contains(u'%') && !n.contains(u'%') && !n.contains(u'*'))
            c[i] += QStringLiteral("|NC");
        else if (iNuovo && !n.contains(u'%') && !n.contains(u'*'))
            c[i] += QStringLiteral("|RC");
    }
    QStringList anelli;
    for (QString r : Split(Join(c, kBarra), CRLF)) {
        if (Trim(r).isEmpty()) continue;
        Implodi_Proposta(r);
        anelli << r;
    }
    contorniNuovi = SenzaDoppiACapo(RigheInTesto(anelli));

    testo = RigheInTesto(puntiNuovi) + righeAParte + contorniNuovi;
}

} // namespace tavolet
