// The libretto loader on any file: a .DAT, a .LXB or a PDF dropped on the list. It loads, shows
// its rows, saves; nothing but reports, and the rows saved load again.
#include "../bersaglio.h"
#include "pregeo.h"

using namespace tavolet;
using namespace tavolet::fuzz;

TAVOLET_BERSAGLIO(libretto) {
    if (n < 1) return;
    static const char* const kNomi[] = {"C:\\f\\F.DAT", "C:\\f\\F.LXB", "C:\\f\\F.PDF"};
    const QString nome = QString::fromLatin1(kNomi[dati[0] % 3]);
    Banco a;
    InstallaPregeo(a.s);
    // A libretto is open: a command that finds nothing to load leaves it as it was.
    a.s.doc.TestoLibretto = QStringLiteral("0|01012026|1|A001|0012|1|ROSSI|GEOMETRA|PD|\r\n9|\r\n");
    CaricaLibrettoInList1(a.s);
    Scrivi(nome, Byte(dati + 1, n - 1));
    if (nome.endsWith(".PDF")) {
        a.p.risposte = {Risposta::Si, Risposta::Si};
        if (!TrascinaLibretto(a.s, nome)) return; // not a libretto: refused with its message
    } else {
        a.s.doc.PercorsoLibretto = nome;
        CaricaLibrettoMisure(a.s);
        CaricaLibrettoInList1(a.s);
    }
    Verifica(a.s.doc.RigheLibretto.Conta() >= 2, "il libretto ha perso le righe 0 e 9");
    for (const QString& r : a.s.doc.RigheLibretto.Righe()) ScomponiRiga(r.left(200));
    AggiornaLibrettoMisure(a.s);
    a.s.doc.PercorsoLibretto = "C:\\f\\G.DAT";
    if (!ScriviLibrettoMisure(a.s)) return;
    CaricaLibrettoMisure(a.s);
    CaricaLibrettoInList1(a.s);
    Verifica(a.s.doc.RigheLibretto.Conta() >= 2, "il libretto salvato non si ricarica");
}
