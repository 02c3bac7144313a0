// TAF and DDD: the fields keep their widths, and every pair found in the archive names two of
// the points asked for; the measured distances on that archive are a report or the error report.
#include "fiduciali.h"
#include "../bersaglio.h"
#include "misurate.h"

using namespace tavolet;
using namespace tavolet::fuzz;

TAVOLET_BERSAGLIO(fiduciali) {
    const auto [taf, ddd] = Dividi(Byte(dati, n));
    const QString testo = DaWindows1252(taf);
    const QList<RigaTaf> righe = LeggiTaf(testo);
    Verifica(righe.size() <= RigheDiTesto(testo).size(), "piu' righe TAF che righe di testo");
    for (const RigaTaf& r : righe) {
        Verifica(r.foglio.size() == 3 && r.allegato.size() == 1 && r.numero.size() == 4,
                 "campi TAF di larghezza sbagliata");
        Verifica(!r.rifPlan.contains(u'"'), "virgolette nel riferimento planimetrico");
        Verifica(CelleGriglia(r).size() == 10, "griglia TAF senza 10 celle");
    }
    for (const QString& riga : RigheDiTesto(testo)) CodiceComposto(riga);
    TestoColonne(IntestazioniGriglia(), GrigliaTaf(righe), kLarghezzeStampaTaf);

    for (const QString& r : RigheDiTesto(DaWindows1252(ddd)))
        Verifica(LeggiRigaDdd(r).codice1.size() <= 33, "codice DDD troppo lungo");
    const QStringList nomi = {"PF01/0100/A001", "PF02/0100/A001", "PF03/0100/A001", "PF"};
    const CoppieArchivio c = CoppieNellArchivio(ddd, nomi);
    for (auto it = c.coppie.begin(); it != c.coppie.end(); ++it) {
        const int i = int(it.key() >> 32), j = int(it.key() & 0xFFFFFFFFu);
        Verifica(i >= 0 && i < nomi.size() && j >= 0 && j < nomi.size(), "coppia fuori elenco");
        for (int riga : it.value())
            Verifica(riga >= 0 && riga < c.righe.size(), "coppia su una riga che non c'e'");
    }
    // The distances measured between fiducials, on that archive.
    Banco a;
    Scrivi("C:\\fiducial\\DATI\\A001.TAF", taf);
    Scrivi("C:\\fiducial\\DATI\\PD2020.DDD", ddd);
    QList<PuntoPF> punti = {{"PF01/0100/A001", 1, 1},
                            {"PF02/0100/A001", 1, 1},
                            {"PF03/0100/A001", 23102.31, -12120.01}};
    const QStringList r = CalcolaMisuratePF(a.s, punti);
    Verifica(!r.isEmpty() || a.s.ErroriMostrati > 0, "nessun rapporto e nessun errore");
}
