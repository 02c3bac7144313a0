// The drawing list LXC and the libretto generated from it: never a crash; what is written is a
// libretto that loads.
#include "../bersaglio.h"
#include "disegno.h"
#include "errore.h"

using namespace tavolet;
using namespace tavolet::fuzz;

TAVOLET_BERSAGLIO(lxc) {
    const QString testo = Testo(dati, n);
    Disegno d;
    try {
        d = LeggiLxc(testo);
    } catch (const Errore& x) {
        // A number beyond the doubles: the overflow the drawing's loader reports.
        Verifica(x.numero == 6, "errore inatteso dalla lista: " + std::to_string(x.numero));
        return;
    }
    const QStringList linee = RiconosciLinee(d);
    for (const QString& v : linee) Verifica(v.contains(" - "), "linea senza i suoi due estremi");
    Banco a;
    a.s.doc.PercorsoLibretto = "C:\\Rilievi\\prova.lxc";
    CreaCartella("C:\\Rilievi");
    OpzioniLibretto o;
    o.MostraReport = false;
    QStringList rapporto;
    const EsitoGenerazione e = GeneraLibrettoMisureAutomatico(a.s, d, linee, o, rapporto);
    if (!e.scritto) return;
    for (const QString& r : RigheDiTesto(LeggiTesto(e.percorso)))
        Verifica(r.isEmpty() || r.contains(u'|'), "riga generata senza campi: " + r.toStdString());
}
