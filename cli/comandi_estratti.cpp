// Commands on extracts (.EMP).
#include "comandi.h"
#include "copia_estratto.h"
#include "cxf.h"
#include "unisci.h"

#include "estratto.h"
#include <unistd.h>

namespace tavolet::cli {

namespace {

const Registra riscrivi(
    {{"estratto", "riscrivi"},
     "IN OUT",
     "copia IN in OUT, poi lo legge e lo riscrive: vertici ordinati e rinumerati, aree",
     2,
     [](Contesto& c) {
         const QString in = PercorsoArgomento(c.argomenti[0]);
         const QString out = PercorsoArgomento(c.argomenti[1]);
         if (!ConTrappola(c.stato, QStringLiteral("CopiaEstratto"), [&] { CopiaFile(in, out); }))
             return 1;
         Estratto e = EsplodiEstratto(c.stato, out);
         SalvaEstratto1(c.stato, e);
         return 0;
     }});

const Registra pulisci({{"estratto", "pulisci"},
                        "FILE",
                        "toglie dall'estratto i vertici che nessuna linea usa (sul posto)",
                        1,
                        [](Contesto& c) {
                            PulisciEstratto(c.stato, PercorsoArgomento(c.argomenti[0]));
                            return 0;
                        }});

const Registra info({{"estratto", "info"},
                     "IN",
                     "stampa i dati della riga 0 e il numero di righe di ogni lista",
                     1,
                     [](Contesto& c) {
                         const Estratto e =
                             EsplodiEstratto(c.stato, PercorsoArgomento(c.argomenti[0]));
                         const QList<std::pair<const char*, QString>> valori = {
                             {"EstrattoComune", e.EstrattoComune},
                             {"EstrattoFoglio", e.EstrattoFoglio},
                             {"EstrattoParticelle", e.EstrattoParticelle},
                             {"EstrattoProvincia", e.EstrattoProvincia},
                             {"EstrattoData", e.EstrattoData},
                             {"EstrattoMesi", QString::number(e.EstrattoMesi)},
                             {"EstrattoEstMedio", e.EstrattoEstMedio}};
                         for (const auto& [nome, valore] : valori)
                             c.out << nome << '=' << valore << '\n';
                         const QList<std::pair<const char*, const QStringList*>> liste = {
                             {"Punti", &e.Punti},       {"PF", &e.PF},
                             {"Toponimi", &e.Toponimi}, {"PLinee", &e.PLinee},
                             {"SETTE", &e.SETTE},       {"Linee", &e.Linee},
                             {"DITTA", &e.DITTA},       {"PARTICELLA", &e.PARTICELLA},
                             {"PFCART", &e.PFCART},     {"DISTANZA", &e.DISTANZA},
                             {"ALTRO", &e.ALTRO},       {"INQUADRAMENTO", &e.INQUADRAMENTO}};
                         for (const auto& [nome, lista] : liste)
                             c.out << nome << '=' << lista->size() << '\n';
                         return 0;
                     }});

const Registra dati({{"estratto", "dati"},
                     "IN",
                     "stampa comune, foglio, particelle ed est medio presi per il libretto",
                     1,
                     [](Contesto& c) {
                         const DatiEstratto d =
                             CopiaIDatiDellEstratto(c.stato, PercorsoArgomento(c.argomenti[0]));
                         c.out << "Comune=" << d.Comune << '\n'
                               << "Foglio=" << d.Foglio << '\n'
                               << "Particelle=" << d.Particelle << '\n'
                               << "EstMedio=" << d.EstMedio << '\n';
                         return 0;
                     }});

const Registra copia({{"estratto", "copia"},
                      "PERCORSO",
                      "copia .EMP/.PNG col compagno, o scompatta .ZIP, negli estratti di Pregeo",
                      1,
                      [](Contesto& c) {
                          PreparaAmbiente(c.stato);
                          const QString percorso = PercorsoArgomento(c.argomenti[0]);
                          const QString estensione = percorso.right(4).toUpper();
                          if (estensione != u".EMP" && estensione != u".PNG" &&
                              estensione != u".ZIP") {
                              QTextStream(stderr) << "Ammessi file .EMP, .PNG, .ZIP\n";
                              return 2;
                          }
                          if (!DrageDrop(c.stato, percorso)) return 1;
                          c.out << "NomeEstratto=" << c.stato.doc.NomeEstratto << '\n';
                          return 0;
                      }});

const Registra dacxf({{"estratto", "dacxf"},
                      "IN [OUT.EMP]",
                      "converte i BORDO di un CXF (col suo .SUP) in un .EMP e il .PNG vuoto",
                      1,
                      [](Contesto& c) {
                          const QString in = PercorsoArgomento(c.argomenti[0]);
                          const QString out = c.argomenti.size() > 1
                                                  ? PercorsoArgomento(c.argomenti[1])
                                                  : QString();
                          return EstrattoDaCxf(c.stato, in, out).isEmpty() ? 1 : 0;
                      }});

// Long work tells how far it is, when someone watches the terminal.
Avanzamento AvanzamentoSuTerminale(const char* cosa) {
    if (!isatty(2)) return {};
    return [cosa](int fatti, int totale) {
        QTextStream err(stderr);
        err << '\r' << cosa << ' ' << fatti << '/' << totale << (fatti == totale ? "\n" : "");
    };
}

const Registra unisci({{"estratto", "unisci"},
                       "BASE AGGIUNTO OUT",
                       "unisce due estratti in un autoallestito, fondendo i vertici sovrapposti",
                       3,
                       [](Contesto& c) {
                           const QString out = PercorsoArgomento(c.argomenti[2]);
                           return ConTrappola(
                                      c.stato, QStringLiteral("UnisciDueEstratti"),
                                      [&] {
                                          const QString testo = UnisciTestiEstratti(
                                              LeggiTesto(PercorsoArgomento(c.argomenti[0])),
                                              LeggiTesto(PercorsoArgomento(c.argomenti[1])));
                                          ScriviTesto(out, testo);
                                      })
                                      ? 0
                                      : 1;
                       }});

const Registra comune({{"estratto", "comune"},
                       "CARTELLA CODICE",
                       "unisce tutti gli estratti del comune CODICE in CARTELLA/CODICE.EMP",
                       2,
                       [](Contesto& c) {
                           Inizializza(c.stato); // the program folder, for the temporary join
                           const QString nome = SommaComuneInCartella(
                               c.stato, PercorsoArgomento(c.argomenti[0]), c.argomenti[1], {},
                               AvanzamentoSuTerminale("Estratti uniti"));
                           if (nome.isEmpty()) return 1;
                           c.out << nome << '\n';
                           return 0;
                       }});

} // namespace

} // namespace tavolet::cli
