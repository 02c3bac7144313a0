// Commands of printing: a template filled with the lines of a report, the lines to a PDF file.
#include "comandi.h"
#include "stampa.h"

namespace tavolet::cli {

namespace {

QStringList RigheDi(Contesto& c, const QString& percorso, bool* ok) {
    QStringList righe;
    *ok = ConTrappola(c.stato, QStringLiteral("LeggiRighe"),
                      [&] { righe = LeggiRighe(PercorsoArgomento(percorso)); });
    return righe;
}

const Registra
    modello({{"stampa", "modello"},
             "MODELLO.RTF LIBRETTO [RIGHE.TXT] OUT",
             "compila il modello con la testata del libretto e le righe (come il comando Modello)",
             3,
             [](Contesto& c) {
                 PreparaAmbiente(c.stato);
                 const QStringList& a = c.argomenti;
                 const QString out = PercorsoArgomento(a.last());
                 QStringList righe;
                 if (a.size() >= 4) {
                     bool ok = false;
                     righe = RigheDi(c, a[2], &ok);
                     if (!ok) return 1;
                 }
                 if (!CaricaComeTrascinamento(c.stato, PercorsoArgomento(a[1]))) return 1;
                 CaricaLibrettoInList1(c.stato);
                 QByteArray compilato;
                 const bool ok = ConTrappola(c.stato, QStringLiteral(" Buttonplus1_Click"), [&] {
                     DecoZeroNove(c.stato);
                     compilato = RiempiModello(c.stato, LeggiByte(PercorsoArgomento(a[0])), righe);
                     ScriviByte(out, compilato);
                 });
                 return ok ? 0 : 1;
             }});

const Registra
    pdf({{"stampa", "pdf"},
         "RIGHE.TXT OUT.PDF [--orizzontale]",
         "stampa le righe in un file PDF (Courier, A4), come il comando Stampa",
         2,
         [](Contesto& c) {
             PreparaAmbiente(c.stato);
             QStringList a = c.argomenti;
             const bool orizzontale = a.removeAll(QStringLiteral("--orizzontale")) > 0;
             if (a.size() < 2) return 2;
             bool ok = false;
             const QStringList righe = RigheDi(c, a[0], &ok);
             if (!ok) return 1;
             const Carattere carattere = LeggiCarattereStampa(c.stato).value_or(Carattere());
             return ConTrappola(c.stato, QStringLiteral("StampaPdf"),
                                [&] {
                                    ScriviByte(PercorsoArgomento(a[1]),
                                               PdfDaRighe(righe, carattere, orizzontale));
                                })
                        ? 0
                        : 1;
         }});

} // namespace

} // namespace tavolet::cli
