// The comuni table (comunt.dat) and the provinces' list (prosigle) of Pregeo, read at start:
// every name fits its field, and the head rows decode on whatever was read.
#include "../bersaglio.h"

using namespace tavolet;
using namespace tavolet::fuzz;

TAVOLET_BERSAGLIO(comuni) {
    const auto [comunt, prosigle] = Dividi(Byte(dati, n));
    PreparaRadice();
    const PregeoRipristinato ripristino;
    Scrivi("C:\\pregeo\\arch\\comunt.dat", comunt);
    Scrivi("C:\\pregeo\\exe\\prosigle", prosigle);
    Banco a;
    CaricaComuni(a.s);
    CaricaProvince(a.s);
    a.s.doc.TestoLibretto = "0|01012024|1|A001|\r\n9|1|\r\n";
    DecoZeroNove(a.s);
    for (const Comune& c : a.s.amb.TabellaComuni)
        Verifica(c.NomeComune.size() <= 34, "nome di comune oltre i 34 caratteri");
}
