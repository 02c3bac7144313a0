#include "generatore.h"

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

namespace tavolet::test {

namespace {

class Generatore {
public:
    explicit Generatore(const OpzioniEstratto& o) : o_(o), rng_(o.seme) {}

    QString Genera() {
        Griglia();
        Particelle();
        Extra();
        if (o_.stranezze) Stranezze();
        return Componi();
    }

private:
    struct Punto {
        QString id;
        double nord, est;
    };
    struct Anello {
        QStringList ids;
        QString stile = QStringLiteral("NC");
        QString etichetta, nome;
    };

    int Caso(int a, int b) { return std::uniform_int_distribution<int>(a, b)(rng_); }
    bool Prob(double p) { return std::uniform_real_distribution<double>(0, 1)(rng_) < p; }
    static QString Num(double v) { return QString::number(v, 'f', 10); }

    QString NuovoId() {
        numero_ += Caso(1, 3);
        return QString::number(numero_) + u'%';
    }

    int NuovoPunto(double nord, double est) {
        punti_.push_back({NuovoId(), nord, est});
        return int(punti_.size()) - 1;
    }

    void Griglia() {
        const int griglia = std::max(4, int(o_.vertici * 0.85));
        larghezza_ = std::max(2, int(std::sqrt(double(griglia))));
        altezza_ = std::max(2, griglia / larghezza_);
        nodi_.assign(size_t(larghezza_ * altezza_), -1);
        for (int r = 0; r < altezza_; ++r)
            for (int c = 0; c < larghezza_; ++c) {
                const double nord =
                    -5700 + r * 18.5 + Caso(-3000, 3000) / 1000.0 + 1e-7 * Caso(0, 999);
                const double est =
                    -3800 + c * 21.3 + Caso(-3000, 3000) / 1000.0 + 1e-7 * Caso(0, 999);
                nodi_[size_t(r * larghezza_ + c)] = NuovoPunto(nord, est);
            }
        // Numbers are handed out in grid order; the file lists them shuffled.
    }

    QString Id(int r, int c) const { return punti_[size_t(nodi_[size_t(r * larghezza_ + c)])].id; }

    void Particelle() {
        int nome = 100;
        for (int r0 = 0; r0 + 1 < altezza_;) {
            const int r1 = std::min(altezza_ - 1, r0 + Caso(1, 3));
            for (int c0 = 0; c0 + 1 < larghezza_;) {
                const int c1 = std::min(larghezza_ - 1, c0 + Caso(1, 3));
                Anello a;
                for (int c = c0; c < c1; ++c) a.ids << Id(r0, c);
                for (int r = r0; r < r1; ++r) a.ids << Id(r, c1);
                for (int c = c1; c > c0; --c) a.ids << Id(r1, c);
                for (int r = r1; r > r0; --r) a.ids << Id(r, c0);
                a.ids << a.ids.first();
                a.etichetta = a.nome = QString::number(++nome);
                anelli_.push_back(a);
                particelle_ << a.nome;
                const double n0 = punti_[size_t(nodi_[size_t(r0 * larghezza_ + c0)])].nord;
                const double e0 = punti_[size_t(nodi_[size_t(r0 * larghezza_ + c0)])].est;
                if (int(punti_.size()) + 4 <= o_.vertici && Prob(0.25)) {
                    // A building inside the parcel: an island that takes its area away.
                    Anello b;
                    const double d = Caso(2, 5);
                    b.ids << punti_[size_t(NuovoPunto(n0 + 4, e0 + 4))].id
                          << punti_[size_t(NuovoPunto(n0 + 4, e0 + 4 + d))].id
                          << punti_[size_t(NuovoPunto(n0 + 4 + d, e0 + 4 + d))].id
                          << punti_[size_t(NuovoPunto(n0 + 4 + d, e0 + 4))].id;
                    b.ids << b.ids.first();
                    b.etichetta = b.nome = a.nome + u'-';
                    anelli_.push_back(b);
                } else if (int(punti_.size()) + 3 <= o_.vertici && Prob(0.05)) {
                    Anello p; // a detached piece of the same parcel
                    p.ids << punti_[size_t(NuovoPunto(n0 + 2, e0 + 2))].id
                          << punti_[size_t(NuovoPunto(n0 + 2, e0 + 7.5))].id
                          << punti_[size_t(NuovoPunto(n0 + 9, e0 + 3))].id;
                    p.ids << p.ids.first();
                    p.etichetta = p.nome = a.nome + u'+';
                    anelli_.push_back(p);
                }
                c0 = c1;
            }
            r0 = r1;
        }
    }

    void Extra() {
        const int toponimi = std::max(1, o_.vertici / 300);
        for (int i = 0; i < toponimi; ++i)
            righe8_ << QStringLiteral("8|%1T|%2|%3|%4|VIA DEI MILLE %5|")
                           .arg(i + 1)
                           .arg(Num(-5690 + Caso(0, 400)))
                           .arg(Num(-3790 + Caso(0, 400)))
                           .arg(Num(Caso(0, 6283) / 1000.0))
                           .arg(i);
        for (int i = 1; i <= 3; ++i)
            righe8_ << QStringLiteral("8|PF%1/0120/A001|%2|%3|")
                           .arg(i, 2, 10, QChar(u'0'))
                           .arg(Num(-5650 - i * 7.25))
                           .arg(Num(-3750 + i * 3.5));
        // Free lines: points numbered from a base that is below or above their new numbers.
        const int basePL = Prob(0.5) ? 1 : 50000;
        int pl = basePL;
        const int linee = std::max(1, o_.vertici / 500);
        for (int l = 0; l < linee; ++l) {
            QStringList ids;
            const int conta = Caso(2, 14);
            for (int k = 0; k < conta; ++k) {
                const QString id = QString::number(pl++) + u'L';
                ids << id;
                puntiLinee_ << QStringLiteral("8|%1|%2|%3|")
                                   .arg(id, Num(-5695 + Caso(0, 300)), Num(-3795 + Caso(0, 300)));
            }
            linee_ << ids;
        }
        for (int i = 0; i < std::min<int>(particelle_.size(), 40); ++i) {
            if (!Prob(0.5)) continue;
            const QString& p = particelle_[i];
            righe6_ << QStringLiteral("6|PARTICELLA|%1|0%2|SEMINATIVO  |%3|%3|12.50|8.20|SN|")
                           .arg(p)
                           .arg(Caso(1, 5))
                           .arg(Caso(200, 9000));
            righe6_ << QStringLiteral("6|DITTA|%1|ROSSI|MARIO|RSSMRA50A01A001X|1/1|").arg(p);
        }
        righe6_ << QStringLiteral("6|PFCART|PF01/0120/A001|-5657.2500000000|-3746.5000000000|");
        righe6_ << QStringLiteral("6|DISTANZA|PF01/0120/A001|PF02/0120/A001|8.2765|");
        righe6_ << QStringLiteral("6|DISTORSIONE|1.5|");
        righe6_ << QStringLiteral("6|SCALAORIGINARIA|2000|");
        righe6_ << QStringLiteral("6|VARIAZIONE|ignota|");
    }

    QString Strano() {
        static const char* const forme[] = {"0%", "0",    "A%",           "a%", "12a", " 7%",
                                            "",   "NC",   "12345678901%", "5",  "1%",  "2%",
                                            "3%", "007%", "1*",           "2#", "9@"};
        const int k = Caso(0, int(std::size(forme)));
        if (k == int(std::size(forme)) && !punti_.empty())
            return punti_[size_t(Caso(0, int(punti_.size()) - 1))].id; // a duplicate
        return QString::fromLatin1(forme[std::min(k, int(std::size(forme)) - 1)]);
    }

    void Stranezze() {
        // Rename some points everywhere they stand.
        for (Punto& p : punti_) {
            if (!Prob(0.2)) continue;
            const QString vecchio = p.id;
            p.id = Strano();
            for (Anello& a : anelli_)
                for (QString& id : a.ids)
                    if (id == vecchio) id = p.id;
        }
        for (Anello& a : anelli_) {
            if (Prob(0.1) && !a.ids.isEmpty())
                a.ids.insert(Caso(0, int(a.ids.size()) - 1), a.ids[0]);
            if (Prob(0.05)) a.ids[Caso(0, int(a.ids.size()) - 1)] = QStringLiteral("999999%");
            if (Prob(0.03)) a.etichetta = QStringLiteral("XL"); // "XL|": taken for a free line
            if (Prob(0.05)) a.stile = QStringLiteral("RP");
        }
        if (Prob(0.2) && !punti_.empty()) {
            Anello lungo; // long rings; past 498 ids the area tables overflow
            const int conta = Prob(0.3) ? Caso(480, 520) : Caso(11, 120);
            for (int k = 0; k < conta; ++k)
                lungo.ids << punti_[size_t(Caso(0, int(punti_.size()) - 1))].id;
            lungo.ids << lungo.ids.first();
            lungo.etichetta = lungo.nome = QStringLiteral("LUNGO");
            anelli_.push_back(lungo);
        }
        // Free lines with repeated or colliding ids.
        for (QStringList& l : linee_) {
            if (Prob(0.3)) l.insert(0, l[0]);
            if (Prob(0.2)) l << QString::number(Caso(1, int(punti_.size()) + 40)) + u'L';
        }
        if (Prob(0.3) && !puntiLinee_.isEmpty()) puntiLinee_ << puntiLinee_[0];
        if (Prob(0.2))
            puntiLinee_.insert(
                0, QStringLiteral("8|%1L|1.0|2.0|").arg(Caso(1, int(punti_.size()) + 60)));
        std::shuffle(puntiLinee_.begin(), puntiLinee_.end(), rng_);
    }

    static void RigheAnello(QStringList& out, const QString& testa, const QStringList& ids,
                            const QString& coda) {
        // At most ten ids a row; the tail on the first row, continuation rows end in "NC|".
        QString riga = testa;
        int n = 0;
        bool primo = true;
        for (const QString& id : ids) {
            riga += id + u'|';
            if (++n == 10) {
                out << riga + (primo ? coda : QStringLiteral("NC|"));
                primo = false;
                riga = QStringLiteral("7|0|");
                n = 0;
            }
        }
        if (n > 0 || primo) out << riga + (primo ? coda : QStringLiteral("NC|"));
    }

    QString Componi() {
        QStringList righe;
        righe << QStringLiteral("0|15032024|PD0012345/2024|A001|00120|%1|PD|0|0|0|")
                     .arg(particelle_.mid(0, 3).join(u','));
        std::vector<int> ordine(punti_.size());
        for (size_t i = 0; i < ordine.size(); ++i) ordine[i] = int(i);
        std::shuffle(ordine.begin(), ordine.end(), rng_);
        for (int i : ordine)
            righe << QStringLiteral("8|%1|%2|%3|")
                         .arg(punti_[size_t(i)].id, Num(punti_[size_t(i)].nord),
                              Num(punti_[size_t(i)].est));
        righe << righe8_ << puntiLinee_;
        for (const Anello& a : anelli_) {
            const QString coda =
                a.stile + u'|' + a.etichetta + u'|' + a.nome + QStringLiteral("|1234.5|");
            RigheAnello(righe, QStringLiteral("7|%1|").arg(a.ids.size()), a.ids, coda);
        }
        for (const QStringList& l : linee_)
            RigheAnello(righe, QStringLiteral("7|%1|").arg(l.size()), l, QStringLiteral("NT|||0|"));
        righe << righe6_;
        righe << QStringLiteral("6|INQUADRAMENTO|-5314.4370600949|-4186.262295231|0.5064939016|"
                                "-5314.4370600949|-4186.262295231|6.2823896247|");
        return righe.join(QStringLiteral("\r\n")) + QStringLiteral("\r\n");
    }

    OpzioniEstratto o_;
    std::mt19937 rng_;
    int numero_ = 0;
    int larghezza_ = 0, altezza_ = 0;
    std::vector<int> nodi_;
    std::vector<Punto> punti_;
    std::vector<Anello> anelli_;
    QStringList particelle_, righe8_, puntiLinee_, righe6_;
    QList<QStringList> linee_;
};

} // namespace

QString GeneraEstratto(const OpzioniEstratto& opzioni) {
    return Generatore(opzioni).Genera();
}

} // namespace tavolet::test
