// A print template filled with the rows: never a crash, and a template without fields comes
// back as it was.
#include "../bersaglio.h"
#include "stampa.h"

using namespace tavolet;
using namespace tavolet::fuzz;

TAVOLET_BERSAGLIO(modello_stampa) {
    const auto [modello, righe] = Dividi(Byte(dati, n));
    Banco a;
    const QStringList elenco = RigheDiTesto(DaWindows1252(righe));
    const QByteArray pieno = RiempiModello(a.s, modello, elenco);
    if (!modello.contains('_') && !modello.contains('[') && !modello.contains('\\'))
        Verifica(pieno == modello, "modello senza campi cambiato");
}
