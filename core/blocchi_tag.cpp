#include "blocchi_tag.h"

#include "errore.h"
#include "file_testo.h"
#include "stato.h"
#include "testo.h"

#include <zlib.h>

namespace tavolet {

namespace {

const QString kNr = QStringLiteral("<nr>");

// Pieces of one block body (the text after "[TAG" and before "[/TAG").
bool LeggiBlocco(const QString& corpo, BloccoTag& blocco) {
    const double numero = Val(corpo);
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

BlocchiTag LeggiDaTesto(const QString& testo) {
    BlocchiTag esito;
    const QString apertura = QStringLiteral("[TAG");
    const QString chiusura = QStringLiteral("[/TAG");
    qsizetype da = testo.indexOf(apertura);
    while (da >= 0) {
        const qsizetype inizio = da + apertura.size();
        const qsizetype prossima = testo.indexOf(apertura, inizio);
        const qsizetype fine = testo.indexOf(chiusura, inizio);
        // A block cut before its end mark is not a block.
        if (fine >= 0 && (prossima < 0 || fine < prossima)) {
            BloccoTag blocco;
            if (LeggiBlocco(testo.mid(inizio, fine - inizio), blocco))
                esito.blocchi.append(std::move(blocco));
        }
        da = prossima;
    }
    return esito;
}

// Inflates one zlib stream; nothing when it is not one. Bounded, so that a stream that would
// grow without end cannot take the machine's memory.
QByteArray Gonfia(const char* dati, qsizetype lunghezza, qsizetype limite) {
    z_stream z{};
    if (inflateInit(&z) != Z_OK) return {};
    QByteArray uscita;
    char buffer[65536];
    z.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(dati));
    qsizetype restanti = lunghezza;
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
        const qsizetype prodotti = qsizetype(sizeof buffer - z.avail_out);
        if (esito != Z_OK && esito != Z_STREAM_END) break;
        if (uscita.size() + prodotti > limite) break;
        uscita.append(buffer, prodotti);
        if (prodotti == 0 && z.avail_in == 0 && restanti == 0) break;
    }
    inflateEnd(&z);
    return uscita;
}

// The inflated text of every stream of a PDF, one after the other.
QByteArray FlussiGonfiati(const QByteArray& dati) {
    constexpr qsizetype kLimiteFlusso = 64 << 20;
    constexpr qsizetype kLimiteTotale = 256 << 20;
    QByteArray tutto;
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
        const QByteArray gonfiato = Gonfia(dati.constData() + inizio, fine - inizio,
                                           std::min(kLimiteFlusso, kLimiteTotale - tutto.size()));
        if (!gonfiato.isEmpty()) {
            tutto.append(gonfiato);
            tutto.append('\n');
        }
        if (tutto.size() >= kLimiteTotale) break;
        da = fine;
    }
    return tutto;
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
    if (dati.contains("[TAG")) return LeggiDaTesto(DaWindows1252(dati));
    const QByteArray gonfiati = FlussiGonfiati(dati);
    if (!gonfiati.contains("[TAG")) return {};
    return LeggiDaTesto(DaWindows1252(gonfiati));
}

BlocchiTag LeggiBlocchiTagDaFile(const QString& percorso) {
    if (!EsisteFile(percorso)) return {};
    try {
        return LeggiBlocchiTagDaDati(LeggiByte(percorso));
    } catch (const Errore&) {
        return {};
    }
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
