// SistemaModestaEntita: the rings of a small building compared side by side with the parcel;
// a side that lies on the parcel's outline is an existing line.
#include "casistiche.h"
#include "interno_casistiche.h"

#include "righe.h"
#include "stato.h"
#include "testo.h"

#include <QSet>

namespace tavolet {

using namespace casistiche;

namespace {

bool StessoPunto(const QStringList& a, const QStringList& b) {
    return a.value(2) == b.value(2) && a.value(3) == b.value(3);
}

QString ChiaveLato(const QString& a, const QString& b) {
    return a < b ? a + kBarra + b : b + kBarra + a;
}

} // namespace

void SistemaModestaEntita(Stato& stato, Casistica& c) {
    const ParticellaEstratto particella = LeggiParticella(stato);

    QStringList puntiNuovi, altre;
    QString contorniNuovi;
    const QStringList righe = Split(c.RigheProposta, CRLF);
    for (qsizetype i = 0; i < righe.size(); ++i) {
        const QString& riga = righe[i];
        if (Trim(riga).isEmpty()) continue;
        const int tipo = TipoRiga(riga);
        if (tipo == 8) {
            puntiNuovi << riga;
        } else if (tipo == 7 && riga.contains(u"RC")) {
            contorniNuovi += riga + CRLF;
        } else if (tipo == 6 && i + 1 < righe.size() && righe[i + 1].contains(u"RC")) {
            // The label of a building: written anew below.
        } else {
            altre << riga;
        }
    }

    // Sides of the new rings that are sides of the parcel.
    QStringList latiComuni;
    QSet<QString> lati;
    QList<QStringList> vecchi;
    for (const QString& r : particella.Punti) vecchi << Split(r, kBarra);
    for (qsizetype k = 0; k + 1 < puntiNuovi.size(); ++k) {
        const QStringList a = Split(puntiNuovi[k], kBarra), b = Split(puntiNuovi[k + 1], kBarra);
        for (qsizetype j = 0; j + 1 < vecchi.size(); ++j) {
            const QStringList& va = vecchi[j];
            const QStringList& vb = vecchi[j + 1];
            if ((StessoPunto(a, va) && StessoPunto(b, vb)) ||
                (StessoPunto(a, vb) && StessoPunto(b, va))) {
                latiComuni << a.value(1) + kBarra + b.value(1) + kBarra + va.value(1) + kBarra +
                                  vb.value(1) + kBarra;
                lati.insert(ChiaveLato(a.value(1), b.value(1)));
            }
        }
    }
    if (latiComuni.isEmpty()) return;

    contorniNuovi =
        Replace(contorniNuovi, QStringLiteral("RC|") + CRLF + QStringLiteral("7|0|"), QString());
    QString risultato = RigheInTesto(puntiNuovi) + RigheInTesto(altre);
    for (const QString& anello : Split(contorniNuovi, CRLF)) {
        if (Trim(anello).isEmpty()) continue;
        QStringList f = Split(anello, kBarra);
        while (f.size() > 1 && f.last().isEmpty()) f.removeLast();
        const QStringList nomi = f.size() > 3 ? f.mid(2, f.size() - 3) : QStringList();
        risultato += QStringLiteral("6|Contorno fabbricato|") + CRLF;
        if (nomi.size() < 2) {
            risultato += anello + CRLF;
            continue;
        }
        QString r = f[0] + kBarra + f[1] + kBarra + nomi[0] + kBarra;
        QString tipoCorrente;
        for (qsizetype k = 0; k + 1 < nomi.size(); ++k) {
            const QString tipo = lati.contains(ChiaveLato(nomi[k], nomi[k + 1]))
                                     ? QStringLiteral("NC")
                                     : QStringLiteral("RC");
            if (!tipoCorrente.isEmpty() && tipo != tipoCorrente)
                r += tipoCorrente + kBarra + CRLF + QStringLiteral("7|0|");
            r += nomi[k + 1] + kBarra;
            tipoCorrente = tipo;
        }
        risultato += r + tipoCorrente + kBarra + CRLF;
    }

    // Rows of more than ten points wrapped again.
    QString finale;
    for (const QString& riga : Split(SenzaDoppiACapo(risultato), CRLF)) {
        if (riga.isEmpty()) continue;
        if (TipoRiga(riga) == 7 && Split(riga, kBarra).size() > 13)
            finale += AvvolgiDieciPunti(riga);
        else
            finale += riga + CRLF;
    }
    c.RigheProposta = SenzaDoppiACapo(finale);
}

} // namespace tavolet
