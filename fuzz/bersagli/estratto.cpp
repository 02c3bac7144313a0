// The extract reader and writer, and the join of two extracts against its plain reference.
#include "estratto.h"
#include "../bersaglio.h"
#include "riferimento_unione.h"
#include "unisci.h"

using namespace tavolet;
using namespace tavolet::fuzz;

TAVOLET_BERSAGLIO(estratto) {
    const auto [primo, secondo] = Dividi(Byte(dati, n));
    const QString testo = DaWindows1252(primo);
    Banco a;
    Estratto e = EsplodiTestoEstratto(a.s, testo);
    Estratto copia = e;
    if (const auto composto = ComponiEstratto(a.s, copia)) {
        // What is written reads again and writes the same text.
        Estratto riletto = EsplodiTestoEstratto(a.s, *composto);
        const auto ancora = ComponiEstratto(a.s, riletto);
        Verifica(ancora.has_value(), "l'estratto scritto non si riscrive");
    }
    Estratto altra = e;
    EliminaParticellaEstratto(a.s, altra, QStringLiteral("257"));
    DatiDaRigheEstratto(a.s, RigheDiTesto(testo));
    Verifica(
        TestoAutoallestito(RigheDiTesto(testo)).startsWith("0|AUTOALLESTITO|0|0|0|0|0|0|0|0|\r\n"),
        "autoallestito senza la sua riga 0");
    // Reading and writing speak only through the error report.
    for (const Evento& ev : a.p.eventi)
        Verifica(ev.titolo == "Rilevato errore", "messaggio inatteso: " + ev.titolo.toStdString());
    Scrivi("C:\\f\\E.EMP", primo);
    RiscriviEstratto(a.s, "C:\\f\\E.EMP");
    EliminaPuntiIsolatiEstratto(a.s, altra);
    if (secondo.isEmpty()) return;
    // The join: the fast one and the plain one give the same text or the same error.
    const QString b = DaWindows1252(secondo);
    QString veloce, lento;
    int nVeloce = 0, nLento = 0;
    try {
        veloce = UnisciTestiEstratti(testo, b);
    } catch (const Errore& x) {
        nVeloce = x.numero;
    }
    try {
        lento = test::UnisciRiferimento(testo, b);
    } catch (const Errore& x) {
        nLento = x.numero;
    }
    Verifica(nVeloce == nLento && veloce == lento, "l'unione differisce dal riferimento");
}
