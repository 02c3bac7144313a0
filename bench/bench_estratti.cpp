// Reading and writing extracts of 1,000 to 100,000 vertices, and zipping a 10 MB file.
#include "cxf.h"
#include "estratto.h"
#include "generatore.h"
#include "riferimento_unione.h"
#include "unisci.h"
#include "zip.h"

#include "file_testo.h"
#include "piattaforma_finta.h"
#include "stato.h"
#include "testo.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <utility>

using namespace tavolet;

namespace {

QString Testo(int vertici) {
    return test::GeneraEstratto({vertici, 11, false});
}

void LeggiEstratto(benchmark::State& s) {
    const QString testo = Testo(int(s.range(0)));
    PiattaformaFinta piattaforma;
    Stato stato(piattaforma);
    for (auto _ : s) {
        Estratto e = EsplodiTestoEstratto(stato, testo);
        benchmark::DoNotOptimize(e.SETTE.size());
    }
    s.SetBytesProcessed(int64_t(s.iterations()) * testo.size());
}

void ScriviEstratto(benchmark::State& s) {
    PiattaformaFinta piattaforma;
    Stato stato(piattaforma);
    const Estratto letto = EsplodiTestoEstratto(stato, Testo(int(s.range(0))));
    for (auto _ : s) {
        Estratto e = letto;
        std::optional<QString> testo = ComponiEstratto(stato, e);
        if (!testo) s.SkipWithError("the writer reported an error");
        benchmark::DoNotOptimize(testo);
    }
}

void ZipDieciMega(benchmark::State& s) {
    QTemporaryDir dir;
    const QString file = dir.filePath("ESTRATTO.EMP");
    QByteArray dati = Testo(60000).toLatin1();
    while (dati.size() < 10 * 1024 * 1024) dati += dati;
    dati.truncate(10 * 1024 * 1024);
    {
        QFile f(file);
        f.open(QIODevice::WriteOnly);
        f.write(dati);
    }
    for (auto _ : s) {
        ZipClass z;
        z.AddFile(file);
        if (!z.WriteZip(dir.filePath("ESTRATTO.ZIP"), true)) s.SkipWithError("WriteZip failed");
    }
    s.SetBytesProcessed(int64_t(s.iterations()) * dati.size());
}

QString FileGenerato(QTemporaryDir& dir, int vertici) {
    const QString file = dir.filePath("GRANDE.EMP");
    QFile f(file);
    f.open(QIODevice::WriteOnly);
    f.write(AWindows1252(Testo(vertici)));
    return file;
}

// Runs lavoro in each iteration against a plain copy of the same files timed in the same
// iterations: the counter volte_copia is the ratio of the two.
template <typename Lavoro>
void ControCopia(benchmark::State& s, const QStringList& file, Lavoro&& lavoro) {
    using Orologio = std::chrono::steady_clock;
    Orologio::duration tempo{}, copiatura{};
    qint64 byte = 0;
    for (const QString& f : file) byte += QFileInfo(f).size();
    for (auto _ : s) {
        const auto inizio = Orologio::now();
        lavoro();
        const auto mezzo = Orologio::now();
        s.PauseTiming();
        const auto inizioCopia = Orologio::now();
        for (const QString& f : file) {
            QFile::remove(f + ".COPIA");
            QFile::copy(f, f + ".COPIA");
        }
        copiatura += Orologio::now() - inizioCopia;
        s.ResumeTiming();
        tempo += mezzo - inizio;
    }
    s.counters["volte_copia"] =
        copiatura.count() > 0 ? double(tempo.count()) / double(copiatura.count()) : 0.0;
    s.SetBytesProcessed(int64_t(s.iterations()) * byte);
}

// What "tavolet-cli estratto riscrivi" does.
void RiscriviFile(benchmark::State& s) {
    QTemporaryDir dir;
    const QString file = FileGenerato(dir, int(s.range(0)));
    const QString uscita = dir.filePath("USCITA.EMP");
    PiattaformaFinta piattaforma;
    Stato stato(piattaforma);
    ControCopia(s, {file}, [&] {
        if (!RiscriviEstrattoIn(stato, file, uscita)) s.SkipWithError("the short way declined");
    });
}

// The same through the rows of text: the whole read, then the save.
void RiscriviFileLeggendo(benchmark::State& s) {
    QTemporaryDir dir;
    const QString file = FileGenerato(dir, int(s.range(0)));
    PiattaformaFinta piattaforma;
    Stato stato(piattaforma);
    for (auto _ : s) {
        Estratto e = EsplodiEstratto(stato, file);
        if (!SalvaEstratto1(stato, e)) s.SkipWithError("the writer reported an error");
    }
    s.SetBytesProcessed(int64_t(s.iterations()) * QFileInfo(file).size());
}

void CopiaFile(benchmark::State& s) {
    QTemporaryDir dir;
    const QString file = FileGenerato(dir, int(s.range(0)));
    for (auto _ : s) {
        QFile::remove(dir.filePath("COPIA.EMP"));
        QFile::copy(file, dir.filePath("COPIA.EMP"));
    }
    s.SetBytesProcessed(int64_t(s.iterations()) * QFileInfo(file).size());
}

void CxfFoglioDiRoma(benchmark::State& s) {
    QFile f(QStringLiteral(TAVOLET_DATI "/estratti/H501D076700.CTF"));
    if (!f.open(QIODevice::ReadOnly)) {
        s.SkipWithError("the Rome sheet is missing");
        return;
    }
    const QString cxf = DaWindows1252(f.readAll());
    PiattaformaFinta piattaforma;
    Stato stato(piattaforma);
    for (auto _ : s) benchmark::DoNotOptimize(ComponiEmpDaCxf(stato, cxf, {}).emp.size());
}

// Two generated extracts joined file to file, as "tavolet-cli estratto unisci" does. Second
// argument 1: two independent extracts of that many vertices; 0: a pair made to overlap.
void UnisciFile(benchmark::State& s) {
    QTemporaryDir dir;
    const QString a = dir.filePath("A.EMP"), b = dir.filePath("B.EMP");
    const int vertici = int(s.range(0));
    const test::CoppiaEstratti c =
        s.range(1) ? test::CoppiaEstratti{test::GeneraEstratto({vertici, 11, false}),
                                          test::GeneraEstratto({vertici, 12, false})}
                   : test::GeneraCoppia(3, vertici);
    for (const auto& [file, testo] : {std::pair(a, c.base), std::pair(b, c.aggiunto)}) {
        QFile f(file);
        f.open(QIODevice::WriteOnly);
        f.write(AWindows1252(testo));
    }
    ControCopia(s, {a, b}, [&] {
        ScriviByte(dir.filePath("U.EMP"), UnisciEstratti(LeggiByte(a), LeggiByte(b)));
    });
}

} // namespace

BENCHMARK(RiscriviFile)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(RiscriviFileLeggendo)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(CopiaFile)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(CxfFoglioDiRoma)->Unit(benchmark::kMillisecond);
BENCHMARK(UnisciFile)->Args({50000, 1})->Args({50000, 0})->Unit(benchmark::kMillisecond);
BENCHMARK(LeggiEstratto)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(ScriviEstratto)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(ZipDieciMega)->Unit(benchmark::kMillisecond);

// "bench_estratti --scrivi FILE [VERTICI [SEME]]" only writes the generated extract (100,000
// vertices and seed 11 unless told), for timing tavolet-cli against cp on it; anything else runs
// the benchmarks.
int main(int argc, char** argv) {
    if (argc >= 3 && std::string_view(argv[1]) == "--scrivi") {
        const int vertici = argc >= 4 ? std::atoi(argv[3]) : 100000;
        const unsigned seme = argc >= 5 ? unsigned(std::atoi(argv[4])) : 11;
        QFile f(QString::fromLocal8Bit(argv[2]));
        if (vertici <= 0 || !f.open(QIODevice::WriteOnly) ||
            f.write(AWindows1252(test::GeneraEstratto({vertici, seme, false}))) < 0) {
            std::fprintf(stderr, "non scritto: %s\n", argv[2]);
            return 1;
        }
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
