// "Controllo Atto" from the command line: the report of a libretto, as text or JSON.
#include "comandi.h"
#include "controllo.h"

namespace tavolet::cli {

namespace {

int Controlla(Contesto& c) {
    QString libretto, estratto;
    bool json = false;
    const QStringList& a = c.argomenti;
    for (qsizetype i = 0; i < a.size(); ++i) {
        if (a[i] == u"--json") {
            json = true;
        } else if (a[i] == u"--estratto" && i + 1 < a.size()) {
            estratto = PercorsoArgomento(a[++i]);
        } else if (libretto.isEmpty() && !a[i].startsWith(QStringLiteral("--"))) {
            libretto = a[i];
        } else {
            QTextStream(stderr) << "Uso: tavolet-cli controlla LIBRETTO [--estratto X.EMP] "
                                   "[--json]\n";
            return 2;
        }
    }
    if (libretto.isEmpty()) {
        QTextStream(stderr) << "Uso: tavolet-cli controlla LIBRETTO [--estratto X.EMP] [--json]\n";
        return 2;
    }
    PreparaAmbiente(c.stato);
    DecoZeroNove(c.stato);
    if (!CaricaComeTrascinamento(c.stato, PercorsoArgomento(libretto))) return 1;
    const QList<Rilievo> rilievi = ControllaAtto(c.stato, {estratto});
    if (json)
        c.out << JsonRapporto(rilievi);
    else
        for (const Rilievo& r : rilievi)
            c.out << r.gravita << '|' << r.riga << '|' << r.codice << '|' << r.messaggio << '\n';
    return CiSonoErrori(rilievi) ? 1 : 0;
}

const Registra controlla({{"controlla"},
                          "LIBRETTO [--estratto X.EMP] [--json]",
                          "controlla l'atto: una riga gravità|riga|codice|messaggio per rilievo "
                          "(o un array JSON); esce con 1 se c'è almeno un Errore",
                          1,
                          Controlla});

} // namespace

} // namespace tavolet::cli
