#include "descrizione.h"

#include "documento.h"
#include "errore.h"
#include "righe.h"
#include "stato.h"
#include "testo.h"

namespace tavolet {

namespace {

bool NumeroValido(const QString& testo) {
    bool ok = false;
    Trim(testo).toDouble(&ok);
    return ok;
}

} // namespace

QString RigaConDescrizione(const QString& riga, const QString& descrizione) {
    const int tipo = TipoRiga(riga);
    if (tipo != 1 && tipo != 2 && tipo != 4 && tipo != 5 && tipo != 8) return riga;
    QStringList campi = Split(riga, QStringLiteral("|"));
    int ultimo = 0;
    for (int i = 1; i < campi.size() && !campi[i].isEmpty(); ++i) ultimo = i;
    if (ultimo == 0) return riga;
    const QString testo = Trim(Replace(descrizione, QStringLiteral("|"), {}));
    // A row 8 keeps its coordinates: its description stands behind the east.
    const int minimo = tipo == 8 ? 4 : 2;
    const int campo = (ultimo >= minimo && !NumeroValido(campi[ultimo])) ? ultimo : ultimo + 1;
    while (campi.size() <= campo + 1) campi.append(QString());
    campi[campo] = testo;
    return Join(campi, QStringLiteral("|"));
}

int AssegnaDescrizioneRighe(Stato& stato, const QString& descrizione) {
    int cambiate = 0;
    ConTrappola(stato, QStringLiteral("AssegnaDescrizione"), [&] {
        ListaRighe& l = stato.doc.RigheLibretto;
        const QList<int> scelte = l.Selezionate();
        if (scelte.isEmpty()) {
            stato.piattaforma->Messaggio(
                QStringLiteral("Selezionare le righe a cui assegnare la descrizione!"),
                QStringLiteral("Assegna Descrizione"), Icona::Informazione);
            return;
        }
        for (int i : scelte) {
            const QString nuova = RigaConDescrizione(l.Riga(i), descrizione);
            if (nuova == l.Riga(i)) continue;
            l.Imposta(i, nuova);
            ++cambiate;
        }
        if (cambiate) AggiornaLibrettoMisure(stato);
    });
    return cambiate;
}

} // namespace tavolet
