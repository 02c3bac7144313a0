// SalvaEstratto1 and the area of a ring. The order of the steps matters: point numbers change
// along the way.
#include "estratto.h"

#include "errore.h"
#include "file_testo.h"
#include "interno.h"
#include "sostituzioni.h"
#include "stato.h"
#include "testo.h"

#include <algorithm>
#include <cmath>

namespace tavolet {

using namespace estratti;

namespace {

using Coppie = QList<std::pair<QString, QString>>;

double& Slot(std::array<double, 501>& tabella, qsizetype i) {
    if (i < 0 || i >= qsizetype(tabella.size())) throw Errore(9);
    return tabella[size_t(i)];
}

// Step 2: ids right-aligned in ten columns, so that a text sort gives numeric order. The form's
// sorted list compares without regard to case; rows that compare equal keep their order.
void OrdinaPunti(Estratto& e) {
    QStringList ordinati;
    ordinati.reserve(e.Punti.size());
    for (const QString& riga : e.Punti) {
        QStringList campi = Split(riga, kBarra);
        QString& id = CampoRif(campi, 1);
        id = Right(Space(20) + id, 10);
        ordinati.append(Join(campi, kBarra));
    }
    std::stable_sort(ordinati.begin(), ordinati.end(), [](const QString& a, const QString& b) {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    });
    e.SORTED = ordinati;
    e.Punti.clear();
    for (const QString& riga : e.SORTED) {
        QStringList campi = Split(riga, kBarra);
        CampoRif(campi, 1) = Trim(campi[1]);
        e.Punti.append(Join(campi, kBarra));
    }
}

// Step 3: vertex i takes the number i + 1; every ring follows, as the chain of replacements
// "|old|" -> "|i+1%|" over the text of the rings would have it.
void Rinumera(Estratto& e) {
    Coppie coppie;
    coppie.reserve(e.Punti.size());
    for (qsizetype i = 0; i < e.Punti.size(); ++i) {
        QStringList campi = Split(e.Punti[i], kBarra);
        const QString nuovo = QString::number(i + 1) + u'%';
        coppie.append({Campo(campi, 1), nuovo});
        campi[1] = nuovo;
        e.Punti[i] = Join(campi, kBarra);
    }
    e.SETTE = SostituisciCampi(e.SETTE, coppie);
}

void Aree(Estratto& e) {
    const QHash<QString, int> indice = IndicePunti(e.Punti);
    for (QString& riga : e.SETTE) {
        AreaRigaSette(e, riga, indice);
        QStringList campi = Split(riga, kBarra);
        CampoRif(campi, campi.size() - 2) =
            Replace(CStr(e.AreaRigaSette), QStringLiteral(","), QStringLiteral("."));
        riga = Join(campi, kBarra);
    }
}

// Step 5: a parcel loses the area of the rings named after it with "-". This store keeps the
// decimal comma of the Italian runtime (its replacement looked for an empty text), so the next
// step's Val stops there and the area is cut, not rounded.
void Isole(Estratto& e) {
    const qsizetype conta = e.SETTE.size();
    QStringList nomi;
    QList<double> aree;
    QHash<QString, QList<int>> perNome; // rows by name, ascending
    for (qsizetype i = 0; i < conta; ++i) {
        const QStringList campi = Split(e.SETTE[i], kBarra);
        const qsizetype n = campi.size() - 1;
        nomi.append(Campo(campi, n - 2));
        aree.append(Val(Campo(campi, n - 1)));
        perNome[nomi.last()].append(int(i));
    }
    for (qsizetype i = 0; i < conta - 1; ++i) {
        if (nomi[i].contains(u'-') || nomi[i].contains(u'+')) continue;
        double area = aree[i];
        const auto it = perNome.constFind(nomi[i] + u'-');
        if (it != perNome.constEnd()) {
            const QList<int>& righe = it.value();
            for (auto j = std::upper_bound(righe.begin(), righe.end(), int(i)); j != righe.end();
                 ++j)
                area = area - aree[*j];
        }
        QStringList campi = Split(e.SETTE[i], kBarra);
        campi[campi.size() - 2] = Replace(CStr(area), QStringLiteral("."), QStringLiteral(","));
        e.SETTE[i] = Join(campi, kBarra);
    }
}

void Arrotonda(Estratto& e) {
    for (QString& riga : e.SETTE) {
        QStringList campi = Split(riga, kBarra);
        QString& area = CampoRif(campi, campi.size() - 2);
        area = Replace(Trim(Formato(Val(area), QStringLiteral("##############"))),
                       QStringLiteral(","), QStringLiteral("."));
        riga = Join(campi, kBarra);
    }
}

void Toponimi(Estratto& e) {
    for (qsizetype i = 0; i < e.Toponimi.size(); ++i) {
        QStringList campi = Split(e.Toponimi[i], kBarra);
        CampoRif(campi, 1) = QString::number(i + 1 + e.Punti.size()) + u'T';
        e.Toponimi[i] = Join(campi, kBarra);
    }
}

// Step 9: the direction keeps a new number from being caught by a later replacement.
void PuntiLinee(Estratto& e) {
    if (e.PLinee.isEmpty()) return;
    const qsizetype base = e.Punti.size() + e.Toponimi.size();
    const qsizetype conta = e.PLinee.size();
    const double primo = Val(Campo(Split(e.PLinee[0], kBarra), 1));
    const bool indietro = primo <= double(base + conta);
    Coppie coppie;
    coppie.reserve(conta);
    for (qsizetype k = 0; k < conta; ++k) {
        const qsizetype i = indietro ? conta - 1 - k : k;
        QStringList campi = Split(e.PLinee[i], kBarra);
        const QString nuovo = QString::number(i + 1 + base) + u'L';
        coppie.append({Campo(campi, 1), nuovo});
        campi[1] = nuovo;
        e.PLinee[i] = Join(campi, kBarra);
    }
    e.Linee = SostituisciCampi(e.Linee, coppie);
}

// Step 11: at most ten ids a row; the tail stays on the first row, continuation rows end "NC|".
void Anelli(Estratto& e) {
    e.List1.clear();
    for (const QString& riga : e.SETTE) {
        if (riga.isEmpty()) continue;
        const QStringList campi = Split(riga, kBarra);
        const qsizetype n = campi.size() - 1;
        QString coda;
        for (qsizetype k = n - 4; k <= n - 1; ++k) coda += Campo(campi, k) + kBarra;
        auto emetti = [&](const QString& uscita) {
            e.List1.append(uscita + (uscita.startsWith(u"7|0|") ? QStringLiteral("NC|") : coda));
        };
        QString uscita = QStringLiteral("7|") + Campo(campi, 1) + kBarra;
        int ids = 0;
        for (qsizetype k = 2; k <= n - 5; ++k) {
            uscita += campi[k] + kBarra;
            if (++ids == 10) {
                emetti(uscita);
                uscita = QStringLiteral("7|0|");
                ids = 0;
            }
        }
        if (uscita.size() >= 7) emetti(uscita);
    }
}

void Stampa(QString& testo, const QStringList& righe) {
    for (const QString& r : righe) {
        testo += r;
        testo += CRLF;
    }
}

} // namespace

namespace estratti {

QHash<QString, int> IndicePunti(const QStringList& punti) {
    QHash<QString, int> indice;
    indice.reserve(punti.size());
    for (qsizetype i = 0; i < punti.size(); ++i) {
        const QString& riga = punti[i];
        if (!riga.startsWith(u"8|")) continue;
        const qsizetype barra = riga.indexOf(u'|', 2);
        if (barra < 0) continue;
        const QString id = riga.mid(2, barra - 2);
        if (!indice.contains(id)) indice.insert(id, int(i)); // the first one wins
    }
    return indice;
}

void AreaRigaSette(Estratto& e, const QString& riga, const QHash<QString, int>& indice) {
    const QStringList campi = Split(riga, kBarra);
    const qsizetype n = campi.size() - 1;
    auto& x = e.XVertici;
    auto& y = e.YVertici;
    qsizetype conta = 0;
    // The style token at n-4 finds no point: its slot keeps what the last ring left there,
    // and its two edges cancel out since the ring is closed.
    for (qsizetype k = 2; k <= n - 4; ++k) {
        ++conta;
        const auto it = indice.constFind(campi[k]);
        if (it == indice.constEnd()) continue;
        const QStringList punto = Split(e.Punti[it.value()], kBarra);
        const double nord = Val(Campo(punto, 2));
        const double est = Val(Campo(punto, 3));
        Slot(y, conta) = nord;
        Slot(x, conta) = est;
    }
    Slot(x, 0) = Slot(x, conta);
    Slot(y, 0) = Slot(y, conta);
    Slot(x, conta + 1) = Slot(x, 1);
    Slot(y, conta + 1) = Slot(y, 1);
    double area = 0, perimetro = 0, sommaDx = 0;
    if (conta >= 3) {
        for (qsizetype i = 1; i <= conta; ++i) {
            const double dx = x[size_t(i + 1)] - x[size_t(i)];
            const double dy = y[size_t(i + 1)] - y[size_t(i)];
            area = area + dx * (y[size_t(i)] + y[size_t(i + 1)]) / 2;
            perimetro = perimetro + std::sqrt(dx * dx + dy * dy);
            sommaDx = sommaDx + dx;
        }
    }
    e.AreaRigaSette = std::fabs(area);
    e.PerimetroRigaSette = perimetro;
    e.SommaDxRigaSette = sommaDx;
}

QString Componi(Stato& stato, Estratto& e) {
    stato.TagRoutine = QStringLiteral("SalvaEstratto");
    OrdinaPunti(e);
    Rinumera(e);
    stato.TagRoutine = QStringLiteral("SalvaEstratto1");
    Aree(e);
    Isole(e);
    Arrotonda(e);
    QString testo;
    testo += Voce(e.ZERO, 0) + CRLF;
    Stampa(testo, e.Punti);
    Toponimi(e);
    Stampa(testo, e.Toponimi);
    PuntiLinee(e);
    Stampa(testo, e.PLinee);
    Stampa(testo, e.PF);
    Anelli(e);
    Stampa(testo, e.List1);
    for (const QStringList* lista :
         {&e.Linee, &e.DITTA, &e.PARTICELLA, &e.PFCART, &e.DISTANZA, &e.ALTRO})
        Stampa(testo, *lista);
    // Only the row itself; without a framing row the file ends in an empty line.
    testo += Voce(e.INQUADRAMENTO, 0) + CRLF;
    return testo;
}

} // namespace estratti

std::optional<QString> ComponiEstratto(Stato& stato, Estratto& e) {
    std::optional<QString> testo;
    ConTrappola(stato, QStringLiteral("SalvaEstratto"), [&] { testo = Componi(stato, e); });
    return testo;
}

bool SalvaEstratto1(Stato& stato, Estratto& e) {
    const bool ok = ConTrappola(stato, QStringLiteral("SalvaEstratto"), [&] {
        const QString testo = Componi(stato, e);
        ScriviTesto(e.Percorso, testo);
    });
    if (ok) e = Estratto{};
    return ok;
}

bool CalcolaAreaRigaSette(Stato& stato, Estratto& e, const QString& riga) {
    // The error goes to the report under the tag of the caller.
    return ConTrappola(stato, stato.TagRoutine,
                       [&] { AreaRigaSette(e, riga, IndicePunti(e.Punti)); });
}

} // namespace tavolet
