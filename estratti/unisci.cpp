// Joining extracts. The merge looks for near points through a grid instead of comparing every
// pair: a comune's extracts reach a hundred thousand vertices.
#include "unisci.h"

#include "archivio.h"

#include "errore.h"
#include "file_testo.h"
#include "interno.h"
#include "nome_file.h"
#include "percorsi.h"
#include "stato.h"
#include "testo.h"

#include <QDir>

#include <algorithm>
#include <cmath>
#include <vector>

namespace tavolet {

using namespace estratti;

namespace {

const QString kTestaAutoallestito = QStringLiteral("0|AUTOALLESTITO|0|0|0|0|0|0|0|0|");

bool Escluso(const QString& riga) {
    return riga.contains(u'T') || riga.contains(u'L') || riga.contains(u'P');
}

// The first row of a ring with its continuation rows, as the extract reader gathers them.
QString Raccogli(const QStringList& righe) {
    const QStringList campi = Split(righe[0], kBarra);
    const qsizetype n = campi.size() - 1;
    QString unita;
    for (qsizetype k = 0; k <= n - 5; ++k) unita += campi[k] + kBarra;
    for (qsizetype i = 1; i < righe.size(); ++i)
        unita += Replace(Replace(righe[i], QStringLiteral("7|0|"), QString()),
                         QStringLiteral("NC|"), QString());
    for (qsizetype k = n - 4; k <= n - 1; ++k) unita += Campo(campi, k) + kBarra;
    return unita;
}

struct Letto {
    QStringList punti, anelli;
    double ultimo = 0; // the number of the last point read
};

Letto Leggi(const QString& testo) {
    Letto l;
    QStringList anello;
    bool escluso = false;
    auto chiudi = [&] {
        if (!anello.isEmpty() && !escluso) l.anelli.append(Raccogli(anello));
        anello.clear();
        escluso = false;
    };
    const QStringList righe = RigheDiTesto(testo);
    for (qsizetype i = 1; i < righe.size(); ++i) {
        const QString& riga = righe[i];
        const double tipo = TipoRigaEstratto(riga);
        if (tipo == 8 && riga.contains(u'%')) {
            qsizetype inizio, fine;
            CampoUno(riga, inizio, fine);
            l.ultimo = Val(riga.mid(inizio, fine - inizio));
            l.punti.append(riga);
        } else if (tipo == 7) {
            const QStringList campi = Split(riga, kBarra);
            if (Val(Campo(campi, 1)) > 0) {
                chiudi();
                anello.append(riga);
                escluso = Escluso(riga);
            } else if (!anello.isEmpty()) {
                anello.append(riga);
                escluso = escluso || Escluso(riga);
            }
            // A continuation row with no ring before it belongs to nothing.
        }
    }
    chiudi();
    return l;
}

// Every field ending in "%" moved on by n.
QString Sposta(const QString& riga, double n) {
    QStringList campi = Split(riga, kBarra);
    for (QString& c : campi)
        if (c.endsWith(u'%')) c = CStr(Val(c) + n) + u'%';
    return Join(campi, kBarra);
}

Unione::Punto Punto(const QString& riga) {
    const QStringList campi = Split(riga, kBarra);
    Unione::Punto p;
    p.riga = riga;
    p.id = Campo(campi, 1);
    p.nord = Val(Campo(campi, 2));
    p.est = Val(Campo(campi, 3));
    return p;
}

// Cells a little wider than the tolerance, so that the rounding of the quotient cannot put two
// points closer than the tolerance two cells apart. Coordinates too large for the grid are
// compared with every point.
constexpr double kCella = kTolleranzaUnione * 1.01;
constexpr double kLimiteGriglia = 1e9;

struct Griglia {
    struct Voce {
        qint64 x, y;
        int indice;
        bool operator<(const Voce& o) const {
            return x != o.x ? x < o.x : y != o.y ? y < o.y : indice < o.indice;
        }
    };
    std::vector<Voce> celle;
    std::vector<int> fuori; // ascending
    const QList<Unione::Punto>* punti = nullptr;

    static bool InGriglia(const Unione::Punto& p) {
        return std::fabs(p.est) <= kLimiteGriglia && std::fabs(p.nord) <= kLimiteGriglia;
    }
    static qint64 Cella(double v) { return qint64(std::floor(v / kCella)); }

    explicit Griglia(const QList<Unione::Punto>& lista) : punti(&lista) {
        celle.reserve(size_t(lista.size()));
        for (int i = 0; i < int(lista.size()); ++i) {
            const Unione::Punto& p = lista[i];
            if (InGriglia(p))
                celle.push_back({Cella(p.est), Cella(p.nord), i});
            else
                fuori.push_back(i);
        }
        std::sort(celle.begin(), celle.end());
    }

    // The first point of the list, of index above dopo, closer than the tolerance to p.
    int Primo(const Unione::Punto& p, int dopo) const {
        const QList<Unione::Punto>& l = *punti;
        auto vicino = [&](int j) {
            return DistanzaPunti(p.nord, p.est, l[j].nord, l[j].est) < kTolleranzaUnione;
        };
        int migliore = -1;
        auto prova = [&](int j) {
            if (j > dopo && (migliore < 0 || j < migliore) && vicino(j)) migliore = j;
        };
        if (!InGriglia(p)) {
            for (int j = dopo + 1; j < int(l.size()); ++j)
                if (vicino(j)) return j;
            return -1;
        }
        const qint64 cx = Cella(p.est), cy = Cella(p.nord);
        for (qint64 dx = -1; dx <= 1; ++dx) {
            for (qint64 dy = -1; dy <= 1; ++dy) {
                auto it =
                    std::lower_bound(celle.begin(), celle.end(), Voce{cx + dx, cy + dy, dopo + 1});
                for (; it != celle.end() && it->x == cx + dx && it->y == cy + dy; ++it) {
                    if (migliore >= 0 && it->indice >= migliore) break;
                    prova(it->indice);
                }
            }
        }
        for (int j : fuori) {
            if (migliore >= 0 && j >= migliore) break;
            prova(j);
        }
        return migliore;
    }
};

void Fondi(Unione& u, QList<Unione::Punto>& da, const QList<Unione::Punto>& in, bool stessa) {
    const Griglia griglia(in);
    for (int i = 0; i < int(da.size()); ++i) {
        Unione::Punto& a = da[i];
        if (a.vuoto) continue;
        const int j = griglia.Primo(a, stessa ? i : -1);
        if (j < 0) continue;
        a.vuoto = true;
        u.sostituzioni.append({a.id, in[j].id});
    }
}

// Field 3 of the first line of an extract, empty when it has none.
QString ComuneDi(const QString& percorso) {
    const QStringList righe = LeggiRighe(percorso);
    return Voce(Split(Voce(righe, 0), kBarra), 3);
}

// The replacements in their order on every field between two bars, each field as a whole: a
// ring that names a point twice in a row keeps both references valid. Walking the pairs from
// the last gives each id its final value at once.
QStringList SostituisciOgniCampo(const QStringList& anelli,
                                 const QList<std::pair<QString, QString>>& coppie) {
    QHash<QString, QString> finale;
    finale.reserve(coppie.size());
    for (qsizetype i = coppie.size() - 1; i >= 0; --i) {
        const auto& [vecchio, nuovo] = coppie[i];
        const auto it = finale.constFind(nuovo);
        // A copy: the insertion may move the hash's nodes, and the value with them.
        const QString valore = it == finale.constEnd() ? nuovo : it.value();
        finale.insert(vecchio, valore);
    }
    QStringList uscita;
    uscita.reserve(anelli.size());
    for (const QString& anello : anelli) {
        QStringList campi = Split(anello, kBarra);
        for (qsizetype k = 1; k + 1 < campi.size(); ++k) {
            const auto it = finale.constFind(campi[k]);
            if (it != finale.constEnd()) campi[k] = it.value();
        }
        uscita.append(Join(campi, kBarra));
    }
    return uscita;
}

} // namespace

double DistanzaPunti(double nord1, double est1, double nord2, double est2) {
    const double dn = nord2 - nord1, de = est2 - est1;
    return std::sqrt(dn * dn + de * de);
}

Unione PreparaUnione(const QString& testoBase, const QString& testoAggiunto) {
    const Letto base = Leggi(testoBase);
    const Letto aggiunto = Leggi(testoAggiunto);
    const double n = base.ultimo;
    Unione u;
    u.base.reserve(base.punti.size());
    for (const QString& riga : base.punti) u.base.append(Punto(riga));
    u.aggiunti.reserve(aggiunto.punti.size());
    for (const QString& riga : aggiunto.punti) u.aggiunti.append(Punto(Sposta(riga, n)));
    u.anelli = base.anelli;
    for (const QString& riga : aggiunto.anelli) u.anelli.append(Sposta(riga, n));
    return u;
}

void UniscanoPunti(Unione& u) {
    Fondi(u, u.base, u.aggiunti, false);
    Fondi(u, u.aggiunti, u.aggiunti, true);
    Fondi(u, u.base, u.base, true);
}

QString SpezzaRigaSette(const QString& riga) {
    const QStringList campi = Split(riga, kBarra);
    const qsizetype n = campi.size() - 1;
    if (n < 6) throw Errore(9);
    QString coda;
    for (qsizetype k = n - 4; k <= n - 1; ++k) coda += campi[k] + kBarra;
    const QString chiusura = campi[n - 4] + kBarra;
    const qsizetype ids = n - 6;
    QString uscita = QStringLiteral("7|") + Formato(double(ids), QStringLiteral("#######0")) + u'|';
    int conta = 0;
    for (qsizetype k = 2; k <= n - 5; ++k) {
        if (conta == 10) {
            uscita += chiusura + CRLF + QStringLiteral("7|0|");
            conta = 0;
        }
        uscita += campi[k] + kBarra;
        ++conta;
    }
    return uscita + coda;
}

QString ComponiUnione(Unione& u) {
    QString testo = kTestaAutoallestito + CRLF;
    int numero = 0;
    for (QList<Unione::Punto>* lista : {&u.base, &u.aggiunti}) {
        for (const Unione::Punto& p : *lista) {
            if (p.vuoto) continue;
            const QString nuovo = QString::number(++numero) + u'%';
            u.sostituzioni.append({p.id, nuovo});
            const QStringList campi = Split(p.riga, kBarra);
            testo += QStringLiteral("8|") + nuovo + u'|' + campi[2] + u'|' + campi[3] + u'|' + CRLF;
        }
    }
    for (const QString& anello : SostituisciOgniCampo(u.anelli, u.sostituzioni)) {
        if (anello.isEmpty()) continue;
        testo += SpezzaRigaSette(anello) + CRLF;
    }
    return testo;
}

QString UnisciTestiEstratti(const QString& testoBase, const QString& testoAggiunto) {
    Unione u = PreparaUnione(testoBase, testoAggiunto);
    UniscanoPunti(u);
    return ComponiUnione(u);
}

QString PercorsoTempestratto(const Stato& stato) {
    return stato.amb.CartellaProgramma + QStringLiteral("\\temp\\Tempestratto.emp");
}

bool UnisciDueEstratti(Stato& stato, const QString& estrattoBase, const QString& estrattoAggiunto) {
    const QString temp = PercorsoTempestratto(stato);
    const bool ok = ConTrappola(stato, QStringLiteral("UnisciDueEstratti"), [&] {
        EliminaFile(temp);
        const QString base = LeggiTesto(PercorsoEstratto(stato, estrattoBase));
        const QString aggiunto = LeggiTesto(PercorsoEstratto(stato, estrattoAggiunto));
        const QString testo = UnisciTestiEstratti(base, aggiunto);
        CreaCartella(CartellaDel(temp));
        ScriviTesto(temp, testo);
    });
    if (!ok) ConTrappola(stato, QStringLiteral("UnisciDueEstratti"), [&] { EliminaFile(temp); });
    return ok;
}

QString GeneraSommaEstratti(Stato& stato, const QString& estrattoBase, const QString& nomeScritto) {
    QString scritto;
    ConTrappola(stato, QStringLiteral("GeneraSommaEstratti"), [&] {
        const QString cartella = CartellaEstratti(stato);
        const QString nome = NomeFileSicuro(nomeScritto);
        CopiaFile(PercorsoTempestratto(stato), cartella + nome + QStringLiteral(".emp"));
        const QString base = SenzaEstensione(PercorsoEstratto(stato, estrattoBase));
        for (const QString& estensione :
             {QStringLiteral(".PNG"), QStringLiteral(".TIF"), QStringLiteral(".JPG")}) {
            if (!EsisteFile(base + estensione)) continue;
            CopiaFile(base + estensione, cartella + nome + estensione);
            break;
        }
        scritto = nome + QStringLiteral(".emp");
    });
    return scritto;
}

QString SommaComuneInCartella(Stato& stato, const QString& cartellaData, const QString& comune,
                              const QString& primo, const Avanzamento& avanzamento) {
    QString scritto;
    ConTrappola(stato, QStringLiteral("SommaEstrattiComune"), [&] {
        QString cartella = cartellaData;
        if (!cartella.endsWith(u'\\') && !cartella.endsWith(u'/'))
            cartella += cartella.contains(u'\\') ? u'\\' : u'/';
        const QString nome = NomeFileSicuro(comune + QStringLiteral(".EMP"));
        // The list as it stands before the copy; the first extract is the base already.
        const QDir dir(PercorsoLocale(cartella));
        const QString proprio = NomeDelFile(primo);
        QStringList altri;
        for (const QString& f : dir.entryList({QStringLiteral("*")}, QDir::Files, QDir::Name)) {
            if (!f.endsWith(QStringLiteral(".EMP"), Qt::CaseInsensitive)) continue;
            if (f.compare(proprio, Qt::CaseInsensitive) == 0 ||
                f.compare(nome, Qt::CaseInsensitive) == 0)
                continue;
            if (ComuneDi(cartella + f) == comune) altri.append(f);
        }
        QString inizio = primo;
        if (inizio.isEmpty()) {
            if (altri.isEmpty())
                throw Errore(53, QStringLiteral("Nessun estratto del comune ") + comune);
            inizio = cartella + altri.takeFirst();
        }
        const QString base = cartella + nome;
        CopiaFile(inizio, base);
        for (int i = 0; i < altri.size(); ++i) {
            // The join has shown its own report; the comune's extract stays as far as it came.
            if (!UnisciDueEstratti(stato, base, cartella + altri[i])) return;
            CopiaFile(PercorsoTempestratto(stato), base);
            if (avanzamento) avanzamento(i + 1, int(altri.size()));
        }
        scritto = nome;
    });
    return scritto;
}

QString SommaEstrattiComune(Stato& stato, const QString& selezionato,
                            const Avanzamento& avanzamento) {
    QString comune, percorso;
    if (!ConTrappola(stato, QStringLiteral("SommaEstrattiComune"), [&] {
            percorso = PercorsoEstratto(stato, selezionato);
            comune = ComuneDi(percorso);
        }))
        return {};
    return SommaComuneInCartella(stato, CartellaEstratti(stato), comune, percorso, avanzamento);
}

} // namespace tavolet
