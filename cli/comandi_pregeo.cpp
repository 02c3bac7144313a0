// Commands on Pregeo's PDF, its archive through the helper, and the command words.
#include "comandi.h"
#include "pregeo.h"

namespace tavolet::cli {

namespace {

int Esito(const Contesto& c) {
    return c.stato.ErroriMostrati > 0 ? 1 : 0;
}

const Registra pdfLibretto(
    {{"pdf", "libretto"},
     "IN.PDF OUT.TXT",
     "riapre l'atto dai blocchi [TAG del PDF e scrive il libretto con possessori ed estratto",
     2,
     [](Contesto& c) {
         PreparaAmbiente(c.stato);
         InstallaPregeo(c.stato);
         if (!TrascinaLibretto(c.stato, PercorsoArgomento(c.argomenti[0]))) return 1;
         c.stato.doc.PercorsoLibretto = PercorsoArgomento(c.argomenti[1]);
         ScriviLibrettoMisure(c.stato);
         return Esito(c);
     }});

const Registra pdfBlocchi({{"pdf", "blocchi"},
                           "IN.PDF",
                           "stampa il numero di ogni blocco [TAG e i suoi pezzi, uno per riga",
                           1,
                           [](Contesto& c) {
                               BlocchiTag b;
                               if (!ConTrappola(c.stato, QStringLiteral("LeggiBlocchiTag"), [&] {
                                       b = LeggiBlocchiTagDaFile(PercorsoArgomento(c.argomenti[0]));
                                   }))
                                   return 1;
                               for (const BloccoTag& blocco : b.blocchi) {
                                   c.out << blocco.numero << '\n';
                                   for (const QString& pezzo : blocco.pezzi)
                                       c.out << "  " << pezzo << '\n';
                               }
                               return 0;
                           }});

const Registra
    elenco_pregeo({{"dapregeo", "elenco"},
                   "",
                   "elenco degli atti di Pregeo dal programma Ponticello, celle separate da |",
                   0,
                   [](Contesto& c) {
                       PreparaAmbiente(c.stato);
                       CreaAlberoCartelle(c.stato);
                       DaPregeo dp;
                       CaricaPregeo800(c.stato, dp);
                       for (const QStringList& atto : dp.Atti) c.out << atto.join(u'|') << '\n';
                       return Esito(c);
                   }});

const Registra libretto_pregeo(
    {{"dapregeo", "libretto"},
     "CHIAVE OUT",
     "esporta l'atto (anno a 2 cifre e protocollo) e scrive il libretto per coordinate in OUT",
     2,
     [](Contesto& c) {
         PreparaAmbiente(c.stato);
         CreaAlberoCartelle(c.stato);
         DaPregeo dp;
         MostraAtto(c.stato, dp, c.argomenti[0]);
         ImportaRighe8InLibretto(c.stato, dp);
         AggiornaLibrettoMisure(c.stato);
         c.stato.doc.PercorsoLibretto = PercorsoArgomento(c.argomenti[1]);
         ScriviLibrettoMisure(c.stato);
         return Esito(c);
     }});

const Registra comando(
    {{"comando"},
     "\"TESTO\"",
     "esegue il testo come riga di comando all'avvio (percorso|PAROLA|parametro)",
     1,
     [](Contesto& c) {
         PreparaAmbiente(c.stato);
         InstallaPregeo(c.stato);
         QString eseguita;
         c.stato.EseguiComando = [&](Stato&, const QString& parola, const QString& parametro) {
             const ParolaComando* w = TrovaParola(parola);
             eseguita = !w            ? QStringLiteral("nessuna azione")
                        : w->finestra ? QStringLiteral("apre una finestra: solo nel programma")
                                      : QStringLiteral("eseguita");
             c.out << "parametro: " << parametro << '\n';
         };
         const QString testo = c.argomenti.join(u' ');
         ComandoTag(c.stato, testo);
         c.out << "libretto: " << c.stato.doc.PercorsoLibretto << '\n';
         if (testo.contains(u'|')) {
             c.out << "parola: " << c.stato.UltimoRisultato << '\n';
             c.out << "esito: " << eseguita << '\n';
         }
         c.out << "righe: " << c.stato.doc.RigheLibretto.Conta() << '\n';
         return Esito(c);
     }});

} // namespace

} // namespace tavolet::cli
