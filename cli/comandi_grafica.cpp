// Commands on the plot: a file loaded by its kind as the screens load it, then an exporter or a
// picture drawn offscreen through the same painter as the window.
#include "comandi.h"
#include "grafica.h"
#include "modulo_disegno.h"

namespace tavolet::cli {

namespace {

struct OpzioniGrafica {
    QStringList posizionali;
    qint16 nomiNo = 0, toponimiNo = 0, pfNo = 0, proposta = 0;
    int larghezza = 1280, altezza = 800;
    bool valide = true;
    bool tuttiNomi = false;
};

OpzioniGrafica LeggiOpzioni(const QStringList& argomenti) {
    OpzioniGrafica o;
    for (int i = 0; i < argomenti.size(); ++i) {
        const QString& a = argomenti[i];
        if (a == u"--nomi-no")
            o.nomiNo = 1;
        else if (a == u"--toponimi-no")
            o.toponimiNo = 1;
        else if (a == u"--pf-no")
            o.pfNo = 1;
        else if (a == u"--proposta")
            o.proposta = 1;
        else if (a == u"--tutti-i-nomi")
            o.tuttiNomi = true;
        else if ((a == u"--larghezza" || a == u"--altezza") && i + 1 < argomenti.size()) {
            bool ok = false;
            const int v = argomenti[++i].toInt(&ok);
            if (!ok || v < 1 || v > 20000) o.valide = false;
            (a == u"--larghezza" ? o.larghezza : o.altezza) = v;
        } else if (a.startsWith(u"--"))
            o.valide = false;
        else
            o.posizionali << a;
    }
    return o;
}

// Loads IN with the switches; the exit status when that fails, else -1.
int Carica(Contesto& c, const OpzioniGrafica& o, ModelloGrafica& g) {
    if (!o.valide || o.posizionali.size() != 2) {
        c.out.flush();
        return 2;
    }
    g.Vista->NomiNo = o.nomiNo;
    g.Vista->ToponimiNo = o.toponimiNo;
    g.Vista->PFNo = o.pfNo;
    g.PropostaSiNo = o.proposta;
    const QString in = PercorsoArgomento(o.posizionali[0]);
    if (!CaricaGraficaDaFile(c.stato, g, in)) {
        c.piattaforma.Messaggio(QStringLiteral("File non trovato: ") + in,
                                QStringLiteral("Grafica"), Icona::Critico);
        return 1;
    }
    return -1;
}

const QString kUso = QStringLiteral("IN OUT [--nomi-no] [--toponimi-no] [--pf-no] [--proposta]");

Comando Esportatore(const char* parola, const char* descrizione,
                    bool (*esporta)(Stato&, const ModelloGrafica&, const QString&)) {
    return {{"grafica", QString::fromLatin1(parola)},
            kUso,
            QString::fromUtf8(descrizione),
            2,
            [esporta](Contesto& c) {
                PreparaAmbiente(c.stato);
                const OpzioniGrafica o = LeggiOpzioni(c.argomenti);
                VistaGrafica vista;
                ModelloGrafica g(&vista);
                if (const int esito = Carica(c, o, g); esito >= 0) return esito;
                return esporta(c.stato, g, PercorsoArgomento(o.posizionali[1])) ? 0 : 1;
            }};
}

const Registra dxf_grafica(Esportatore("dxf",
                                       "disegna IN (.EMP, .sur, libretto, .CSV, PDF) in un DXF",
                                       [](Stato& s, const ModelloGrafica& g, const QString& out) {
                                           return BV_SalvaDXF(s, g, out);
                                       }));
const Registra html(Esportatore("html", "disegna IN in una pagina HTML con un canvas",
                                [](Stato& s, const ModelloGrafica& g, const QString& out) {
                                    return GeneraHTML5_CANVAS(s, g, out, false);
                                }));
const Registra stampa(Esportatore("stampa", "scrive il file di stampa di IN per print.exe",
                                  [](Stato& s, const ModelloGrafica& g, const QString& out) {
                                      return GeneraStampa(s, g, out);
                                  }));
const Registra copiainfile(Esportatore("copiainfile",
                                       "scrive il file di trasferimento di IN per il CAD",
                                       [](Stato& s, const ModelloGrafica& g, const QString& out) {
                                           return BV_CopiaInFile(s, g, out);
                                       }));

const Registra png({{"grafica", "png"},
                    kUso + QStringLiteral(" [--larghezza W] [--altezza H] [--tutti-i-nomi]"),
                    "disegna IN in un'immagine PNG (1280x800 se non detto; i nomi che si "
                    "coprirebbero restano fuori, salvo --tutti-i-nomi)",
                    2,
                    [](Contesto& c) {
                        if (!Disegno().Caricato()) {
                            c.piattaforma.Messaggio(QStringLiteral("Disegno non disponibile"),
                                                    QStringLiteral("Grafica"), Icona::Critico);
                            return 1;
                        }
                        PreparaAmbiente(c.stato);
                        const OpzioniGrafica o = LeggiOpzioni(c.argomenti);
                        VistaGrafica vista;
                        // The loader fits the drawing to the picture's shape.
                        if (o.altezza > 0) vista.Rapporto = double(o.larghezza) / o.altezza;
                        ModelloGrafica g(&vista);
                        if (const int esito = Carica(c, o, g); esito >= 0) return esito;
                        const QString out = PercorsoArgomento(o.posizionali[1]);
                        const QString locale = PercorsoLocale(out);
                        if (Disegno().png(&g, o.larghezza, o.altezza, &locale, !o.tuttiNomi) != 0) {
                            c.piattaforma.Messaggio(
                                QStringLiteral("Impossibile scrivere il file ") + out,
                                QStringLiteral("Grafica"), Icona::Critico);
                            return 1;
                        }
                        return 0;
                    }});

} // namespace

} // namespace tavolet::cli
