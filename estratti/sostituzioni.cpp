#include "sostituzioni.h"

#include "testo.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tavolet {

namespace {

// The plain way, for input the field model cannot describe (a row or an id holding a line end
// or a bar).
QStringList ConTesto(const QStringList& righe, const QList<std::pair<QString, QString>>& coppie) {
    QString testo = Join(righe, CRLF);
    for (const auto& [vecchio, nuovo] : coppie)
        testo = Replace(testo, u'|' + vecchio + u'|', u'|' + nuovo + u'|');
    if (testo.isEmpty()) return {};
    return Split(testo, CRLF);
}

using Vista = std::u16string_view;

Vista V(const QString& s) {
    return Vista(reinterpret_cast<const char16_t*>(s.utf16()), size_t(s.size()));
}

bool Adatto(const QString& s) {
    return !s.contains(u'\r') && !s.contains(u'\n');
}

// A token "|x|" matches exactly a field that has a bar on both sides and holds x; the fields
// of one row that follow each other share a bar. So the text is a sequence of such fields,
// and a replacement of x changes, in each run of neighbouring fields that hold x, the first,
// third, fifth... Fields with the same content form a group; a group whose members are never
// neighbours moves whole, and groups merge smaller into larger.
class Campi {
public:
    // The rows and the pairs must outlive the object: groups and keys look into their text.
    explicit Campi(const QStringList& righe) : righe_(righe) {
        perContenuto_.reserve(size_t(righe.size()) * 4);
        for (const QString& testo : righe_) {
            const Vista riga = V(testo);
            Riga r{int(campi_.size()), 0};
            size_t inizio = riga.find(u'|');
            if (inizio != Vista::npos) {
                ++inizio;
                for (size_t barra; (barra = riga.find(u'|', inizio)) != Vista::npos;
                     inizio = barra + 1) {
                    const int f = int(campi_.size());
                    const int g = Gruppo(riga.substr(inizio, barra - inizio));
                    const bool legato = r.conta > 0;
                    campi_.push_back({int(inizio), int(barra - inizio), legato});
                    gruppo_.push_back(g);
                    if (legato && gruppo_[size_t(f) - 1] == g) ++gruppi_[size_t(g)].adiacenze;
                    gruppi_[size_t(g)].membri.push_back(f);
                    ++r.conta;
                }
            }
            righeCampi_.push_back(r);
        }
    }

    void Sostituisci(const QString& vecchio, const QString& nuovo) {
        if (vecchio == nuovo) return;
        const auto it = perContenuto_.find(V(vecchio));
        if (it == perContenuto_.end()) return;
        const int g = it->second;
        if (gruppi_[size_t(g)].membri.empty()) return;
        const int t = Gruppo(V(nuovo));
        if (gruppi_[size_t(g)].adiacenze == 0)
            Unisci(g, t);
        else
            Dividi(g, t);
    }

    QStringList Righe() const {
        QStringList out;
        out.reserve(righe_.size());
        for (qsizetype r = 0; r < righe_.size(); ++r) {
            const QString& testo = righe_[r];
            const Riga& rc = righeCampi_[size_t(r)];
            bool cambiata = false;
            for (int f = rc.primo; f < rc.primo + rc.conta && !cambiata; ++f)
                cambiata = Contenuto(f) != V(testo).substr(size_t(campi_[size_t(f)].inizio),
                                                           size_t(campi_[size_t(f)].lunghezza));
            if (!cambiata) {
                out.append(testo);
                continue;
            }
            const Campo& primo = campi_[size_t(rc.primo)];
            const Campo& ultimo = campi_[size_t(rc.primo + rc.conta - 1)];
            QString nuova = testo.left(primo.inizio);
            for (int f = rc.primo; f < rc.primo + rc.conta; ++f) {
                if (f > rc.primo) nuova += u'|';
                const Vista c = Contenuto(f);
                nuova.append(reinterpret_cast<const QChar*>(c.data()), qsizetype(c.size()));
            }
            nuova += QStringView(testo).mid(ultimo.inizio + ultimo.lunghezza);
            out.append(nuova);
        }
        return out;
    }

private:
    struct Campo {
        int inizio, lunghezza; // in the original row
        bool legato;           // shares its left bar with the field before
    };
    struct Riga {
        int primo, conta; // its fields
    };
    struct Insieme {
        Vista contenuto;
        std::vector<int> membri;
        long long adiacenze = 0; // pairs of neighbouring fields both in the group
    };

    Vista Contenuto(int f) const { return gruppi_[size_t(gruppo_[size_t(f)])].contenuto; }

    int Gruppo(Vista contenuto) {
        const auto [it, nuovo] = perContenuto_.try_emplace(contenuto, int(gruppi_.size()));
        if (nuovo) gruppi_.push_back(Insieme{contenuto, {}, 0});
        return it->second;
    }

    bool Vicino(int f, int g, int passo) const {
        if (passo < 0) return campi_[size_t(f)].legato && gruppo_[size_t(f) - 1] == g;
        return size_t(f) + 1 < campi_.size() && campi_[size_t(f) + 1].legato &&
               gruppo_[size_t(f) + 1] == g;
    }

    // Moves the members of da into a, counting the new neighbour pairs.
    void Sposta(int da, int a) {
        Insieme& sorgente = gruppi_[size_t(da)];
        Insieme& meta = gruppi_[size_t(a)];
        for (int f : sorgente.membri) {
            if (Vicino(f, a, -1)) ++meta.adiacenze;
            if (Vicino(f, a, +1)) ++meta.adiacenze;
        }
        for (int f : sorgente.membri) gruppo_[size_t(f)] = a;
        meta.adiacenze += sorgente.adiacenze;
        meta.membri.insert(meta.membri.end(), sorgente.membri.begin(), sorgente.membri.end());
        sorgente.membri.clear();
        sorgente.adiacenze = 0;
    }

    // Every member of g matches: g's fields take the content of t.
    void Unisci(int g, int t) {
        if (gruppi_[size_t(g)].membri.size() <= gruppi_[size_t(t)].membri.size()) {
            Sposta(g, t);
            return;
        }
        // The larger group stays where it is and changes its content.
        Sposta(t, g);
        std::swap(gruppi_[size_t(g)].contenuto, gruppi_[size_t(t)].contenuto);
        perContenuto_[gruppi_[size_t(g)].contenuto] = g;
        perContenuto_[gruppi_[size_t(t)].contenuto] = t;
    }

    // Runs of neighbours: first, third, fifth... of each run match.
    void Dividi(int g, int t) {
        std::vector<int>& membri = gruppi_[size_t(g)].membri;
        std::sort(membri.begin(), membri.end());
        std::vector<int> restano, presi;
        int ultimoPreso = -2;
        for (int f : membri) {
            if (campi_[size_t(f)].legato && ultimoPreso == f - 1) {
                restano.push_back(f);
            } else {
                presi.push_back(f);
                ultimoPreso = f;
            }
        }
        // No two members left are neighbours: each one left follows a member taken.
        membri = std::move(restano);
        gruppi_[size_t(g)].adiacenze = 0;
        for (int f : presi) {
            gruppo_[size_t(f)] = t;
            if (Vicino(f, t, -1)) ++gruppi_[size_t(t)].adiacenze;
            if (Vicino(f, t, +1)) ++gruppi_[size_t(t)].adiacenze;
            gruppi_[size_t(t)].membri.push_back(f);
        }
    }

    const QStringList righe_;
    std::vector<Riga> righeCampi_;
    std::vector<Campo> campi_;
    std::vector<int> gruppo_; // group of each field
    std::vector<Insieme> gruppi_;
    std::unordered_map<Vista, int> perContenuto_;
};

// The number of an id "<n>%" written without leading zeros, or -1.
qint64 NumeroIdTesto(QStringView id) {
    if (id.size() < 2 || id.size() > 11 || id.back() != u'%' || id.front() == u'0') return -1;
    qint64 n = 0;
    for (qsizetype k = 0; k + 1 < id.size(); ++k) {
        if (id[k] < u'0' || id[k] > u'9') return -1;
        n = n * 10 + (id[k].unicode() - u'0');
    }
    return n;
}

// The renumbering of a save: distinct ids "<n>%" in ascending order, pair k giving "<k+1>%".
// A new number is then never above the old ones still to come, so no pair catches what an
// earlier one wrote, and every field can be looked up by its number at once. Only a run of
// equal fields needs care: each replace consumes the bar it shares with the next, so the
// chain changes the first, third, fifth of the run.
bool Rinumerazione(const QList<std::pair<QString, QString>>& coppie, std::vector<int>& nuovo) {
    qint64 precedente = 0;
    for (qsizetype k = 0; k < coppie.size(); ++k) {
        const qint64 n = NumeroIdTesto(coppie[k].first);
        if (n <= precedente || n > 8 * coppie.size() + 1024) return false;
        if (NumeroIdTesto(coppie[k].second) != k + 1) return false;
        precedente = n;
    }
    nuovo.assign(size_t(precedente + 1), 0);
    for (qsizetype k = 0; k < coppie.size(); ++k)
        nuovo[size_t(NumeroIdTesto(coppie[k].first))] = int(k + 1);
    return true;
}

QString RinumeraRiga(const QString& riga, const std::vector<int>& nuovo) {
    QString uscita;
    uscita.reserve(riga.size());
    const QStringView r(riga);
    qsizetype inizio = 0;
    QStringView prima; // the field before, as it stood
    bool primaCambiata = false;
    bool primoCampo = true;
    while (true) {
        const qsizetype barra = r.indexOf(u'|', inizio);
        const QStringView campo = r.mid(inizio, barra < 0 ? -1 : barra - inizio);
        int n = 0;
        // Only a field between two bars is a token.
        if (!primoCampo && barra >= 0) {
            const qint64 id = NumeroIdTesto(campo);
            if (id > 0 && id < qint64(nuovo.size())) n = nuovo[size_t(id)];
        }
        const bool cambia = n > 0 && !(primaCambiata && campo == prima);
        if (cambia) {
            uscita += QString::number(n);
            uscita += u'%';
        } else {
            uscita += campo;
        }
        // A field that the chain would have changed into itself still took its bar.
        primaCambiata = cambia;
        prima = campo;
        primoCampo = false;
        if (barra < 0) break;
        uscita += u'|';
        inizio = barra + 1;
    }
    return uscita;
}

} // namespace

QStringList SostituisciCampi(const QStringList& righe,
                             const QList<std::pair<QString, QString>>& coppie) {
    bool adatto = std::all_of(righe.begin(), righe.end(), Adatto);
    for (const auto& [vecchio, nuovo] : coppie)
        adatto = adatto && Adatto(vecchio) && Adatto(nuovo) && !vecchio.contains(u'|') &&
                 !nuovo.contains(u'|');
    if (!adatto) return ConTesto(righe, coppie);
    // The joined text is empty only for no rows or one empty row.
    if (righe.isEmpty() || (righe.size() == 1 && righe[0].isEmpty())) return {};
    if (coppie.isEmpty()) return righe;
    std::vector<int> nuovo;
    if (Rinumerazione(coppie, nuovo)) {
        QStringList uscita;
        uscita.reserve(righe.size());
        for (const QString& riga : righe) uscita.append(RinumeraRiga(riga, nuovo));
        return uscita;
    }
    Campi campi(righe);
    for (const auto& [vecchio, nuovo] : coppie) campi.Sostituisci(vecchio, nuovo);
    return campi.Righe();
}

} // namespace tavolet
