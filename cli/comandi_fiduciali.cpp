// Commands on the fiducial archive: the TAF grid, the rows 8 of a libretto, the measured
// distances.
#include "comandi.h"
#include "fiduciali.h"

namespace tavolet::cli {

namespace {

bool CaricaLibretto(Contesto& c, const QString& argomento) {
    PreparaAmbiente(c.stato);
    DecoZeroNove(c.stato);
    return CaricaComeTrascinamento(c.stato, PercorsoArgomento(argomento));
}

const Registra
    elenco_fiduciali({{"taf", "elenco"},
                      "FILE.TAF",
                      "stampa la griglia dei fiduciali del file, colonne separate da |",
                      1,
                      [](Contesto& c) {
                          QList<RigaTaf> righe;
                          if (!ConTrappola(c.stato, QStringLiteral("BV_ElcoPfGriglia"), [&] {
                                  righe = LeggiTaf(LeggiTesto(PercorsoArgomento(c.argomenti[0])));
                              }))
                              return 1;
                          for (const QStringList& r : GrigliaTaf(righe))
                              c.out << r.join(u'|') << '\n';
                          return 0;
                      }});

const Registra
    righe8({{"taf", "righe8"},
            "LIBRETTO [--quote]",
            "stampa le righe 8 dei PF del libretto prese dalle TAF (--quote: e le quote)",
            1,
            [](Contesto& c) {
                if (!CaricaLibretto(c, c.argomenti[0])) return 1;
                const bool quote = c.argomenti.contains(QStringLiteral("--quote"));
                for (const QString& r :
                     CaricaPieffe8(c.stato, c.stato.doc.RigheLibretto.Righe(), quote))
                    c.out << r << '\n';
                return 0;
            }});

const Registra daLibretto({{"misurate", "libretto"},
                           "LIBRETTO",
                           "distanze misurate fra i PF delle righe 8 del libretto (Misurate.TXT)",
                           1,
                           [](Contesto& c) {
                               if (!CaricaLibretto(c, c.argomenti[0])) return 1;
                               for (const QString& r : CalcolaMisuratePF_DaLibretto(
                                        c.stato, c.stato.doc.RigheLibretto.Righe()))
                                   c.out << r << '\n';
                               return 0;
                           }});

const Registra da1PF({{"misurate", "pf"},
                      "CODICE",
                      "le distanze misurate che toccano il PF CODICE",
                      1,
                      [](Contesto& c) {
                          PreparaAmbiente(c.stato);
                          for (const QString& r : MisurateDa1PF(c.stato, c.argomenti[0]))
                              c.out << r << '\n';
                          return 0;
                      }});

} // namespace

} // namespace tavolet::cli
