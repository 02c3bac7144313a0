// The drawing list LXC and the libretto generated from it: never a crash; what is written is a
// libretto that loads.
#include "../bersaglio.h"
#include "disegno.h"

using namespace tavolet;
using namespace tavolet::fuzz;

TAVOLET_BERSAGLIO(lxc) {
    const QString testo = Testo(dati, n);
    const Disegno d = LeggiLxc(testo);
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
