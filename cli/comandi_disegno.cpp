// Commands on drawing lists (.LXC): the generated libretto and the measured distances.
#include "comandi.h"
#include "disegno.h"
#include "fiduciali.h"

#include <QFile>
#include <QFileInfo>

namespace tavolet::cli {

namespace {

const Registra libretto_disegno(
    {{"disegno", "libretto"},
     "IN.LXC OUT.TXT [--opzioni FILE]",
     "genera il libretto dal disegno IN con le opzioni di FILE (o quelle salvate)",
     2,
     [](Contesto& c) {
         PreparaAmbiente(c.stato);
         QTextStream err(stderr);
         const QString in = PercorsoArgomento(c.argomenti[0]);
         const QString out = PercorsoArgomento(c.argomenti[1]);
         OpzioniLibretto opzioni;
         const int i = int(c.argomenti.indexOf(QStringLiteral("--opzioni")));
         if (i >= 0) {
             if (i + 1 >= c.argomenti.size()) return 2;
             if (!ConTrappola(c.stato, QStringLiteral("CaricaCFG"), [&] {
                     LeggiOpzioni(LeggiTesto(PercorsoArgomento(c.argomenti[i + 1])), opzioni);
                 }))
                 return 1;
         } else {
             CaricaCFG(c.stato, opzioni);
         }
         // The libretto that stands beside the drawing is the old one: its head and rows.
         QString vecchio = UCase(NomeFileLxc(in));
         vecchio.replace(QStringLiteral(".LXC"), QStringLiteral(".TXT"));
         c.stato.doc.PercorsoLibretto = vecchio;
         if (EsisteFile(vecchio)) CaricaLibrettoMisure(c.stato);
         CaricaLibrettoInList1(c.stato);
         AggiornaLibrettoMisure(c.stato);
         const auto d = CaricaGrafica(c.stato, in);
         const QStringList linee = RiconosciLinee(d);
         if (linee.isEmpty()) {
             err << "Libretto da Disegno: Non è stata trovata nessuna Stazione nel Disegno!\n";
             return 1;
         }
         const QFileInfo info(out);
         c.stato.doc.PercorsoLibretto =
             info.path() + u'/' + info.completeBaseName() + QStringLiteral(".LXC");
         QStringList rapporto;
         const EsitoGenerazione esito =
             GeneraLibrettoMisureAutomatico(c.stato, d, linee, opzioni, rapporto);
         for (const QString& r : rapporto) err << r << '\n';
         if (!esito.scritto) return 1;
         // The routine writes its own upper-cased name; the file goes where it was asked.
         const QString scritto = PercorsoLocale(esito.percorso);
         if (scritto != QFileInfo(out).absoluteFilePath()) {
             QFile::remove(out);
             if (!QFile::rename(scritto, out)) return 1;
         }
         return 0;
     }});

const Registra misurate({{"misurate", "disegno"},
                         "FILE.LXC",
                         "distanze misurate fra i PF del disegno (Misurate.TXT)",
                         1,
                         [](Contesto& c) {
                             PreparaAmbiente(c.stato);
                             for (const QString& r : CalcolaMisuratePFDelDisegno(
                                      c.stato, PercorsoArgomento(c.argomenti[0])))
                                 c.out << r << '\n';
                             return 0;
                         }});

} // namespace

} // namespace tavolet::cli
