#include "sostituzioni.h"

#include "testo.h"

#include <QHash>

#include <algorithm>
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
    explicit Campi(const QStringList& righe) {
        for (const QString& riga : righe) {
            QStringList pezzi = riga.split(u'|');
            Riga r;
            r.primo = int(gruppo_.size());
            const int ultimo = int(pezzi.size()) - 1;
            for (int k = 1; k < ultimo; ++k) {
                const int f = int(gruppo_.size());
                const int g = Gruppo(pezzi[k]);
                gruppo_.push_back(g);
                haPrecedente_.push_back(k > 1);
                if (k > 1 && gruppo_[f - 1] == g) ++gruppi_[g].adiacenze;
                gruppi_[g].membri.push_back(f);
            }
            r.pezzi = std::move(pezzi);
            righe_.push_back(std::move(r));
        }
    }

    void Sostituisci(const QString& vecchio, const QString& nuovo) {
        if (vecchio == nuovo) return;
        const auto it = perContenuto_.constFind(vecchio);
        if (it == perContenuto_.constEnd()) return;
        const int g = it.value();
        if (gruppi_[g].membri.empty()) return;
        const int t = Gruppo(nuovo);
        if (gruppi_[g].adiacenze == 0)
            Unisci(g, t);
        else
            Dividi(g, t);
    }

    QStringList Righe() {
        QStringList out;
        out.reserve(qsizetype(righe_.size()));
        for (Riga& r : righe_) {
            const int ultimo = int(r.pezzi.size()) - 1;
            for (int k = 1; k < ultimo; ++k)
                r.pezzi[k] = gruppi_[gruppo_[r.primo + k - 1]].contenuto;
            out.append(r.pezzi.join(u'|'));
        }
        return out;
    }

private:
    struct Riga {
        QStringList pezzi;
        int primo = 0; // index of its first field
    };
    struct Insieme {
        QString contenuto;
        std::vector<int> membri;
        long long adiacenze = 0; // pairs of neighbouring fields both in the group
    };

    int Gruppo(const QString& contenuto) {
        auto it = perContenuto_.find(contenuto);
        if (it != perContenuto_.end()) return it.value();
        const int g = int(gruppi_.size());
        gruppi_.push_back(Insieme{contenuto, {}, 0});
        perContenuto_.insert(contenuto, g);
        return g;
    }

    bool Vicino(int f, int g, int passo) const {
        if (passo < 0) return haPrecedente_[f] && gruppo_[f - 1] == g;
        return f + 1 < int(gruppo_.size()) && haPrecedente_[f + 1] && gruppo_[f + 1] == g;
    }

    // Moves the members of da into a, counting the new neighbour pairs.
    void Sposta(int da, int a) {
        for (int f : gruppi_[da].membri) {
            if (Vicino(f, a, -1)) ++gruppi_[a].adiacenze;
            if (Vicino(f, a, +1)) ++gruppi_[a].adiacenze;
        }
        for (int f : gruppi_[da].membri) gruppo_[f] = a;
        gruppi_[a].adiacenze += gruppi_[da].adiacenze;
        gruppi_[a].membri.insert(gruppi_[a].membri.end(), gruppi_[da].membri.begin(),
                                 gruppi_[da].membri.end());
        gruppi_[da].membri.clear();
        gruppi_[da].adiacenze = 0;
    }

    // Every member of g matches: g's fields take the content of t.
    void Unisci(int g, int t) {
        if (gruppi_[g].membri.size() <= gruppi_[t].membri.size()) {
            Sposta(g, t);
            return;
        }
        // The larger group stays where it is and changes its content.
        Sposta(t, g);
        std::swap(gruppi_[g].contenuto, gruppi_[t].contenuto);
        perContenuto_[gruppi_[g].contenuto] = g;
        perContenuto_[gruppi_[t].contenuto] = t;
    }

    // Runs of neighbours: first, third, fifth... of each run match.
    void Dividi(int g, int t) {
        std::vector<int>& membri = gruppi_[g].membri;
        std::sort(membri.begin(), membri.end());
        std::vector<int> restano, presi;
        int ultimoPreso = -2;
        for (int f : membri) {
            const bool legato = haPrecedente_[f] && gruppo_[f - 1] == g && ultimoPreso == f - 1;
            if (legato)
                restano.push_back(f);
            else {
                presi.push_back(f);
                ultimoPreso = f;
            }
        }
        // No two members left are neighbours: each one left follows a member taken.
        membri = std::move(restano);
        gruppi_[g].adiacenze = 0;
        for (int f : presi) {
            gruppo_[f] = t;
            if (Vicino(f, t, -1)) ++gruppi_[t].adiacenze;
            if (Vicino(f, t, +1)) ++gruppi_[t].adiacenze;
            gruppi_[t].membri.push_back(f);
        }
    }

    std::vector<Riga> righe_;
    std::vector<int> gruppo_;        // group of each field
    std::vector<bool> haPrecedente_; // the field shares its left bar with the field before
    std::vector<Insieme> gruppi_;
    QHash<QString, int> perContenuto_;
};

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
    Campi campi(righe);
    for (const auto& [vecchio, nuovo] : coppie) campi.Sostituisci(vecchio, nuovo);
    return campi.Righe();
}

} // namespace tavolet
