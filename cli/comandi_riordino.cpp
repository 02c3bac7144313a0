// Commands of the row regrouping.
#include "comandi.h"

#include "riordino.h"

namespace tavolet::cli {

namespace {

const Registra riordina({{"libretto", "riordina"},
                         "IN OUT",
                         "carica IN come un trascinamento, riordina le righe e scrive OUT",
                         2,
                         [](Contesto& c) {
                             PreparaAmbiente(c.stato);
                             DecoZeroNove(c.stato);
                             if (!CaricaComeTrascinamento(c.stato,
                                                          PercorsoArgomento(c.argomenti[0])))
                                 return 1;
                             subRiordinoRighe(c.stato);
                             c.stato.doc.PercorsoLibretto = PercorsoArgomento(c.argomenti[1]);
                             ScriviLibrettoMisure(c.stato);
                             return 0;
                         }});

const Registra mappali({{"mappali"},
                        "ORDINE",
                        "stampa i mappali separati da virgole in ordine, senza doppi",
                        1,
                        [](Contesto& c) {
                            QString elenco = c.argomenti[0];
                            RiordinoMappali(c.stato, elenco);
                            c.out << elenco << '\n';
                            return 0;
                        }});

} // namespace

} // namespace tavolet::cli
