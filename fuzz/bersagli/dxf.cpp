// The DXF polylines and the CAD list of the automated cases: rows 6, 7 and 8 only, every row 7
// with as many points as its count says.
#include "../bersaglio.h"
#include "casistiche.h"

using namespace tavolet;
using namespace tavolet::fuzz;

namespace {

void ControllaRighe(const QString& righe) {
    int punti = 0, attesi = -1;
    for (const QString& r : Split(righe, CRLF)) {
        if (r.isEmpty()) continue;
        const int tipo = TipoRiga(r);
        Verifica(tipo == 6 || tipo == 7 || tipo == 8, "riga inattesa: " + r.toStdString());
        if (tipo != 7) continue;
        QStringList f = Split(r, "|");
        f.removeLast();
        if (f.value(1) != "0") {
            Verifica(attesi < 0 || punti == attesi, "anello con punti mancanti");
            attesi = f.value(1).toInt();
            punti = 0;
        }
        punti += int(f.size()) - 3;
    }
    Verifica(attesi < 0 || punti == attesi, "anello con punti mancanti");
}

} // namespace

TAVOLET_BERSAGLIO(dxf) {
    if (n < 1) return;
    const QByteArray byte = Byte(dati + 1, n - 1);
    Banco a;
    Casistica c;
    c.Codice = dati[0] & 1 ? "08" : "1000";
    if (dati[0] & 2) {
        a.p.appunti = DaWindows1252(byte);
        GeneraLibrettoDaList(a.s, c);
    } else {
        ConTrappola(a.s, "fuzz", [&] { ListaDaPoliLineeDxf(byte); });
        Scrivi("C:\\lavoro\\f.dxf", byte);
        GeneraLibrettoDaPoliLineeDXF(a.s, c, "C:\\lavoro\\f.dxf");
    }
    ControllaRighe(c.RigheSpezzate);
}
