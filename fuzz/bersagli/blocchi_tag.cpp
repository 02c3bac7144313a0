// The tag blocks of Pregeo's PDF, raw or in Flate streams, and the import's row readers.
#include "../bersaglio.h"
#include "pregeo.h"

using namespace tavolet;
using namespace tavolet::fuzz;

TAVOLET_BERSAGLIO(blocchi_tag) {
    const QByteArray d = Byte(dati, n);
    const BlocchiTag b = LeggiBlocchiTagDaDati(d);
    for (const BloccoTag& blocco : b.blocchi) {
        Verifica(blocco.numero % 1000 == 0 && blocco.numero >= 1000 && blocco.numero <= 5000,
                 "blocco di numero impossibile");
        if (blocco.numero == 4000)
            for (const QString& pezzo : blocco.pezzi)
                Verifica(!pezzo.contains(u'|') && !pezzo.contains(u'\\'), "pezzo non diviso");
    }
    DaPregeo dp;
    const QString testo = DaWindows1252(d);
    for (const QString& riga : RigheDiTesto(testo)) {
        Verifica(RigaAtto(riga).size() == 9, "riga d'atto senza 9 campi");
        dp.Punti << RigaPunto(riga);
    }
    dp.RigheLibretto = RigheDiTesto(testo).mid(0, 50);
    try {
        CaricaDescrizione(dp);
    } catch (const Errore&) {
    }
    // A coordinate beyond the doubles is an overflow for the error report, as the import has it.
    try {
        TestoRighe8(dp);
    } catch (const Errore& x) {
        Verifica(x.numero == 6, "errore inatteso dalle righe 8: " + std::to_string(x.numero));
    }
}
