// A province's archives: a TAF of tens of thousands of fiducials read into the grid, and the
// report of measured distances of a libretto's fiducials against a .DDD of a million lines.
#include "BV_ElcoPfGriglia.h"
#include "fiduciali.h"
#include "generatore_taf.h"
#include "supporto.h"

#include <QApplication>
#include <QTableView>

#include <benchmark/benchmark.h>

using namespace tavolet;
using namespace tavolet::test;

static void BM_TafInGriglia(benchmark::State& st) {
    RadiceProva radice;
    std::mt19937 rng(1);
    radice.Scrivi("C:\\fiducial\\DATI\\A001.TAF",
                  AWindows1252(TafGenerata(int(st.range(0)), "A001", rng)));
    PiattaformaFinta p;
    Stato s(p);
    for (auto _ : st) {
        const QList<QStringList> griglia = GrigliaTaf(LeggiTafComune(s, "A001"));
        benchmark::DoNotOptimize(griglia.size());
    }
    st.SetItemsProcessed(st.iterations() * st.range(0));
}
BENCHMARK(BM_TafInGriglia)->Arg(30000)->Arg(60000)->Unit(benchmark::kMillisecond);

// The same into the grid's window, up to its first picture.
static void BM_TafNelloSchermo(benchmark::State& st) {
    RadiceProva radice;
    std::mt19937 rng(1);
    radice.Scrivi("C:\\fiducial\\DATI\\A001.TAF",
                  AWindows1252(TafGenerata(int(st.range(0)), "A001", rng)));
    PiattaformaFinta p;
    Stato s(p);
    for (auto _ : st) {
        BV_ElcoPfGriglia griglia(s, "PADOVA", "ABANO TERME", "A001", LeggiTafComune(s, "A001"));
        griglia.resize(1200, 700);
        benchmark::DoNotOptimize(griglia.grab().size());
    }
    st.SetItemsProcessed(st.iterations() * st.range(0));
}
BENCHMARK(BM_TafNelloSchermo)->Arg(30000)->Arg(60000)->Unit(benchmark::kMillisecond);

static void BM_MisurateDaLibretto(benchmark::State& st) {
    RadiceProva radice;
    radice.PregeoMinimo();
    std::mt19937 rng(2);
    radice.Scrivi("C:\\fiducial\\DATI\\A001.TAF", AWindows1252(TafGenerata(30000, "A001", rng)));
    radice.Scrivi("C:\\fiducial\\DATI\\PD2020.DDD",
                  AWindows1252(DddGenerato(int(st.range(0)), 3000, "A001", rng)));
    PiattaformaFinta p;
    Stato s(p);
    Inizializza(s);
    CaricaConfig(s);
    QStringList libretto = {"0|x|", "9|20|"};
    for (int i = 0; i < 50; ++i)
        libretto << "8|" + CodiceGenerato(i * 7, "A001") + "|1.000|2.000|01|X|";
    for (auto _ : st) {
        const QStringList r = CalcolaMisuratePF_DaLibretto(s, libretto);
        benchmark::DoNotOptimize(r.size());
    }
}
BENCHMARK(BM_MisurateDaLibretto)->Arg(1000000)->Unit(benchmark::kMillisecond);

static void BM_CoppieNellArchivio(benchmark::State& st) {
    std::mt19937 rng(3);
    const QByteArray byte = AWindows1252(DddGenerato(1000000, 3000, "A001", rng));
    QStringList nomi;
    for (int i = 0; i < 50; ++i) nomi << CodiceGenerato(i * 7, "A001");
    for (auto _ : st) benchmark::DoNotOptimize(CoppieNellArchivio(byte, nomi).righe.size());
    st.SetBytesProcessed(st.iterations() * byte.size());
}
BENCHMARK(BM_CoppieNellArchivio)->Unit(benchmark::kMillisecond);

// The fifty fiducials of a libretto looked up in a TAF of 30,000 lines, the last ones at its end.
static void BM_CinquantaPFNellaTaf(benchmark::State& st) {
    RadiceProva radice;
    std::mt19937 rng(2);
    radice.Scrivi("C:\\fiducial\\DATI\\A001.TAF", AWindows1252(TafGenerata(30000, "A001", rng)));
    PiattaformaFinta p;
    Stato s(p);
    QStringList codici;
    for (int i = 0; i < 50; ++i) codici << CodiceGenerato(i * 599, "A001");
    for (auto _ : st) benchmark::DoNotOptimize(TrovaPFNellaTAF(s, codici).size());
}
BENCHMARK(BM_CinquantaPFNellaTaf)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
