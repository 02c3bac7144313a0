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
#include <vector>

namespace tavolet {

using namespace estratti;

namespace {

using Coppie = QList<std::pair<QString, QString>>;

double& Slot(std::array<double, 501>& tabella, qsizetype i) {
    if (i < 0 || i >= qsizetype(tabella.size())) throw Errore(9);
    return tabella[size_t(i)];
}

bool Ascii(const QString& s) {
    for (QChar c : s)
        if (c.unicode() >= 128) return false;
    return true;
}

// Step 2: ids right-aligned in ten columns, so that a text sort gives numeric order. The form's
// sorted list compares without regard to case; rows that compare equal keep their order. Most
// comparisons are settled by the first sixteen characters, packed lower-cased into two numbers.
void OrdinaPunti(Estratto& e) {
    struct Voce {
        quint64 testa[2];
        bool ascii;
        qsizetype indice;
    };
    const qsizetype conta = e.Punti.size();
    e.SORTED.clear();
    e.SORTED.reserve(conta);
    std::vector<Voce> voci;
    voci.reserve(size_t(conta));
    for (qsizetype i = 0; i < conta; ++i) {
        const QString& riga = e.Punti[i];
        qsizetype inizio, fine;
        CampoUno(riga, inizio, fine);
        const QString id = Right(Space(20) + riga.mid(inizio, fine - inizio), 10);
        QString nuova;
        nuova.reserve(riga.size() - (fine - inizio) + id.size());
        nuova += QStringView(riga).left(inizio);
        nuova += id;
        nuova += QStringView(riga).mid(fine);
        Voce v{{0, 0}, Ascii(nuova), i};
        if (v.ascii) {
            for (qsizetype k = 0; k < 16; ++k) {
                char16_t c = k < nuova.size() ? nuova[k].unicode() : 0;
                if (c >= u'A' && c <= u'Z') c = char16_t(c + 32);
                v.testa[k / 8] = (v.testa[k / 8] << 8) | quint64(c);
            }
        }
        e.SORTED.append(std::move(nuova));
        voci.push_back(v);
    }
    std::stable_sort(voci.begin(), voci.end(), [&](const Voce& a, const Voce& b) {
        if (a.ascii && b.ascii) {
            if (a.testa[0] != b.testa[0]) return a.testa[0] < b.testa[0];
            if (a.testa[1] != b.testa[1]) return a.testa[1] < b.testa[1];
        }
        return MinoreInLista(e.SORTED[a.indice], e.SORTED[b.indice]);
    });
    QStringList ordinati;
    ordinati.reserve(conta);
    for (const Voce& v : voci) ordinati.append(e.SORTED[v.indice]);
    e.SORTED = std::move(ordinati);
    e.Punti.clear();
    e.Punti.reserve(conta);
    for (const QString& riga : e.SORTED) {
        qsizetype inizio, fine;
        CampoUno(riga, inizio, fine);
        e.Punti.append(ConCampoUno(riga, Trim(riga.mid(inizio, fine - inizio))));
    }
}

// Step 3: vertex i takes the number i + 1; every ring follows, as the chain of replacements
// "|old|" -> "|i+1%|" over the text of the rings would have it.
void Rinumera(Estratto& e) {
    Coppie coppie;
    coppie.reserve(e.Punti.size());
    for (qsizetype i = 0; i < e.Punti.size(); ++i) {
        QString& riga = e.Punti[i];
        qsizetype inizio, fine;
        CampoUno(riga, inizio, fine);
        const QString nuovo = QString::number(i + 1) + u'%';
        coppie.append({riga.mid(inizio, fine - inizio), nuovo});
        riga = ConCampoUno(riga, nuovo);
    }
    e.SETTE = SostituisciCampi(e.SETTE, coppie);
}

// The area with the vertex tables; trova gives the row of Punti of an id, or -1.
template <typename Trova> void Area(Estratto& e, const QString& riga, Trova&& trova) {
    auto& x = e.XVertici;
    auto& y = e.YVertici;
    const QList<QStringView> campi = QStringView(riga).split(u'|');
    const qsizetype n = campi.size() - 1;
    qsizetype conta = 0;
    // The style token at n-4 finds no point: its slot keeps what the last ring left there,
    // and its two edges cancel out since the ring is closed.
    for (qsizetype k = 2; k <= n - 4; ++k) {
        ++conta;
        double nord, est;
        if (!trova(campi[k], nord, est)) continue;
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

// North and east of a row of Punti: fields 2 and 3.
void Coordinate(const QString& punto, double& nord, double& est) {
    qsizetype barre[4];
    qsizetype inizio = 0;
    for (int k = 0; k < 3; ++k) {
        barre[k] = punto.indexOf(u'|', inizio);
        if (barre[k] < 0) throw Errore(9);
        inizio = barre[k] + 1;
    }
    barre[3] = punto.indexOf(u'|', inizio);
    if (barre[3] < 0) barre[3] = punto.size();
    nord = Val(punto.mid(barre[1] + 1, barre[2] - barre[1] - 1));
    est = Val(punto.mid(barre[2] + 1, barre[3] - barre[2] - 1));
}

void ScriviCampoDaFondo(QString& riga, int k, const QString& valore) {
    qsizetype inizio, fine;
    CampoDaFondo(riga, k, inizio, fine);
    riga.replace(inizio, fine - inizio, valore);
}

QString TestoDaFondo(const QString& riga, int k) {
    qsizetype inizio, fine;
    CampoDaFondo(riga, k, inizio, fine);
    return riga.mid(inizio, fine - inizio);
}

// Step 4. After renumbering vertex i is "<i+1>%", so an id finds its row by its number: the
// first row beginning with "8|<id>|" is that one, if it begins with "8|" at all.
void Aree(Estratto& e) {
    const qsizetype punti = e.Punti.size();
    std::vector<char> letto(size_t(punti), char(0));
    std::vector<std::pair<double, double>> coordinate(size_t(punti), {0.0, 0.0});
    auto trova = [&](QStringView id, double& nord, double& est) {
        if (id.size() < 2 || id.size() > 12 || id.back() != u'%' || id.front() == u'0')
            return false;
        qsizetype numero = 0;
        for (qsizetype k = 0; k + 1 < id.size(); ++k) {
            if (id[k] < u'0' || id[k] > u'9') return false;
            numero = numero * 10 + (id[k].unicode() - u'0');
        }
        if (numero < 1 || numero > punti) return false;
        const size_t i = size_t(numero - 1);
        if (!e.Punti[qsizetype(i)].startsWith(u"8|")) return false;
        if (!letto[i]) {
            Coordinate(e.Punti[qsizetype(i)], coordinate[i].first, coordinate[i].second);
            letto[i] = 1;
        }
        nord = coordinate[i].first;
        est = coordinate[i].second;
        return true;
    };
    for (QString& riga : e.SETTE) {
        Area(e, riga, trova);
        ScriviCampoDaFondo(
            riga, 1, Replace(CStr(e.AreaRigaSette), QStringLiteral(","), QStringLiteral(".")));
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
    nomi.reserve(conta);
    aree.reserve(conta);
    for (qsizetype i = 0; i < conta; ++i) {
        nomi.append(TestoDaFondo(e.SETTE[i], 2));
        aree.append(Val(TestoDaFondo(e.SETTE[i], 1)));
        if (nomi.last().endsWith(u'-')) perNome[nomi.last()].append(int(i));
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
        ScriviCampoDaFondo(e.SETTE[i], 1,
                           Replace(CStr(area), QStringLiteral("."), QStringLiteral(",")));
    }
}

void Arrotonda(Estratto& e) {
    for (QString& riga : e.SETTE) {
        const double area = Val(TestoDaFondo(riga, 1));
        ScriviCampoDaFondo(riga, 1,
                           Replace(Trim(Formato(area, QStringLiteral("##############"))),
                                   QStringLiteral(","), QStringLiteral(".")));
    }
}

} // namespace

void estratti::RinumeraToponimi(Estratto& e, qsizetype punti) {
    for (qsizetype i = 0; i < e.Toponimi.size(); ++i)
        e.Toponimi[i] = ConCampoUno(e.Toponimi[i], QString::number(i + 1 + punti) + u'T');
}

// Step 9: the direction keeps a new number from being caught by a later replacement.
void estratti::RinumeraPuntiLinee(Estratto& e, qsizetype punti) {
    if (e.PLinee.isEmpty()) return;
    const qsizetype base = punti + e.Toponimi.size();
    const qsizetype conta = e.PLinee.size();
    const double primo = Val(Campo(Split(e.PLinee[0], kBarra), 1));
    const bool indietro = primo <= double(base + conta);
    Coppie coppie;
    coppie.reserve(conta);
    for (qsizetype k = 0; k < conta; ++k) {
        const qsizetype i = indietro ? conta - 1 - k : k;
        QString& riga = e.PLinee[i];
        qsizetype inizio, fine;
        CampoUno(riga, inizio, fine);
        const QString nuovo = QString::number(i + 1 + base) + u'L';
        coppie.append({riga.mid(inizio, fine - inizio), nuovo});
        riga = ConCampoUno(riga, nuovo);
    }
    e.Linee = SostituisciCampi(e.Linee, coppie);
}

namespace {

// Step 11: at most ten ids a row; the tail stays on the first row, continuation rows end "NC|".
void Anelli(Estratto& e) {
    e.List1.clear();
    for (const QString& riga : e.SETTE) {
        if (riga.isEmpty()) continue;
        const QList<QStringView> campi = QStringView(riga).split(u'|');
        const qsizetype n = campi.size() - 1;
        if (n - 4 < 0) throw Errore(9);
        QString coda;
        for (qsizetype k = n - 4; k <= n - 1; ++k) {
            coda += campi[k];
            coda += u'|';
        }
        auto emetti = [&](const QString& uscita) {
            e.List1.append(uscita + (uscita.startsWith(u"7|0|") ? QStringLiteral("NC|") : coda));
        };
        QString uscita = QStringLiteral("7|");
        uscita += campi[1];
        uscita += u'|';
        int ids = 0;
        for (qsizetype k = 2; k <= n - 5; ++k) {
            uscita += campi[k];
            uscita += u'|';
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

void CampoUno(const QString& riga, qsizetype& inizio, qsizetype& fine) {
    const qsizetype barra = riga.indexOf(u'|');
    if (barra < 0) throw Errore(9);
    inizio = barra + 1;
    fine = riga.indexOf(u'|', inizio);
    if (fine < 0) fine = riga.size();
}

QString ConCampoUno(const QString& riga, const QString& nuovo) {
    qsizetype inizio, fine;
    CampoUno(riga, inizio, fine);
    QString r;
    r.reserve(riga.size() - (fine - inizio) + nuovo.size());
    r += QStringView(riga).left(inizio);
    r += nuovo;
    r += QStringView(riga).mid(fine);
    return r;
}

void CampoDaFondo(const QString& riga, int k, qsizetype& inizio, qsizetype& fine) {
    qsizetype barra = riga.size();
    for (int i = 0; i < k; ++i) {
        barra = barra > 0 ? riga.lastIndexOf(u'|', barra - 1) : -1;
        if (barra < 0) throw Errore(9);
    }
    fine = barra;
    const qsizetype prima = barra > 0 ? riga.lastIndexOf(u'|', barra - 1) : -1;
    inizio = prima + 1;
}

void AreaRigaSette(Estratto& e, const QString& riga, const QHash<QString, int>& indice) {
    Area(e, riga, [&](QStringView id, double& nord, double& est) {
        const auto it = indice.constFind(id.toString());
        if (it == indice.constEnd()) return false;
        Coordinate(e.Punti[it.value()], nord, est);
        return true;
    });
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
    RinumeraToponimi(e, e.Punti.size());
    Stampa(testo, e.Toponimi);
    RinumeraPuntiLinee(e, e.Punti.size());
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
