// A CXF sheet with its SUP: the fast conversion and the plain reference give the same EMP, or
// the same error.
#include "cxf.h"
#include "../bersaglio.h"
#include "riferimento_cxf.h"

using namespace tavolet;
using namespace tavolet::fuzz;

TAVOLET_BERSAGLIO(cxf) {
    const auto [foglio, sup] = Dividi(Byte(dati, n));
    const QString cxf = DaWindows1252(foglio);
    const QStringList righeSup = RigheDiTesto(DaWindows1252(sup));
    Banco a;
    const RisultatoCxf r = ComponiEmpDaCxf(a.s, cxf, righeSup);
    try {
        const test::RiferimentoCxf atteso = test::ComponiEmpDaCxfRiferimento(cxf, righeSup);
        Verifica(r.scritto, "il riferimento legge un CXF che la conversione rifiuta");
        Verifica(r.emp == atteso.emp, "EMP diverso dal riferimento");
    } catch (const Errore& e) {
        Verifica(!r.scritto, "la conversione scrive un CXF che il riferimento rifiuta");
        Verifica(!a.p.Messaggi().isEmpty() &&
                     a.p.Messaggi().last().contains(QStringLiteral(": %1\r\n").arg(e.numero)),
                 "errore diverso dal riferimento");
    }
    for (const QString& riga : righeSup) AreaDaSup(righeSup, riga.left(10));
}
