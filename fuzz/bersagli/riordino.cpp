// The regrouping of the libretto on any text: it never invents a row (station and GPS names may
// lose their blanks), and under Gorizia's sigla a short censuary row is a report that leaves the
// document as it was.
#include "riordino.h"
#include "../bersaglio.h"

using namespace tavolet;
using namespace tavolet::fuzz;

TAVOLET_BERSAGLIO(riordino) {
    if (n < 1) return;
    Banco a;
    Stato& s = a.s;
    const bool gorizia = dati[0] & 1;
    s.testata.SiglaProvinciaLibretto = gorizia ? "GO" : "PD";
    s.doc.TestoLibretto = Testo(dati + 1, n - 1);
    const QStringList pezzi = Split(s.doc.TestoLibretto, CRLF);
    const GruppiLibretto gruppi = EsplodiLibretto(s);
    Verifica(gruppi.completo, "gruppi incompleti");
    bool corta = false;
    for (const QString& r : gruppi.GruppoCensuario)
        if (Split(r, "|").size() < 13) corta = true;
    const QString prima = s.doc.TestoLibretto;
    const int errori = s.ErroriMostrati;
    const bool riuscito = RicomponiLibretto(s, gruppi);
    Verifica(riuscito == !(gorizia && corta), "esito inatteso del riordino");
    Verifica(s.ErroriMostrati - errori == (riuscito ? 0 : 1), "segnalazioni inattese");
    if (!riuscito) {
        Verifica(s.doc.TestoLibretto == prima, "il riordino rifiutato ha cambiato il libretto");
        return;
    }
    if (!(gorizia && !gruppi.GruppoCensuario.isEmpty())) { // Gorizia rewrites its rows on purpose
        QStringList uscita = Split(s.doc.TestoLibretto, CRLF);
        Verifica(uscita.takeLast().isEmpty(), "il libretto non finisce con CRLF");
        for (const QString& r : std::as_const(uscita))
            Verifica(pezzi.contains(r) || gruppi.GruppoStazioni.contains(r) ||
                         gruppi.GruppoGPS.contains(r),
                     "riga inventata: " + r.toStdString());
    }
    subRiordinoRighe(s);
    Verifica(s.doc.RigheLibretto.Conta() >= 2, "il libretto ha perso le righe 0 e 9");
}
