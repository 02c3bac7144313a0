// Into a GeoPackage: the real Rome sheet as a whole run of tavolet-cli, and 100 generated
// sheets of about 10,000 vertices each into one file.
#include "generatore_cxf.h"
#include "gis.h"

#include "piattaforma_finta.h"
#include "stato.h"
#include "testo.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <chrono>

using namespace tavolet;

namespace {

void FoglioDiRomaProcessoIntero(benchmark::State& s) {
    QTemporaryDir dir;
    const QString uscita = dir.filePath("roma.gpkg");
    for (auto _ : s) {
        const auto inizio = std::chrono::steady_clock::now();
        const int codice =
            QProcess::execute(QStringLiteral(TAVOLET_CLI),
                              {"--radice", dir.path(), "gis",
                               QStringLiteral(TAVOLET_DATI "/estratti/H501D076700.CTF"), uscita});
        s.SetIterationTime(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - inizio).count());
        if (codice != 0) s.SkipWithError("tavolet-cli gis failed");
    }
}

void CentoFogli(benchmark::State& s) {
    QTemporaryDir dir;
    QDir().mkpath(dir.filePath("fogli"));
    qint64 vertici = 0;
    for (unsigned k = 0; k < 100; ++k) {
        test::OpzioniCxf o;
        o.righe = o.colonne = 35;
        o.seme = k + 1;
        const test::FoglioCxf f = test::GeneraCxf(o);
        QFile file(dir.filePath(QStringLiteral("fogli/F%1.CXF").arg(k, 3, 10, QChar(u'0'))));
        file.open(QIODevice::WriteOnly);
        file.write(f.cxf.toLatin1());
        QStringList avvisi;
        for (const auto& p : FoglioGisDaCxf(f.cxf, {}, {}, avvisi).particelle)
            for (const auto& anello : p.anelli) vertici += qint64(anello.size());
    }
    PiattaformaFinta piattaforma;
    Stato stato(piattaforma);
    for (auto _ : s) {
        const int particelle =
            EsportaGis(stato, {dir.filePath("fogli")}, dir.filePath("c.gpkg"), {});
        if (particelle <= 0) s.SkipWithError("nothing written");
        s.counters["particelle"] = particelle;
    }
    s.counters["vertici_per_foglio"] = double(vertici) / 100;
}

} // namespace

BENCHMARK(FoglioDiRomaProcessoIntero)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond)
    ->Iterations(10);
BENCHMARK(CentoFogli)->Unit(benchmark::kSecond)->Iterations(1);
BENCHMARK_MAIN();
