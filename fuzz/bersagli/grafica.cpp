// The plot's loaders (an extract, a proposal, an elaboration, a CSV, PDF tag blocks) on any text:
// the tables stay sane, a redraw draws no more than the tables hold, and every exporter either
// writes or reports.
#include "grafica.h"
#include "../bersaglio.h"
#include "blocchi_tag.h"
#include "errore.h"

using namespace tavolet;
using namespace tavolet::fuzz;

namespace {

// Counts the strokes of a redraw on a surface of 200 by 200 millimetres.
class TelaContata : public Tela {
public:
    qsizetype tratti = 0;
    double LarghezzaMm() const override { return 200; }
    double AltezzaMm() const override { return 200; }
    void Pulisci() override { tratti = 0; }
    void Scala(double, double, double, double) override {}
    void Linea(double, double, double, double, int, int, int) override { ++tratti; }
    void Cerchio(double, double, double, int) override { ++tratti; }
    void Testo(double, double, const QString&, const QString&, double, double, int) override {
        ++tratti;
    }
};

} // namespace

TAVOLET_BERSAGLIO(grafica) {
    if (n < 1) return;
    const int modo = dati[0] % 5;
    const QByteArray byte = Byte(dati + 1, n - 1);
    const QString testo = DaWindows1252(byte);
    const QStringList righe = RigheDiTesto(testo);
    Banco a;
    VistaGrafica vista;
    vista.NomiNo = dati[0] & 8;
    vista.ToponimiNo = dati[0] & 16;
    vista.PFNo = dati[0] & 32;
    ModelloGrafica g(&vista);
    g.PropostaSiNo = dati[0] & 64;
    switch (modo) {
    case 0:
        CaricaRigheEstratto(a.s, g, righe);
        break;
    case 1:
        CaricaRigheProposta(a.s, g, righe);
        break;
    case 2:
        CaricaRigheElaborazione(a.s, g, righe);
        break;
    case 3:
        CaricaRigheCSV(a.s, g, righe);
        break;
    default:
        EsplodiBlocchiTag(a.s, g, LeggiBlocchiTagDaDati(byte));
        break;
    }
    // Points come from rows 8 (or CSV rows) and labels, lines from ring sides.
    Verifica(g.ContaPunti() <= 2 * righe.size() + 10, "più punti che righe");
    BV_ZoomTutto(g);
    TelaContata tela;
    BV_RidisegnaGrafica(g, tela);
    Verifica(tela.tratti <= qsizetype(g.ContaLinee()) + 3 * qsizetype(g.ContaPunti()),
             "il disegno traccia più di quanto il modello contiene");
    BV_ZoomPiu(g);
    BV_RidisegnaGrafica(g, tela);
    (void)TestoPuntiCoincidenti(g);
    MuoviMouse(g, 1, 1);
    try {
        (void)TestoDXF(g);
        (void)TestoCopiaInFile(g);
        (void)TestoStampa(g);
        (void)TestoHTML5(g);
    } catch (const Errore&) {
    }
}
