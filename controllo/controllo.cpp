// The report of the check: counts, the text that "Esporta" and the command line write, JSON.
#include "controllo.h"

#include "testo.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace tavolet {

bool CiSonoErrori(const QList<Rilievo>& rilievi) {
    return ContaGravita(rilievi, kErrore) > 0;
}

int ContaGravita(const QList<Rilievo>& rilievi, const QString& gravita) {
    return int(std::count_if(rilievi.begin(), rilievi.end(),
                             [&](const Rilievo& r) { return r.gravita == gravita; }));
}

QString TestoRapporto(const QList<Rilievo>& rilievi) {
    QString t;
    for (const Rilievo& r : rilievi)
        t += r.gravita + u'|' + QString::number(r.riga) + u'|' + r.codice + u'|' + r.messaggio +
             CRLF;
    return t;
}

QString JsonRapporto(const QList<Rilievo>& rilievi) {
    QJsonArray a;
    for (const Rilievo& r : rilievi)
        a.append(QJsonObject{{QStringLiteral("gravità"), r.gravita},
                             {QStringLiteral("riga"), r.riga},
                             {QStringLiteral("codice"), r.codice},
                             {QStringLiteral("messaggio"), r.messaggio}});
    return QString::fromUtf8(QJsonDocument(a).toJson(QJsonDocument::Indented));
}

QString PercorsoRapporto(const QString& percorsoLibretto) {
    const int punto = InStrRev(percorsoLibretto, QStringLiteral("."));
    const int barra = std::max(InStrRev(percorsoLibretto, QStringLiteral("\\")),
                               InStrRev(percorsoLibretto, QStringLiteral("/")));
    const QString base = punto > barra ? Left(percorsoLibretto, punto - 1) : percorsoLibretto;
    return base + QStringLiteral("_CONTROLLO.TXT");
}

} // namespace tavolet
