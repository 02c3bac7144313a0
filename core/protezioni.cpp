#include "protezioni.h"

#include "documento.h"
#include "errore.h"
#include "righe.h"
#include "stato.h"
#include "testo.h"

namespace tavolet {

bool SenzaRigheDiDati(const QString& testo) {
    const QStringList pezzi = Split(testo, CRLF);
    for (int i = 0; i + 1 < pezzi.size(); ++i) {
        const QString riga = Trim(pezzi[i]);
        const int tipo = TipoRiga(riga);
        if (riga.size() > 2 && tipo != 0 && tipo != 9) return false;
    }
    return true;
}

bool SostituisciDocumento(Stato& stato, const QString& testo) {
    if (SenzaRigheDiDati(testo)) {
        stato.piattaforma->Messaggio(kNessunDato, QStringLiteral("Tavolet"), Icona::Informazione);
        return false;
    }
    stato.doc.TestoLibretto = testo;
    CaricaLibrettoInList1(stato);
    return true;
}

void NuovoLibretto(Stato& stato) {
    Documento& d = stato.doc;
    d.TestoLibretto.clear();
    d.TestoPossessori.clear();
    d.PercorsoLibretto.clear();
    CaricaLibrettoInList1(stato);
}

bool SembraLibretto(const QByteArray& byte) {
    if (byte.contains('\0')) return false;
    qsizetype righe = 0, diLibretto = 0;
    qsizetype inizio = 0;
    const qsizetype n = byte.size();
    while (inizio < n) {
        qsizetype fine = inizio;
        while (fine < n && byte[fine] != '\r' && byte[fine] != '\n') ++fine;
        qsizetype i = inizio;
        while (i < fine && (byte[i] == ' ' || byte[i] == '\t')) ++i;
        if (i < fine) {
            ++righe;
            if (fine - i >= 2 && byte[i] >= '0' && byte[i] <= '9' && byte[i + 1] == '|')
                ++diLibretto;
        }
        inizio = fine + 1;
    }
    return 2 * diLibretto >= righe;
}

QString DescrizioneFileMancante(int numero, const QString& percorso) {
    return DescrizioneErrore(numero) + QStringLiteral(": ") + percorso;
}

} // namespace tavolet
