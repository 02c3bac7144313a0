// The act's check on every save: a libretto of 100,000 rows with an extract of 10,000 vertices.
#include "controllo.h"
#include "generatore_atto.h"
#include "libretto.h"
#include "supporto.h"

#include <benchmark/benchmark.h>

using namespace tavolet;
using namespace tavolet::test;

static void BM_ControllaAtto(benchmark::State& st) {
    RadiceProva radice;
    radice.PregeoMinimo();
    radice.Scrivi("C:\\pregeo\\estratti\\G224_0012.EMP", AWindows1252(EstrattoGenerato(10000)));
    PiattaformaFinta p;
    Stato s(p);
    Inizializza(s);
    CaricaConfig(s);
    CaricaComuni(s);
    p.adesso = QDateTime(QDate(2026, 1, 20), QTime(9, 0));
    for (const QString& r : LibrettoGenerato(int(st.range(0)), 1)) s.doc.RigheLibretto.Aggiungi(r);
    s.doc.NomeEstratto = "G224_0012.EMP";
    s.doc.CodiceFiscaleTecnico = "RSSMRA80A01G224W";
    for (auto _ : st) {
        const QList<Rilievo> r = ControllaAtto(s);
        if (CiSonoErrori(r)) st.SkipWithError(TestoRapporto(r).left(300).toStdString().c_str());
        benchmark::DoNotOptimize(r.size());
    }
    st.SetItemsProcessed(st.iterations() * st.range(0));
}
BENCHMARK(BM_ControllaAtto)->Arg(100000)->Unit(benchmark::kMillisecond);

// The rows alone, without the extract and the archives.
static void BM_ControllaRighe(benchmark::State& st) {
    const QStringList righe = LibrettoGenerato(int(st.range(0)), 1);
    for (auto _ : st) benchmark::DoNotOptimize(ControllaRighe(righe).size());
    st.SetItemsProcessed(st.iterations() * st.range(0));
}
BENCHMARK(BM_ControllaRighe)->Arg(100000)->Unit(benchmark::kMillisecond);
