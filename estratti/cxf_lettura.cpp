// The items and records of a CXF sheet.
#include "cxf_lettura.h"

#include "errore.h"
#include "testo.h"

#include <algorithm>
#include <cmath>

namespace tavolet {

QStringView VociCxf::Prossima() {
    if (Fine()) throw Errore(62);
    if (i_ >= t_.size()) {
        vuota_ = false; // a comma at the very end stands before one empty item
        return {};
    }
    const qsizetype inizio = i_;
    while (i_ < t_.size() && t_[i_] != u',' && t_[i_] != u'\r' && t_[i_] != u'\n') ++i_;
    QStringView voce = t_.mid(inizio, i_ - inizio);
    if (i_ < t_.size()) {
        vuota_ = t_[i_] == u',';
        if (t_[i_] == u'\r' && i_ + 1 < t_.size() && t_[i_ + 1] == u'\n') ++i_;
        ++i_;
        vuota_ = vuota_ && i_ >= t_.size();
    }
    auto vuoto = [](QChar c) { return c == u' ' || c == u'\t'; };
    while (!voce.isEmpty() && vuoto(voce.front())) voce = voce.mid(1);
    while (!voce.isEmpty() && vuoto(voce.back())) voce.chop(1);
    return voce;
}

bool NumeroCxf(QStringView s) {
    qsizetype i = 0;
    if (i < s.size() && (s[i] == u'-' || s[i] == u'+')) ++i;
    int cifre = 0;
    while (i < s.size() && s[i].isDigit() && s[i].unicode() < 128) ++i, ++cifre;
    if (i < s.size() && s[i] == u'.') {
        ++i;
        while (i < s.size() && s[i].isDigit() && s[i].unicode() < 128) ++i, ++cifre;
    }
    if (cifre == 0) return false;
    if (i < s.size() && (s[i] == u'E' || s[i] == u'e' || s[i] == u'D' || s[i] == u'd')) {
        ++i;
        if (i < s.size() && (s[i] == u'-' || s[i] == u'+')) ++i;
        int esponente = 0;
        while (i < s.size() && s[i].isDigit() && s[i].unicode() < 128) ++i, ++esponente;
        if (esponente == 0) return false;
    }
    return i == s.size();
}

qint64 InteroCxf(QStringView voce) {
    if (!NumeroCxf(voce)) throw Errore(13);
    const double v = std::nearbyint(Val(voce));
    if (!(v >= -2147483648.0 && v <= 2147483647.0)) throw Errore(6);
    return qint64(v);
}

namespace {

constexpr int kAnelli = 501; // the table of ring sizes: index 0 to 500

QStringView Coordinata(QStringView voce) {
    if (!NumeroCxf(voce)) throw Errore(13);
    return voce;
}

double Reale(QStringView voce) {
    if (!NumeroCxf(voce)) throw Errore(13);
    const double v = Val(voce);
    if (!std::isfinite(v)) throw Errore(6);
    return v;
}

PuntoCxf Punto(VociCxf& voci) {
    const double x = Reale(voci.Prossima());
    return {x, Reale(voci.Prossima())};
}

} // namespace

void LeggiBordoCxf(VociCxf& voci, BordoCxf& b) {
    b.nome = voci.Prossima().toString();
    for (int k = 0; k < 4; ++k) voci.Prossima(); // size, angle, position x and y
    voci.Prossima();                             // the inner point, dropped
    voci.Prossima();
    b.isole = InteroCxf(voci.Prossima());
    b.totale = InteroCxf(voci.Prossima());
    b.anelli.assign(1, 0);
    qint64 somma = 0;
    for (qint64 i = 1; i <= b.isole; ++i) {
        if (i >= kAnelli) throw Errore(9);
        b.anelli.push_back(InteroCxf(voci.Prossima()));
        somma += b.anelli.back();
    }
    b.anelli[0] = b.totale - somma;
    for (const qint64 anello : b.anelli) {
        for (qint64 v = 0; v < anello; ++v) {
            const QStringView vx = voci.Prossima();
            const QStringView vy = voci.Prossima();
            b.coordinate.push_back(Coordinata(vx));
            b.coordinate.push_back(Coordinata(vy));
        }
    }
}

namespace {

enum class Sezione { Nessuna, Bordo, Testo, Simbolo, Fiduciale, Linea, Altra, Fine };

// The keyword of a section; "\" behind one marks an element outside the map's border.
Sezione Parola(QStringView voce, bool& esterno) {
    esterno = voce.endsWith(u'\\');
    if (esterno) voce.chop(1);
    if (voce == u"BORDO" && !esterno) return Sezione::Bordo;
    if (voce == u"TESTO") return Sezione::Testo;
    if (voce == u"SIMBOLO") return Sezione::Simbolo;
    if (voce == u"FIDUCIALE") return Sezione::Fiduciale;
    if (voce == u"LINEA") return Sezione::Linea;
    if (esterno) return Sezione::Nessuna;
    if (voce == u"RIFERIMENTO_RASTER" || voce == u"LIBRETTO") return Sezione::Altra;
    if (voce == u"EOF") return Sezione::Fine;
    return Sezione::Nessuna;
}

QString Motivo(int numero) {
    switch (numero) {
    case 62:
        return QStringLiteral("il file finisce prima della fine dell'elemento");
    case 13:
        return QStringLiteral("una voce che dovrebbe essere un numero non lo è");
    case 6:
    case 9:
        return QStringLiteral("un numero di isole o di vertici fuori misura");
    default:
        return QStringLiteral("errore %1").arg(numero);
    }
}

// The rings of a border as points, or the reason it cannot be a polygon.
QString Anelli(const BordoCxf& b, FoglioLettoCxf::Bordo& uscita) {
    if (b.isole < 0) return QStringLiteral("un numero di isole negativo");
    size_t k = 0;
    for (size_t a = 0; a < b.anelli.size(); ++a) {
        const qint64 n = b.anelli[a];
        const QString quale =
            a == 0 ? QStringLiteral("il contorno esterno") : QStringLiteral("l'isola %1").arg(a);
        if (n < 4) return quale + QStringLiteral(" ha meno di quattro vertici");
        std::vector<PuntoCxf> anello;
        anello.reserve(size_t(n));
        for (qint64 v = 0; v < n; ++v, k += 2)
            anello.push_back({Val(b.coordinate[k]), Val(b.coordinate[k + 1])});
        if (anello.front().x != anello.back().x || anello.front().y != anello.back().y)
            return quale + QStringLiteral(" non è chiuso");
        uscita.anelli.push_back(std::move(anello));
    }
    return {};
}

} // namespace

FoglioLettoCxf LeggiFoglioCxf(const QString& testo, QStringList& avvisi) {
    FoglioLettoCxf f;
    VociCxf voci(testo);
    if (!voci.Fine()) f.tipoMappa = voci.Prossima().toString();
    if (!voci.Fine()) f.nomeMappa = voci.Prossima().toString();
    if (!voci.Fine()) voci.Prossima(); // the scale of the paper sheet

    bool esterno = false;
    // Items up to the next keyword are passed over; the keyword is read again.
    auto finoAllaParola = [&] {
        while (!voci.Fine()) {
            const VociCxf::Segno s = voci.Posizione();
            bool e;
            if (Parola(voci.Prossima(), e) != Sezione::Nessuna) {
                voci.Torna(s);
                return;
            }
        }
    };
    while (!voci.Fine()) {
        const QStringView parola = voci.Prossima();
        const Sezione sezione = Parola(parola, esterno);
        if (sezione == Sezione::Fine) break; // what follows EOF is not read
        if (sezione == Sezione::Nessuna) {
            avvisi << QStringLiteral("voce \"%1\" fuori da ogni elemento: tralasciata fino al "
                                     "prossimo elemento")
                          .arg(parola.toString());
            finoAllaParola();
            continue;
        }
        if (sezione == Sezione::Altra) {
            finoAllaParola();
            continue;
        }
        const VociCxf::Segno inizio = voci.Posizione();
        QString nome = parola.toString(), motivo;
        BordoCxf b;
        FoglioLettoCxf::Bordo bordo;
        FoglioLettoCxf::Testo t;
        FoglioLettoCxf::Simbolo s;
        FoglioLettoCxf::Fiduciale fid;
        FoglioLettoCxf::Linea l;
        try {
            switch (sezione) {
            case Sezione::Bordo:
                LeggiBordoCxf(voci, b);
                break;
            case Sezione::Testo:
                t.testo = voci.Prossima().toString();
                nome += u' ' + t.testo;
                t.dimensione = Reale(voci.Prossima());
                t.angolo = Reale(voci.Prossima());
                t.p = Punto(voci);
                break;
            case Sezione::Simbolo:
                s.codice = int(InteroCxf(voci.Prossima()));
                nome += u' ' + QString::number(s.codice);
                s.angolo = Reale(voci.Prossima());
                s.p = Punto(voci);
                break;
            case Sezione::Fiduciale:
                fid.nome = voci.Prossima().toString();
                nome += u' ' + fid.nome;
                fid.codice = int(InteroCxf(voci.Prossima()));
                fid.p = Punto(voci);
                fid.etichetta = Punto(voci);
                break;
            default: {
                l.tratto = int(InteroCxf(voci.Prossima()));
                const qint64 n = InteroCxf(voci.Prossima());
                for (qint64 v = 0; v < n; ++v) l.punti.push_back(Punto(voci));
                if (n < 2) motivo = QStringLiteral("meno di due vertici");
                break;
            }
            }
            // The counts told the truth when the next keyword (or the end) follows.
            if (!voci.Fine()) {
                const VociCxf::Segno dopo = voci.Posizione();
                bool e;
                if (Parola(voci.Prossima(), e) == Sezione::Nessuna)
                    motivo = QStringLiteral("il numero dei vertici non corrisponde alle "
                                            "coordinate che seguono");
                voci.Torna(dopo);
            }
        } catch (const Errore& errore) {
            motivo = Motivo(errore.numero);
            // Islands past the table or past the vertices: the count itself is wrong, whatever
            // item the reading stumbled on afterwards.
            if (sezione == Sezione::Bordo && (b.isole >= kAnelli || b.isole > b.totale))
                motivo = QStringLiteral("un numero di isole fuori misura (%1)").arg(b.isole);
            voci.Torna(inizio);
        }
        if (sezione == Sezione::Bordo) {
            nome += u' ' + b.nome;
            if (motivo.isEmpty()) motivo = Anelli(b, bordo);
        }
        if (!motivo.isEmpty()) {
            avvisi << nome + QStringLiteral(": ") + motivo + QStringLiteral("; tralasciato");
            finoAllaParola();
            continue;
        }
        switch (sezione) {
        case Sezione::Bordo:
            bordo.nome = b.nome;
            f.bordi.push_back(std::move(bordo));
            break;
        case Sezione::Testo:
            t.esterno = esterno;
            f.testi.push_back(std::move(t));
            break;
        case Sezione::Simbolo:
            s.esterno = esterno;
            f.simboli.push_back(s);
            break;
        case Sezione::Fiduciale:
            fid.esterno = esterno;
            f.fiduciali.push_back(std::move(fid));
            break;
        default:
            l.esterno = esterno;
            f.linee.push_back(std::move(l));
            break;
        }
    }
    return f;
}

} // namespace tavolet
