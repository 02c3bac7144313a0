// Joining extracts over the bytes of the two files. The merge looks for near points through a
// grid instead of comparing every pair, and the rings are renamed through one table: a comune's
// extracts reach a hundred thousand vertices.
#include "unisci.h"

#include "archivio.h"
#include "byte.h"

#include "errore.h"
#include "file_testo.h"
#include "interno.h"
#include "nome_file.h"
#include "percorsi.h"
#include "stato.h"
#include "testo.h"

#include <QDir>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>
#include <unordered_map>
#include <vector>

namespace tavolet {

using namespace estratti;

namespace {

const Byte kTestaUnione = "0|AUTOALLESTITO|0|0|0|0|0|0|0|0|\r\n";

struct PuntoUnito {
    double nord, est;
    Byte id;
    Byte coordinate; // fields 2 and 3 as written, with the bar between them
};

// A ring: its first row and its continuation rows, which lie in a list of their own.
struct AnelloUnito {
    Byte primo;
    size_t seguiti, quanti;
};

// For an id, the first point of the extract that bears it. Ids "<n>%" of plain numbers not
// far above the count of points are looked up by number.
class Indice {
public:
    void Prepara(qsizetype punti) { limite_ = 8 * punti + 1024; }
    void Aggiungi(Byte id, int punto) {
        const qint64 n = NumeroId(id, 11);
        if (n >= 0 && n <= limite_) {
            if (size_t(n) >= numeri_.size()) numeri_.resize(size_t(n) + 1 + numeri_.size(), -1);
            if (numeri_[size_t(n)] < 0) numeri_[size_t(n)] = punto;
        } else {
            altri_.try_emplace(id, punto); // the first one wins
        }
    }
    int Trova(Byte id) const {
        const qint64 n = NumeroId(id, 11);
        if (n >= 0 && n <= limite_) return size_t(n) < numeri_.size() ? numeri_[size_t(n)] : -1;
        if (altri_.empty()) return -1;
        const auto it = altri_.find(id);
        return it == altri_.end() ? -1 : it->second;
    }

private:
    qint64 limite_ = 0;
    std::vector<int> numeri_;
    std::unordered_map<Byte, int> altri_;
};

bool Escluso(Byte riga) {
    return riga.find_first_of("TLP") != Byte::npos;
}

// Val(field) > 0, without the full read for a field of plain digits.
bool Positivo(Byte campo) {
    bool cifre = !campo.empty(), nonZero = false;
    for (char c : campo) {
        cifre = cifre && Cifra(c);
        nonZero = nonZero || (c >= '1' && c <= '9');
    }
    return cifre ? nonZero : ValTesto(campo) > 0;
}

// The kept rows of one extract, in the order of the file.
struct Lato {
    std::vector<AnelloUnito> anelli;
    std::vector<Byte> seguiti;
    Indice indice;
    double massimo = 0; // the highest number of a point, read for the first extract only
    int primo = 0;      // where its points start in the joined list

    void Leggi(const QByteArray& dati, bool base, std::vector<PuntoUnito>& punti) {
        primo = int(punti.size());
        // Room for the rows at once: counted by line feeds.
        punti.reserve(punti.size() + size_t(dati.count('\n')) + 1);
        bool testa = true, aperto = false, escluso = false;
        AnelloUnito anello{};
        auto chiudi = [&] {
            if (aperto && !escluso) {
                int barre = 0;
                for (char c : anello.primo) barre += c == '|';
                if (barre < 4) throw Errore(9);
                anelli.push_back(anello);
            } else if (aperto) {
                seguiti.resize(anello.seguiti);
            }
            aperto = false;
        };
        PerRiga(dati, [&](Byte riga) {
            if (testa) {
                testa = false;
                return;
            }
            double tipo;
            if (riga.size() >= 2 && riga[1] == '|' && Cifra(riga[0]))
                tipo = riga[0] - '0';
            else
                tipo = ValTesto(riga);
            if (tipo == 8) {
                if (riga.find('%') == Byte::npos) return;
                const size_t b1 = Barra(riga, 0);
                const size_t b2 = b1 == Byte::npos ? b1 : Barra(riga, b1 + 1);
                const size_t b3 = b2 == Byte::npos ? b2 : Barra(riga, b2 + 1);
                if (b3 == Byte::npos) throw Errore(9);
                size_t b4 = Barra(riga, b3 + 1);
                if (b4 == Byte::npos) b4 = riga.size();
                if (base) {
                    const Byte id = riga.substr(b1 + 1, b2 - b1 - 1);
                    const qint64 n = NumeroId(id, 16);
                    const double numero = n >= 0 ? double(n) : ValCampo(id);
                    massimo = punti.size() == size_t(primo) ? numero : std::max(massimo, numero);
                }
                punti.push_back({ValCampo(riga.substr(b2 + 1, b3 - b2 - 1)),
                                 ValCampo(riga.substr(b3 + 1, b4 - b3 - 1)),
                                 riga.substr(b1 + 1, b2 - b1 - 1),
                                 riga.substr(b2 + 1, b4 - b2 - 1)});
            } else if (tipo == 7) {
                const size_t b1 = Barra(riga, 0);
                if (b1 == Byte::npos) throw Errore(9);
                size_t b2 = Barra(riga, b1 + 1);
                if (b2 == Byte::npos) b2 = riga.size();
                if (Positivo(riga.substr(b1 + 1, b2 - b1 - 1))) {
                    chiudi();
                    anello = {riga, seguiti.size(), 0};
                    aperto = true;
                    escluso = Escluso(riga);
                } else if (aperto) {
                    seguiti.push_back(riga);
                    ++anello.quanti;
                    escluso = escluso || Escluso(riga);
                }
            }
        });
        chiudi();
        indice.Prepara(qsizetype(punti.size()) - primo);
        for (size_t i = size_t(primo); i < punti.size(); ++i) indice.Aggiungi(punti[i].id, int(i));
    }
};

// Cells at least two and a half tolerances wide: the square of a tolerance around a point
// meets one or two of them along each axis, and the bounds of that square, taken a little
// wider, find them even after the rounding of the quotients. Coordinates too large for the
// grid are compared with every point.
constexpr double kCella = kTolleranzaUnione * 2.5;
constexpr double kMargine = kTolleranzaUnione * 1.01;
constexpr double kLimiteGriglia = 1e9;

class Griglia {
public:
    // The points [da, a) of the list.
    Griglia(const std::vector<PuntoUnito>& punti, int da, int a) : punti_(punti), da_(da), a_(a) {
        voci_.reserve(size_t(a - da));
        for (int i = da; i < a; ++i) {
            const PuntoUnito& p = punti[size_t(i)];
            if (InGriglia(p))
                voci_.push_back({Cella(p.est), Cella(p.nord), i});
            else
                fuori_.push_back(i);
        }
        std::sort(voci_.begin(), voci_.end(), [](const Voce& u, const Voce& v) {
            return u.x != v.x ? u.x < v.x : u.y != v.y ? u.y < v.y : u.indice < v.indice;
        });
        size_t dimensione = 64;
        while (dimensione < 2 * voci_.size()) dimensione *= 2;
        celle_.assign(dimensione, {0, 0, 0, 0});
        for (size_t k = 0; k < voci_.size();) {
            size_t fine = k + 1;
            while (fine < voci_.size() && voci_[fine].x == voci_[k].x &&
                   voci_[fine].y == voci_[k].y)
                ++fine;
            size_t h = Hash(voci_[k].x, voci_[k].y);
            while (celle_[h].fine != 0) h = (h + 1) & (celle_.size() - 1);
            celle_[h] = {voci_[k].x, voci_[k].y, quint32(k), quint32(fine)};
            k = fine;
        }
    }

    // The first point of index above dopo closer than the tolerance to p, or -1.
    int Primo(const PuntoUnito& p, int dopo) const {
        int migliore = -1;
        auto prova = [&](int j) {
            if (DistanzaPunti(p.nord, p.est, punti_[size_t(j)].nord, punti_[size_t(j)].est) >=
                kTolleranzaUnione)
                return false;
            migliore = j;
            return true;
        };
        if (!InGriglia(p)) {
            for (int j = std::max(dopo + 1, da_); j < a_; ++j)
                if (prova(j)) return j;
            return -1;
        }
        const qint64 x0 = Cella(p.est - kMargine), x1 = Cella(p.est + kMargine);
        const qint64 y0 = Cella(p.nord - kMargine), y1 = Cella(p.nord + kMargine);
        for (qint64 x = x0; x <= x1; ++x) {
            for (qint64 y = y0; y <= y1; ++y) {
                size_t h = Hash(x, y);
                while (celle_[h].fine != 0 && (celle_[h].x != x || celle_[h].y != y))
                    h = (h + 1) & (celle_.size() - 1);
                const CellaG& c = celle_[h];
                if (c.fine == 0) continue;
                auto it = std::upper_bound(voci_.begin() + c.inizio, voci_.begin() + c.fine, dopo,
                                           [](int d, const Voce& v) { return d < v.indice; });
                for (; it != voci_.begin() + c.fine; ++it) {
                    if (migliore >= 0 && it->indice >= migliore) break;
                    if (prova(it->indice)) break;
                }
            }
        }
        for (int j : fuori_) {
            if (j <= dopo) continue;
            if (migliore >= 0 && j >= migliore) break;
            if (prova(j)) break;
        }
        return migliore;
    }

private:
    struct Voce {
        qint64 x, y;
        int indice;
    };
    struct CellaG {
        qint64 x, y;
        quint32 inizio, fine; // fine 0: an empty slot
    };
    static bool InGriglia(const PuntoUnito& p) {
        return std::fabs(p.est) <= kLimiteGriglia && std::fabs(p.nord) <= kLimiteGriglia;
    }
    static qint64 Cella(double v) { return qint64(std::floor(v / kCella)); }
    size_t Hash(qint64 x, qint64 y) const {
        quint64 h = quint64(x) * 0x9E3779B97F4A7C15ULL ^ quint64(y) * 0xC2B2AE3D27D4EB4FULL;
        h ^= h >> 31;
        return size_t(h) & (celle_.size() - 1);
    }
    const std::vector<PuntoUnito>& punti_;
    int da_, a_;
    std::vector<Voce> voci_;
    std::vector<CellaG> celle_;
    std::vector<int> fuori_; // ascending
};

void MettiNumero(std::string& uscita, qint64 n) {
    char cifre[24];
    const auto r = std::to_chars(cifre, cifre + sizeof cifre, n);
    uscita.append(cifre, size_t(r.ptr - cifre));
}

void MettiTesto(std::string& uscita, const QString& testo) {
    const QByteArray b = AWindows1252(testo);
    uscita.append(b.constData(), size_t(b.size()));
}

// A ring in one line, as the extract reader gathers it: the first row up to its style, the
// continuation rows without "7|0|" and "NC|", the tail of the first row (up to its last bar).
Byte Raccogli(const AnelloUnito& a, const std::vector<Byte>& seguiti, std::string& unito) {
    const Byte primo = a.primo;
    const size_t ultima = BarraIndietro(primo, primo.size() - 1);
    if (a.quanti == 0) return primo.substr(0, ultima + 1);
    size_t coda = ultima;
    for (int k = 0; k < 4 && coda != Byte::npos; ++k)
        coda = coda > 0 ? BarraIndietro(primo, coda - 1) : Byte::npos;
    coda = coda == Byte::npos ? 0 : coda + 1;
    unito.assign(primo.substr(0, coda));
    std::string pezzo;
    for (size_t k = a.seguiti; k < a.seguiti + a.quanti; ++k) {
        pezzo.assign(seguiti[k]);
        Togli(pezzo, "7|0|");
        Togli(pezzo, "NC|");
        unito += pezzo;
    }
    unito.append(primo.substr(coda, ultima + 1 - coda));
    return unito;
}

// A gathered ring as the extract writer lays it out: ten ids a row, the tail on the first,
// "NC|" closing the continuation rows. rinomina(id, uscita) writes each id.
template <typename Rinomina>
void MettiAnello(Byte riga, std::string& uscita, std::vector<Byte>& campi, Rinomina&& rinomina) {
    CampiDi(riga, campi);
    const size_t n = campi.size() - 1;
    if (n < 6) throw Errore(9);
    const size_t ids = n - 6;
    if (ids == 0) return; // a ring of no point
    auto coda = [&] {
        for (size_t k = n - 4; k < n; ++k) {
            uscita.append(campi[k]);
            uscita += '|';
        }
    };
    uscita.append("7|");
    MettiNumero(uscita, qint64(ids));
    uscita += '|';
    for (size_t k = 0; k < ids; ++k) {
        if (k > 0 && k % 10 == 0) {
            if (k == 10)
                coda();
            else
                uscita.append("NC|");
            uscita.append("\r\n7|0|");
        }
        rinomina(campi[2 + k], uscita);
        uscita += '|';
    }
    if (ids > 10)
        uscita.append("NC|");
    else
        coda();
    uscita.append("\r\n");
}

// Field 3 of the first line of an extract, empty when it has none.
QString ComuneDi(const QString& percorso) {
    const QStringList righe = LeggiRighe(percorso);
    return Voce(Split(Voce(righe, 0), kBarra), 3);
}

} // namespace

double DistanzaPunti(double nord1, double est1, double nord2, double est2) {
    const double dn = nord2 - nord1, de = est2 - est1;
    return std::sqrt(dn * dn + de * de);
}

QByteArray UnisciEstratti(const QByteArray& testoBase, const QByteArray& testoAggiunto) {
    std::vector<PuntoUnito> punti;
    Lato base, aggiunto;
    base.Leggi(testoBase, true, punti);
    aggiunto.Leggi(testoAggiunto, false, punti);
    const int nb = aggiunto.primo, tutti = int(punti.size());

    // Each point into the one it falls on; in[a] is always above a.
    std::vector<int> in(size_t(tutti), -1);
    {
        const Griglia griglia(punti, nb, tutti);
        for (int a = 0; a < nb; ++a) in[size_t(a)] = griglia.Primo(punti[size_t(a)], nb - 1);
        for (int a = nb; a < tutti; ++a) in[size_t(a)] = griglia.Primo(punti[size_t(a)], a);
    }
    {
        const Griglia griglia(punti, 0, nb);
        for (int a = 0; a < nb; ++a)
            if (in[size_t(a)] < 0) in[size_t(a)] = griglia.Primo(punti[size_t(a)], a);
    }
    std::string uscita;
    uscita.reserve(size_t(testoBase.size() + testoAggiunto.size()) + 1024);
    uscita.append(kTestaUnione);
    // The points left numbered in their order; each point takes the number of where it went.
    std::vector<int> nuovo(size_t(tutti), 0);
    for (int a = 0, numero = 0; a < tutti; ++a) {
        if (in[size_t(a)] >= 0) continue;
        nuovo[size_t(a)] = ++numero;
        uscita.append("8|");
        MettiNumero(uscita, numero);
        uscita.append("%|");
        uscita.append(punti[size_t(a)].coordinate);
        uscita.append("|\r\n");
    }
    for (int a = tutti - 1; a >= 0; --a)
        if (in[size_t(a)] >= 0) nuovo[size_t(a)] = nuovo[size_t(in[size_t(a)])];

    std::string unito;
    std::vector<Byte> campi;
    for (const Lato* lato : {&base, &aggiunto}) {
        const bool secondo = lato == &aggiunto;
        auto rinomina = [&](Byte id, std::string& u) {
            const int punto = lato->indice.Trova(id);
            if (punto >= 0) {
                MettiNumero(u, nuovo[size_t(punto)]);
                u += '%';
            } else if (secondo && !id.empty() && id.back() == '%') {
                MettiTesto(u, CStr(ValTesto(id) + base.massimo)); // moved on by n
                u += '%';
            } else {
                u.append(id);
            }
        };
        for (const AnelloUnito& a : lato->anelli)
            MettiAnello(Raccogli(a, lato->seguiti, unito), uscita, campi, rinomina);
    }
    return QByteArray(uscita.data(), qsizetype(uscita.size()));
}

QString UnisciTestiEstratti(const QString& testoBase, const QString& testoAggiunto) {
    return DaWindows1252(UnisciEstratti(AWindows1252(testoBase), AWindows1252(testoAggiunto)));
}

QString SpezzaRigaSette(const QString& riga) {
    const QByteArray b = AWindows1252(riga);
    std::string uscita;
    std::vector<Byte> campi;
    MettiAnello(Byte(b.constData(), size_t(b.size())), uscita, campi,
                [](Byte id, std::string& u) { u.append(id); });
    if (!uscita.empty()) uscita.resize(uscita.size() - 2); // the last line end
    return DaWindows1252(QByteArray(uscita.data(), qsizetype(uscita.size())));
}

QString PercorsoTempestratto(const Stato& stato) {
    return stato.amb.CartellaProgramma + QStringLiteral("\\temp\\Tempestratto.emp");
}

bool UnisciDueEstratti(Stato& stato, const QString& estrattoBase, const QString& estrattoAggiunto) {
    const QString temp = PercorsoTempestratto(stato);
    const bool ok = ConTrappola(stato, QStringLiteral("UnisciDueEstratti"), [&] {
        EliminaFile(temp);
        const QByteArray base = LeggiByte(PercorsoEstratto(stato, estrattoBase));
        const QByteArray aggiunto = LeggiByte(PercorsoEstratto(stato, estrattoAggiunto));
        const QByteArray unito = UnisciEstratti(base, aggiunto);
        CreaCartella(CartellaDel(temp));
        ScriviByte(temp, unito);
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
