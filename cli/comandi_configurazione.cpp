// The head dialog without its window: its fields, and a confirmation with fields typed in.
#include "comandi.h"
#include "configurazione.h"

namespace tavolet::cli {

namespace {

// Loads IN as a drop does and opens the dialog's logic on it.
bool Apri(Contesto& c, FormConfigurazione& f) {
    PreparaAmbiente(c.stato);
    DecoZeroNove(c.stato);
    if (!CaricaComeTrascinamento(c.stato, PercorsoArgomento(c.argomenti[0]))) return false;
    f = ApriConfigurazione(c.stato);
    return true;
}

int Uso(Contesto& c, const QString& testo) {
    c.out.flush();
    QTextStream(stderr) << testo << '\n';
    return 2;
}

const Registra
    campi({{"configura", "campi"},
           "IN",
           "apre la configurazione sul libretto IN e stampa i 20 campi come indice=valore",
           1,
           [](Contesto& c) {
               FormConfigurazione f;
               if (!Apri(c, f)) return 1;
               for (int i = 0; i < kCampiConfigurazione; ++i)
                   c.out << i << '=' << f.Campi[i] << '\n';
               return 0;
           }});

const Registra conferma(
    {{"configura", "conferma"},
     "IN OUT [--campo I=VALORE]... [--check1 0|1] [--check2 0|1]",
     "scrive i campi come digitati, conferma la configurazione e scrive il libretto in OUT",
     2,
     [](Contesto& c) {
         // Options first, so that a wrong one stops the command before anything is read.
         QList<std::pair<int, QString>> valori;
         std::optional<bool> check1, check2;
         const QStringList& a = c.argomenti;
         for (qsizetype i = 2; i < a.size(); ++i) {
             if (i + 1 >= a.size()) return Uso(c, a[i] + QStringLiteral(" vuole un valore"));
             const QString valore = a[++i];
             if (a[i - 1] == u"--campo") {
                 const qsizetype uguale = valore.indexOf(u'=');
                 bool numero = false;
                 const int indice = valore.left(uguale).toInt(&numero);
                 if (uguale <= 0 || !numero || indice < 0 || indice >= kCampiConfigurazione)
                     return Uso(c, QStringLiteral("--campo vuole INDICE=VALORE, indice da 0 a 19"));
                 valori.append({indice, valore.mid(uguale + 1)});
             } else if (a[i - 1] == u"--check1" || a[i - 1] == u"--check2") {
                 if (valore != u"0" && valore != u"1")
                     return Uso(c, a[i - 1] + QStringLiteral(" vuole 0 o 1"));
                 (a[i - 1] == u"--check1" ? check1 : check2) = valore == u"1";
             } else {
                 return Uso(c, QStringLiteral("Opzione sconosciuta: ") + a[i - 1]);
             }
         }
         FormConfigurazione f;
         if (!Apri(c, f)) return 1;
         if (check1) f.Check1 = *check1;
         if (check2) f.Check2 = *check2;
         for (const auto& [indice, valore] : valori) {
             f.Campi[indice] = valore;
             EsciDalCampo(c.stato, f, indice);
         }
         c.stato.EsitoDialogo = 1;
         const bool chiusa = ConfermaConfigurazione0(c.stato, f);
         c.stato.doc.PercorsoLibretto = PercorsoArgomento(a[1]);
         ScriviLibrettoMisure(c.stato);
         if (!chiusa) c.out << "Configurazione non chiusa: la finestra resterebbe aperta\n";
         return 0;
     }});

} // namespace

} // namespace tavolet::cli
