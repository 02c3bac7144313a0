#include "pdf_tag.h"

#include "archivio.h"
#include "blocchi_tag.h"
#include "documento.h"
#include "errore.h"
#include "file_testo.h"
#include "percorsi.h"
#include "protezioni.h"
#include "stato.h"
#include "testo.h"

#include <QDir>
#include <QFileInfo>

namespace tavolet {

AttoDaPdf LeggiBlocchiTag(Stato& stato, const QString& percorso) {
    AttoDaPdf atto;
    const BlocchiTag blocchi = LeggiBlocchiTagDaFile(percorso);
    atto.Libretto1000 = blocchi.Testo(1000);
    atto.Libretto2000 = blocchi.Testo(2000);
    atto.Possessori = blocchi.Testo(4000);
    QStringList testata;
    bool conEstratto = false;
    for (const BloccoTag& b : blocchi.blocchi) {
        if (b.numero == 3000) {
            atto.TipoAtto = b.pezzi.value(0);
            atto.NomeEstratto = b.pezzi.value(2);
            testata = b.pezzi;
            conEstratto = true;
        }
    }
    for (const BloccoTag& b : blocchi.blocchi)
        if (b.numero == 5000) testata += b.pezzi;
    atto.TestataEstratto = Join(testata, CRLF);
    // An act without block 3000 names no extract: there is nothing to look for.
    if (!conEstratto) return atto;
    if (UCase(Trim(atto.NomeEstratto)) == kAutoallestito) {
        atto.EstrattoTrovato = atto.NomeEstratto;
        return atto;
    }
    atto.EstrattoTrovato = TrovaEstrattoAssociato(stato, atto.NomeEstratto);
    if (atto.EstrattoTrovato.isEmpty())
        stato.piattaforma->Messaggio(
            QStringLiteral("Estratto Associato non trovato nella cartella Estratti di Pregeo."),
            QStringLiteral("Trascina Libretto"), Icona::Avviso);
    return atto;
}

bool CaricaLibrettoDaPdf(Stato& stato, const QString& percorso) {
    return ConTrappola(stato, QStringLiteral("Decozero_138"), [&] {
        const QString maiuscolo = UCase(percorso);
        const AttoDaPdf atto = LeggiBlocchiTag(stato, percorso);
        stato.TagRoutine = QStringLiteral("Decozero_138");
        // A PDF without the blocks of a libretto leaves the document as it is.
        if (!SostituisciDocumento(stato, atto.Libretto1000 + CRLF + atto.Libretto2000)) return;
        stato.doc.PercorsoLibretto =
            Replace(maiuscolo, QStringLiteral(".PDF"), QStringLiteral(".TXT"));
        stato.doc.TestoPossessori = atto.Possessori;
        stato.doc.NomeEstratto = atto.EstrattoTrovato;
        CaricaLibrettoInList1(stato);
    });
}

void InstallaPregeo(Stato& stato) {
    stato.CaricaPdf = [](Stato& s, const QString& percorso) {
        return CaricaLibrettoDaPdf(s, percorso);
    };
}

} // namespace tavolet
