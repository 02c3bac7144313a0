// The kept versions of a libretto, listed and restored from the command line.
#include "comandi.h"
#include "storico.h"

namespace tavolet::cli {

namespace {

QList<VersioneLibretto> Versioni(Contesto& c) {
    PreparaAmbiente(c.stato);
    return VersioniLibretto(c.stato, PercorsoWindows(PercorsoArgomento(c.argomenti[0])));
}

const Registra elenco_storico({{"storico", "elenco"},
                               "LIBRETTO",
                               "stampa le versioni conservate del LIBRETTO, una per riga, la più "
                               "recente per prima e numerate da 1",
                               1,
                               [](Contesto& c) {
                                   const QList<VersioneLibretto> versioni = Versioni(c);
                                   for (qsizetype i = 0; i < versioni.size(); ++i) {
                                       const VersioneLibretto& v = versioni[i];
                                       c.out << (i + 1) << '\t'
                                             << v.quando.toString(
                                                    QStringLiteral("dd/MM/yyyy HH:mm:ss"))
                                             << '\t' << v.righe << " righe\t" << v.byte << " byte\t"
                                             << v.percorso << '\n';
                                   }
                                   return 0;
                               }});

const Registra ripristina(
    {{"storico", "ripristina"},
     "LIBRETTO N OUT",
     "scrive in OUT la versione N del LIBRETTO (1 la più recente), byte per byte",
     3,
     [](Contesto& c) {
         const QList<VersioneLibretto> versioni = Versioni(c);
         bool ok = false;
         const int n = c.argomenti[1].toInt(&ok);
         if (!ok || n < 1 || n > versioni.size()) {
             QTextStream(stderr) << "Versione " << c.argomenti[1]
                                 << " inesistente: il libretto ne ha " << versioni.size() << '\n';
             return 2;
         }
         return ConTrappola(c.stato, QStringLiteral("RipristinaVersione"),
                            [&] {
                                CopiaFile(versioni[n - 1].percorso,
                                          PercorsoWindows(PercorsoArgomento(c.argomenti[2])));
                            })
                    ? 0
                    : 1;
     }});

} // namespace

} // namespace tavolet::cli
