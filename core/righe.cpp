#include "righe.h"

#include "errore.h"
#include "stato.h"
#include "testo.h"

#include <cmath>

namespace tavolet {

int TipoRiga(const QString& riga) {
    double v = 0;
    try {
        v = Val(riga);
    } catch (const Errore&) {
        return -1;
    }
    if (v != std::floor(v) || std::fabs(v) > 1e9) return -1;
    return int(v);
}

namespace {

bool ChiudePunti(const QString& campo) {
    static const QString lettere = QStringLiteral("RNVTCP");
    for (QChar c : campo)
        if (lettere.contains(c)) return true;
    return !campo.isEmpty() && Val(campo) == 0;
}

} // namespace

RigaScomposta ScomponiRiga(const QString& riga) {
    RigaScomposta r;
    if (Trim(riga).isEmpty()) return r;
    if (TipoRiga(riga) == 6 && riga.size() >= 41) {
        r.campi = {QStringLiteral("6"), Mid(riga, 3)};
        r.NumeroCampi = 1;
        return r;
    }
    r.campi.append(QString());
    for (QChar c : riga) {
        if (c == u'|') {
            if (r.campi.size() >= kMaxCampiRiga) throw Errore(9);
            r.campi.append(QString());
        } else {
            r.campi.last() += c;
        }
    }
    int conta = 0;
    for (int i = 1; i < r.campi.size() && !r.campi[i].isEmpty(); ++i) conta = i;
    r.NumeroCampi = conta;
    if (TipoRiga(riga) == 7) {
        int i = 2;
        while (i < r.campi.size() && !ChiudePunti(r.campi[i])) ++i;
        r.NumeroPunti = i < r.campi.size() ? i - 2 : std::max(0, conta - 1);
    }
    return r;
}

void PulisciRigaNote(QString& riga) {
    riga.remove(QStringLiteral("<P!>"));
    riga.replace(QStringLiteral("||"), QStringLiteral("|NOTE:|"));
}

void PulisciRigaMarche(QString& riga) {
    static const char* const marche[] = {"<P!>", "<PD>", "<PV>", "<00>",
                                         "<EL>", "<8P>", "<8=>", "<8Q>"};
    for (const char* m : marche) riga.remove(QLatin1String(m));
    riga = Trim(riga);
}

void AggiungiRiga(Stato& stato, const QString& testo) {
    stato.doc.TestoLibretto += Trim(testo) + CRLF;
}

QString ValoreTag(const QString& riga) {
    const QStringList campi = Split(riga, QStringLiteral("|"));
    if (campi.size() < 2) return QString();
    const QStringList pezzi = Split(campi[1], QStringLiteral(">"));
    return pezzi.size() < 2 ? QString() : pezzi[1];
}

} // namespace tavolet
