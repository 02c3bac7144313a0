// GeneraLibrettoMisureAutomatico: a whole libretto computed from the coordinates of a drawing,
// as if its points had been measured from its stations.
#pragma once

#include "lxc.h"
#include "opzioni.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace tavolet {

struct Stato;

struct EsitoGenerazione {
    bool scritto = false; // the libretto was written
    bool fermato = false; // stopped before any change (no orientation chosen)
    QString percorso;     // the .TXT written
};

// Runs every stage on the drawing and the current libretto (TestoLibretto, PercorsoLibretto
// naming the .LXC), writes the libretto beside the drawing and saves the options. The report
// lines go to rapporto; mostraRapporto shows them when "Genera Report" is ticked.
EsitoGenerazione
GeneraLibrettoMisureAutomatico(Stato& stato, const Disegno& disegno, const QStringList& listaLinee,
                               const OpzioniLibretto& opzioni, QStringList& rapporto,
                               const std::function<void(const QStringList&)>& mostraRapporto = {});

// The stages of rows 7 (and the vertex rows), for the generation and its tests.
struct LavoroGenerazione {
    const Disegno& disegno;
    const OpzioniLibretto& opzioni;
    QStringList righeLibretto; // the old libretto split at line ends
    QStringList uscita;
    QStringList appoggio;
    QStringList& rapporto;
};
void GeneraRighe7(Stato& stato, LavoroGenerazione& g);

} // namespace tavolet
