// Commands on extracts (.EMP).
#include "archivio.h"
#include "autoallestito.h"
#include "comandi.h"
#include "copia_estratto.h"
#include "cxf.h"
#include "unisci.h"

#include "estratto.h"
#include <unistd.h>

namespace tavolet::cli {

namespace {

// An extract named without a folder lies in Pregeo's extracts folder, as everywhere else. The
// usage word ESTRATTO (not IN) leaves the test of a missing file to the routines, which give
// the system's own messages.
QString ArgomentoEstratto(Contesto& c, const QString& argomento) {
    if (argomento.contains(u'/') || argomento.contains(u'\\')) return argomento;
    if (c.stato.amb.RigheIni.isEmpty()) PreparaAmbiente(c.stato);
    return PercorsoEstratto(c.stato, argomento);
}

QString EstrattoN(Contesto& c, int i) {
    const QString& a = c.argomenti[i];
    return a.contains(u'/') || a.contains(u'\\') ? PercorsoArgomento(a) : ArgomentoEstratto(c, a);
}

QString Estratto1(Contesto& c) {
    return EstrattoN(c, 0);
}

const Registra riscrivi(
    {{"estratto", "riscrivi"},
     "ESTRATTO OUT",
     "copia ESTRATTO in OUT, poi lo legge e lo riscrive: vertici ordinati e rinumerati, aree",
     2,
     [](Contesto& c) {
         const QString in = Estratto1(c);
         const QString out = PercorsoArgomento(c.argomenti[1]);
         // OUT is written over only from an input that is there.
         if (!FileDiIngresso(c.piattaforma, in)) return 1;
         // Most extracts go straight from IN to OUT; the others are copied and read.
         if (RiscriviEstrattoIn(c.stato, in, out)) return 0;
         if (!ConTrappola(c.stato, QStringLiteral("CopiaEstratto"), [&] { CopiaFile(in, out); }))
             return 1;
         Estratto e = EsplodiEstratto(c.stato, out);
         SalvaEstratto1(c.stato, e);
         return 0;
     }});

const Registra pulisci({{"estratto", "pulisci"},
                        "ESTRATTO",
                        "toglie dall'estratto i vertici che nessuna linea usa (sul posto)",
                        1,
                        [](Contesto& c) {
                            PulisciEstratto(c.stato, Estratto1(c));
                            return 0;
                        }});

const Registra info({{"estratto", "info"},
                     "ESTRATTO",
                     "stampa i dati della riga 0 e il numero di righe di ogni lista",
                     1,
                     [](Contesto& c) {
                         const Estratto e = EsplodiEstratto(c.stato, Estratto1(c));
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
                     "ESTRATTO",
                     "stampa comune, foglio, particelle ed est medio presi per il libretto",
                     1,
                     [](Contesto& c) {
                         const DatiEstratto d = CopiaIDatiDellEstratto(c.stato, Estratto1(c));
                         c.out << "Comune=" << d.Comune << '\n'
                               << "Foglio=" << d.Foglio << '\n'
                               << "Particelle=" << d.Particelle << '\n'
                               << "EstMedio=" << d.EstMedio << '\n';
                         return 0;
                     }});

const Registra
    copia({{"estratto", "copia"},
           "ESTRATTO",
           "copia .EMP/.PNG col compagno, o scompatta .ZIP, negli estratti di Pregeo",
           1,
           [](Contesto& c) {
               PreparaAmbiente(c.stato);
               // The quotes of a path pasted from Windows go before the test.
               const QString percorso = PercorsoArgomento(QString(c.argomenti[0]).remove(u'"'));
               const QString estensione = percorso.right(4).toUpper();
               if (estensione != u".EMP" && estensione != u".PNG" && estensione != u".ZIP") {
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
                           return ConTrappola(c.stato, QStringLiteral("UnisciDueEstratti"),
                                              [&] {
                                                  ScriviByte(out, UnisciEstratti(
                                                                      LeggiByte(Estratto1(c)),
                                                                      LeggiByte(EstrattoN(c, 1))));
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

const Registra validita({{"estratto", "validita"},
                         "ESTRATTO",
                         "stampa la validità dell'estratto come la mostra l'archivio",
                         1,
                         [](Contesto& c) {
                             const QString percorso = Estratto1(c);
                             const Estratto e = EsplodiEstratto(c.stato, percorso);
                             if (c.stato.ErroriMostrati > 0) return 1;
                             c.out << TestoValidita(e.EstrattoMesi) << '\n';
                             return 0;
                         }});

const Registra verifica({{"estratto", "verifica"},
                         "CARTELLA",
                         "per ogni .EMP: punti, PF, righe DISTANZA e PARTICELLA",
                         1,
                         [](Contesto& c) {
                             const auto conteggi =
                                 VerificaEstratti(c.stato, PercorsoArgomento(c.argomenti[0]),
                                                  AvanzamentoSuTerminale("Estratti letti"));
                             for (const ConteggioEstratto& k : conteggi)
                                 c.out << k.nome << ' ' << k.punti << ' ' << k.pf << ' '
                                       << k.distanze << ' ' << k.particelle << '\n';
                             return 0;
                         }});

const Registra vuota({{"estratto", "vuota"},
                      "ESTRATTO",
                      "lascia nell'estratto la prima e l'ultima riga (sul posto)",
                      1,
                      [](Contesto& c) { return VuotaEstratto(c.stato, Estratto1(c)) ? 0 : 1; }});

const Registra
    autoallestito({{"estratto", "autoallestito"},
                   "ESTRATTO",
                   "trasforma l'estratto in autoallestito (sul posto)",
                   1,
                   [](Contesto& c) { return RendiAutoallestito(c.stato, Estratto1(c)) ? 0 : 1; }});

const Registra azzeraDitte({{"estratto", "azzera-ditte"},
                            "ESTRATTO",
                            "archivia le righe DITTA e le toglie dall'estratto (copia in TEMP)",
                            1,
                            [](Contesto& c) {
                                const QString percorso = Estratto1(c);
                                if (c.stato.amb.CartellaLavoro.isEmpty()) Inizializza(c.stato);
                                return AzzeraDitte(c.stato, percorso) ? 0 : 1;
                            }});

const Registra rinominaParticella({{"estratto", "rinomina-particella"},
                                   "ESTRATTO VECCHIO NUOVO",
                                   "rinomina la particella nelle linee chiuse dell'estratto",
                                   3,
                                   [](Contesto& c) {
                                       return RinominaParticella(c.stato, Estratto1(c),
                                                                 c.argomenti[1], c.argomenti[2])
                                                  ? 0
                                                  : 1;
                                   }});

const Registra eliminaParticella(
    {{"estratto", "elimina-particella"},
     "ESTRATTO NOME",
     "toglie le linee della particella e i vertici rimasti isolati",
     2,
     [](Contesto& c) { return EliminaParticella(c.stato, Estratto1(c), c.argomenti[1]) ? 0 : 1; }});

// A value of an option "--nome valore", taken out of the arguments; empty when absent.
QString Opzione(QStringList& a, const QString& nome) {
    const qsizetype i = a.indexOf(nome);
    if (i < 0) return {};
    const QString valore = a.value(i + 1);
    a.remove(i, std::min<qsizetype>(2, a.size() - i));
    return valore;
}

const Registra completa(
    {{"estratto", "completa"},
     "ESTRATTO COMUNE FOGLIO [NUMERO=QUALITA:SUPERFICIE...] [--provincia PD] [--tipo 22]",
     "completa l'autoallestito: testa e righe PARTICELLA (qualità ENTE URBANO o 282...)",
     3,
     [](Contesto& c) {
         QStringList a = c.argomenti;
         QString provincia = Opzione(a, QStringLiteral("--provincia"));
         const QString tipo = Opzione(a, QStringLiteral("--tipo"));
         if (a.size() < 3) return 2;
         c.argomenti = a;
         const QString percorso = Estratto1(c);
         QList<ParticellaDaCompletare> particelle;
         for (const QString& voce : a.mid(3)) {
             const QString nome = Trim(Split(voce, QStringLiteral("=")).value(0));
             const QStringList q =
                 Split(Split(voce, QStringLiteral("=")).value(1), QStringLiteral(":"));
             const QualitaParticella qualita = QualitaDaPulsante(q.value(0));
             if (nome.isEmpty() || qualita.descrizione.isEmpty() || q.size() != 2) {
                 c.piattaforma.Messaggio(voce + QStringLiteral(": NUMERO=QUALITA:SUPERFICIE, "
                                                               "qualità FABB RURALE, FR DIV SUB, "
                                                               "ENTE URBANO, FU D ACCERT o codice"),
                                         QStringLiteral("Uso"), Icona::Avviso);
                 return 2;
             }
             particelle.append({nome, qualita.descrizione, q.value(1)});
         }
         if (c.stato.amb.TabellaComuni.isEmpty()) PreparaAmbiente(c.stato);
         if (provincia.isEmpty()) provincia = ProvinciaDiCompetenza(c.stato, a[1]);
         QStringList righe;
         if (!ConTrappola(c.stato, QStringLiteral("CaricaEstratto"),
                          [&] { righe = LeggiRighe(percorso); }))
             return 1;
         righe = CompletaRigheAutoallestito(righe, UCase(Trim(a[1])), UCase(provincia), Trim(a[2]),
                                            particelle, tipo);
         if (!SalvaAutoallestito(c.stato, percorso, righe)) return 1;
         for (const QString& r : righe)
             if (r.startsWith(u"0|") || r.startsWith(u"6|PARTICELLA|")) c.out << r << '\n';
         return 0;
     }});

} // namespace

} // namespace tavolet::cli
