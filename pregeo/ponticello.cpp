#include "ponticello.h"

#include "errore.h"
#include "file_testo.h"
#include "shell.h"
#include "stato.h"
#include "testo.h"

namespace tavolet {

QString ChiaveAtto(const QString& anno, const QString& protocollo) {
    return Right(anno, 2) + protocollo;
}

QString RigaEsportaTutto(const Stato& stato, const QString& chiave) {
    return stato.amb.CartellaProgramma + kPonticello + QStringLiteral(" ESPORTA_TUTTO ") + chiave;
}

QString RigaElencoLibretti(const Stato& stato) {
    // The digit behind the extension belongs to the helper's contract.
    return stato.amb.CartellaProgramma + QStringLiteral("\\Ponticello.exe2 ELENCO_LIBRETTI");
}

QString RigaPonticello2(const Stato& stato) {
    return stato.amb.CartellaProgramFiles + kPonticello2 + u' ';
}

QString PercorsoEsportazione(const Stato& stato, const QString& nome) {
    return stato.amb.CartellaLavoro + QStringLiteral("\\TEMP\\") + nome;
}

QString PercorsoElencoLibretti(const Stato& stato) {
    return stato.amb.CartellaDocumenti + QStringLiteral("\\TEMP\\") + kElencoLibretti;
}

void EsportaTutto(Stato& stato, const QString& chiave) {
    ShellInfinita(stato, RigaEsportaTutto(stato, chiave));
}

void ElencoLibretti(Stato& stato) {
    ShellInfinita(stato, RigaPonticello2(stato));
    ShellInfinita(stato, RigaElencoLibretti(stato));
}

QString LeggiRisultato(const QString& percorso) {
    // A helper that died half-way may leave anything: a file of absurd size is no result.
    constexpr qint64 kMassimo = 256ll << 20;
    try {
        if (!EsisteFile(percorso)) return {};
        const QByteArray dati = LeggiByte(percorso);
        if (dati.size() > kMassimo) return {};
        return DaWindows1252(dati);
    } catch (const Errore&) {
        return {};
    }
}

} // namespace tavolet
