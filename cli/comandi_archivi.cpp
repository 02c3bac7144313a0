// The archives: the fiscal code check and the table of the comuni.
#include "codice_fiscale.h"
#include "comandi.h"
#include "comuni.h"

namespace tavolet::cli {

namespace {

const Registra codicefiscale({{"codicefiscale"},
                              "CODICE...",
                              "stampa CODICE CORRETTO o CODICE ERRATO per ogni codice fiscale",
                              1,
                              [](Contesto& c) {
                                  for (const QString& codice : c.argomenti)
                                      c.out << codice << ' '
                                            << ControllaCodiceFiscale(c.stato, codice) << '\n';
                                  return 0;
                              }});

const Registra
    cerca({{"comuni", "cerca"},
           "TESTO [--generale]",
           "stampa le righe dei codici dei comuni che iniziano con TESTO (o lo contengono)",
           1,
           [](Contesto& c) {
               const bool generale = c.argomenti.contains(QStringLiteral("--generale"));
               QStringList testi = c.argomenti;
               testi.removeAll(QStringLiteral("--generale"));
               if (testi.isEmpty()) {
                   QTextStream(stderr) << "Uso: tavolet-cli comuni cerca TESTO\n";
                   return 2;
               }
               PreparaAmbiente(c.stato);
               const QString cerca = UCase(testi.join(u' '));
               c.out << kIntestazioneCodFis << '\n';
               for (const QString& riga : RigheCodFis(c.stato))
                   if (generale ? riga.contains(cerca) : riga.startsWith(cerca))
                       c.out << riga << '\n';
               return 0;
           }});

} // namespace

} // namespace tavolet::cli
