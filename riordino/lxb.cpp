// The .LXB companion: its measured rows replace the survey part of the .DAT of the same name.
#include "riordino.h"

#include "errore.h"
#include "righe.h"
#include "stato.h"
#include "testo.h"

namespace tavolet {

namespace {

struct RigaLxb {
    const QString& riga;
    int tipo;
    int tipoSeguente;
};

struct RegolaLxb {
    bool (*vale)(const RigaLxb&);
    Gruppo gruppo;
};

// By kind, first rule that fits. A comment travels with what follows it: an outline or a GPS
// point. Anything else of the .LXB (head, rows 8, model) is the .DAT's business.
const RegolaLxb kRegoleLxb[] = {
    {[](const RigaLxb& r) { return (r.tipo == 1 || r.tipo == 2) && r.riga.contains(u','); },
     Gruppo::GPS},
    {[](const RigaLxb& r) { return r.tipo == 1 || r.tipo == 2; }, Gruppo::Stazioni},
    {[](const RigaLxb& r) { return r.tipo == 3; }, Gruppo::Poligonali},
    {[](const RigaLxb& r) { return r.tipo == 4 || r.tipo == 5; }, Gruppo::Righe45},
    {[](const RigaLxb& r) { return r.tipo == 6 && r.tipoSeguente == 7; }, Gruppo::Contorni},
    {[](const RigaLxb& r) { return r.tipo == 6 && r.tipoSeguente == 2; }, Gruppo::GPS},
    {[](const RigaLxb& r) { return r.tipo == 7; }, Gruppo::Contorni},
    {[](const RigaLxb&) { return true; }, Gruppo::Scartata},
};

} // namespace

void SostituisciRilievoDaLxb(Stato& stato, const QString& testoLxb) {
    GruppiLibretto g = EsplodiLibretto(stato);
    if (!g.completo) return;
    for (Gruppo svuota :
         {Gruppo::Stazioni, Gruppo::Poligonali, Gruppo::Righe45, Gruppo::Contorni, Gruppo::GPS})
        g.Lista(svuota).clear();
    const QStringList righe = Split(testoLxb, CRLF);
    // The last piece is what follows the last line end.
    for (int i = 0; i + 1 < righe.size(); ++i) {
        const RigaLxb r{righe[i], TipoRiga(righe[i]), TipoRiga(righe[i + 1])};
        for (const RegolaLxb& regola : kRegoleLxb) {
            if (!regola.vale(r)) continue;
            if (regola.gruppo != Gruppo::Scartata) g.Lista(regola.gruppo).append(r.riga);
            break;
        }
    }
    RicomponiLibretto(stato, g);
}

void InstallaRiordino(Stato& stato) {
    stato.SostituisciRilievoDaLxb = SostituisciRilievoDaLxb;
}

} // namespace tavolet
