// Reading and writing extracts of 1,000 to 100,000 vertices, and zipping a 10 MB file.
#include "estratto.h"
#include "generatore.h"
#include "zip.h"

#include "piattaforma_finta.h"
#include "stato.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

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

} // namespace

BENCHMARK(LeggiEstratto)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(ScriviEstratto)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(ZipDieciMega)->Unit(benchmark::kMillisecond);
