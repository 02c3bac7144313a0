#include "blocchi_tag.h"

#include "errore.h"
#include "file_testo.h"
#include "stato.h"
#include "testo.h"

#include <zlib.h>

#include <functional>

namespace tavolet {

namespace {

const QString kNr = QStringLiteral("<nr>");

// Pieces of one block body (the text after "[TAG" and before "[/TAG").
bool LeggiBlocco(const QString& corpo, BloccoTag& blocco) {
    double numero = 0;
    try {
        numero = Val(corpo);
    } catch (const Errore&) {
        return false; // a number past the range of a double ("1e999") is one unknown block
    }
    static const int numeri[] = {1000, 2000, 3000, 4000, 5000};
    int trovato = 0;
    for (int n : numeri)
        if (numero == n) trovato = n;
    if (!trovato) return false;
    const QString testo = Replace(corpo, QString::number(trovato) + QStringLiteral("]|"), {});
    blocco.numero = trovato;
    switch (trovato) {
    case 1000:
    case 2000:
        blocco.pezzi = Split(testo, kNr);
        break;
    case 3000:
    case 5000:
        blocco.pezzi = Split(testo, QStringLiteral("|"));
        break;
    case 4000:
        for (const QString& riga : Split(testo, kNr)) {
            QString r = Replace(riga, QStringLiteral("9|"), {});
            r = Replace(r, QStringLiteral("|"), {});
            blocco.pezzi.append(Replace(r, QStringLiteral("\\"), {}));
        }
        break;
    }
    return true;
}

// The blocks of an act hold its libretto and heads: a few hundred kilobytes. Past this size a
// block is no act's (a PDF made to grow without end) and reading it would take the machine.
constexpr qsizetype kLimiteBlocchi = 8 << 20;

// Finds the blocks in a text given a piece at a time (a stream being inflated), keeping only
// the body of the block open at the moment. A block cut before its end mark by the next
// "[TAG" is not a block.
class LettoreBlocchi {
public:
    void Aggiungi(QByteArrayView pezzo) {
        QByteArray unione;
        QByteArrayView dati = pezzo;
        if (!resto_.isEmpty()) {
            unione = resto_;
            unione.append(pezzo);
            dati = unione;
        }
        qsizetype i = 0;
        // The next end mark is looked for again only once passed: thousands of "[TAG" with no
        // end behind them must not each search the rest of the text.
        qsizetype prossimaFine = -2;
        for (;;) {
            const qsizetype apre = dati.indexOf("[TAG", i);
            if (dentro_ && (prossimaFine == -2 || (prossimaFine >= 0 && prossimaFine < i)))
                prossimaFine = dati.indexOf("[/TAG", i);
            const qsizetype chiude = dentro_ ? prossimaFine : -1;
            if (chiude >= 0 && (apre < 0 || chiude < apre)) {
                AccodaCorpo(dati.sliced(i, chiude - i));
                Chiudi();
                i = chiude + 5;
            } else if (apre >= 0) {
                dentro_ = true;
                corpo_.clear();
                troppo_ = false;
                i = apre + 4;
            } else {
                break;
            }
        }
        // The last bytes wait for the next piece: a mark may run across the two.
        const qsizetype fine = std::max(i, dati.size() - 4);
        if (dentro_) AccodaCorpo(dati.sliced(i, fine - i));
        resto_ = dati.sliced(fine).toByteArray();
    }
    BlocchiTag Esito() { return std::move(esito_); }

private:
    void AccodaCorpo(QByteArrayView byte) {
        if (troppo_) return;
        if (totale_ + corpo_.size() + byte.size() > kLimiteBlocchi) {
            troppo_ = true;
            corpo_.append(byte.first(std::min<qsizetype>(byte.size(), 64)));
            corpo_.truncate(64); // enough to tell the block's number
            return;
        }
        corpo_.append(byte);
    }
    void Chiudi() {
        dentro_ = false;
        BloccoTag blocco;
        const bool noto = LeggiBlocco(DaWindows1252(corpo_), blocco);
        // A block of a known number too large to read: the act cannot be opened whole.
        if (noto && troppo_) throw Errore(7);
        if (noto) {
            totale_ += corpo_.size() + 64; // a block costs more than its text
            esito_.blocchi.append(std::move(blocco));
        }
        corpo_.clear();
    }

    BlocchiTag esito_;
    QByteArray corpo_, resto_;
    bool dentro_ = false, troppo_ = false;
    qsizetype totale_ = 0;
};

// Inflates one zlib stream, handing its bytes on as they come; false when nothing came (not a
// zlib stream). Bounded, so that a stream that would grow without end cannot take the
// machine's time.
bool Gonfia(QByteArrayView dati, qsizetype limite,
            const std::function<void(QByteArrayView)>& consegna) {
    z_stream z{};
    if (inflateInit(&z) != Z_OK) return false;
    char buffer[65536];
    z.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(dati.data()));
    qsizetype restanti = dati.size(), prodotti = 0;
    int esito = Z_OK;
    while (esito == Z_OK) {
        if (z.avail_in == 0 && restanti > 0) {
            const uInt pezzo = uInt(std::min<qsizetype>(restanti, 1 << 30));
            z.avail_in = pezzo;
            restanti -= pezzo;
        }
        z.next_out = reinterpret_cast<Bytef*>(buffer);
        z.avail_out = sizeof buffer;
        esito = inflate(&z, Z_NO_FLUSH);
        const qsizetype n = qsizetype(sizeof buffer - z.avail_out);
        if (esito != Z_OK && esito != Z_STREAM_END) break;
        if (prodotti + n > limite) break;
        if (n > 0) consegna(QByteArrayView(buffer, n));
        prodotti += n;
        if (n == 0 && z.avail_in == 0 && restanti == 0) break;
    }
    inflateEnd(&z);
    return prodotti > 0;
}

// The inflated text of every stream of a PDF, one after the other with a line end between,
// into the reader.
void LeggiFlussiGonfiati(const QByteArray& dati, LettoreBlocchi& lettore) {
    constexpr qsizetype kLimiteFlusso = 64 << 20;
    constexpr qsizetype kLimiteTotale = 256 << 20;
    qsizetype totale = 0;
    const auto consegna = [&](QByteArrayView pezzo) {
        totale += pezzo.size();
        lettore.Aggiungi(pezzo);
    };
    qsizetype da = 0;
    while ((da = dati.indexOf("stream", da)) >= 0) {
        qsizetype inizio = da + 6;
        // "endstream" also holds "stream": only a keyword followed by its line end counts.
        const bool fineParola = da >= 3 && dati.mid(da - 3, 3) == "end";
        da = inizio;
        if (fineParola) continue;
        if (inizio < dati.size() && dati[inizio] == '\r') ++inizio;
        if (inizio < dati.size() && dati[inizio] == '\n')
            ++inizio;
        else
            continue;
        qsizetype fine = dati.indexOf("endstream", inizio);
        if (fine < 0) fine = dati.size();
        const qsizetype limite = std::min(kLimiteFlusso, kLimiteTotale - totale);
        if (Gonfia(QByteArrayView(dati).sliced(inizio, fine - inizio), limite, consegna))
            lettore.Aggiungi("\n");
        if (totale >= kLimiteTotale) break;
        da = fine;
    }
}

} // namespace

QStringList BlocchiTag::Pezzi(int numero) const {
    QStringList pezzi;
    for (const BloccoTag& b : blocchi)
        if (b.numero == numero) pezzi += b.pezzi;
    return pezzi;
}

QString BlocchiTag::Testo(int numero) const {
    for (qsizetype i = blocchi.size() - 1; i >= 0; --i)
        if (blocchi[i].numero == numero) return Join(blocchi[i].pezzi, CRLF);
    return {};
}

BlocchiTag LeggiBlocchiTagDaDati(const QByteArray& dati) {
    LettoreBlocchi lettore;
    if (dati.contains("[TAG"))
        lettore.Aggiungi(dati);
    else
        LeggiFlussiGonfiati(dati, lettore);
    lettore.Aggiungi("[TAG"); // what is left open at the end is no block
    return lettore.Esito();
}

BlocchiTag LeggiBlocchiTagDaFile(const QString& percorso) {
    if (!EsisteFile(percorso)) return {};
    QByteArray dati;
    try {
        dati = LeggiByte(percorso);
    } catch (const Errore&) {
        return {};
    }
    return LeggiBlocchiTagDaDati(dati);
}

QString PercorsoTagUno(const Stato& stato) {
    return stato.amb.CartellaLavoro + QStringLiteral("\\temp\\TagUno.tag");
}

void ScriviTag(Stato& stato, const QString& testo) {
    stato.UltimoRisultato = testo;
    const QString tag = stato.TagRoutine;
    if (ConTrappola(stato, QStringLiteral("ScriviTag"),
                    [&] { ScriviTesto(PercorsoTagUno(stato), testo + CRLF); }))
        stato.TagRoutine = tag;
}

void RispondiTag(Stato& stato, const QString& testo) {
    stato.piattaforma->ImpostaAppunti(QString());
    stato.piattaforma->ImpostaAppunti(testo);
    ScriviTag(stato, testo);
}

} // namespace tavolet
