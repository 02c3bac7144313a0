// The plot on generated sheets: the first picture (rows to records, fit, paint) and a redraw
// after one zoom step, into a 1280x800 image, at ten and a hundred thousand vertices.
#include "TelaImmagine.h"
#include "file_testo.h"
#include "generatore.h"
#include "grafica.h"
#include "piattaforma_finta.h"
#include "stato.h"

#include <QGuiApplication>
#include <QImage>

#include <memory>

#include <benchmark/benchmark.h>

using namespace tavolet;

namespace {

const QString& Estratto(int vertici) {
    static QMap<int, QString> cache;
    if (!cache.contains(vertici)) {
        test::OpzioniEstratto o;
        o.vertici = vertici;
        cache.insert(vertici, test::GeneraEstratto(o));
    }
    return cache[vertici];
}

// As the window paints: thinned where names and markers would cover each other, unless
// "Tutti i nomi" is ticked (the second argument of a benchmark 0).
void Dipingi(ModelloGrafica& g, QImage& img, CacheGlifi* glifi = nullptr, bool dirada = true) {
    TelaImmagine tela(img, 96, glifi);
    OpzioniDisegno opzioni;
    opzioni.dirada = dirada;
    BV_RidisegnaGrafica(g, tela, opzioni);
}

void BM_PrimaImmagine(benchmark::State& stato) {
    const QString& testo = Estratto(int(stato.range(0)));
    PiattaformaFinta piattaforma;
    Stato s(piattaforma);
    QImage img(1280, 800, QImage::Format_RGB32);
    qsizetype punti = 0;
    for (auto _ : stato) {
        auto vista = std::make_unique<VistaGrafica>();
        auto g = std::make_unique<ModelloGrafica>(vista.get());
        CaricaRigheEstratto(s, *g, RigheDiTesto(testo));
        Dipingi(*g, img, nullptr, stato.range(1) != 0);
        punti = g->ContaPunti();
        benchmark::DoNotOptimize(img.constBits());
        // Letting the tables go is not part of the picture.
        stato.PauseTiming();
        g.reset();
        vista.reset();
        stato.ResumeTiming();
    }
    stato.counters["punti"] = double(punti);
}

// The loading alone: rows to records and the fit, without painting.
void BM_Caricamento(benchmark::State& stato) {
    const QString& testo = Estratto(int(stato.range(0)));
    PiattaformaFinta piattaforma;
    Stato s(piattaforma);
    for (auto _ : stato) {
        auto vista = std::make_unique<VistaGrafica>();
        auto g = std::make_unique<ModelloGrafica>(vista.get());
        CaricaRigheEstratto(s, *g, RigheDiTesto(testo));
        benchmark::DoNotOptimize(g->Punti.constData());
        stato.PauseTiming();
        g.reset();
        vista.reset();
        stato.ResumeTiming();
    }
}

// Redraws after zoom steps in and out in turn, from the whole sheet zoomed in by passiIniziali
// steps: the view stays about where it began.
void Ridisegni(benchmark::State& stato, int passiIniziali) {
    PiattaformaFinta piattaforma;
    Stato s(piattaforma);
    VistaGrafica vista;
    ModelloGrafica g(&vista);
    CaricaRigheEstratto(s, g, RigheDiTesto(Estratto(int(stato.range(0)))));
    for (int i = 0; i < passiIniziali; ++i) BV_ZoomPiu(g);
    QImage img(1280, 800, QImage::Format_RGB32);
    CacheGlifi glifi;
    const bool dirada = stato.range(1) != 0;
    Dipingi(g, img, &glifi, dirada);
    int passo = 0;
    for (auto _ : stato) {
        if (passo++ % 2)
            BV_ZoomMeno(g);
        else
            BV_ZoomPiu(g);
        Dipingi(g, img, &glifi, dirada);
        benchmark::DoNotOptimize(img.constBits());
    }
}

// Around the whole sheet.
void BM_RidisegnoDopoZoom(benchmark::State& stato) {
    Ridisegni(stato, 0);
}

// Where the surveyor works: twenty steps in, an eighth of the sheet's height on the canvas.
void BM_RidisegnoVistaDiLavoro(benchmark::State& stato) {
    Ridisegni(stato, 20);
}

} // namespace

#define TAVOLET_MISURE Args({10000, 1})->Args({100000, 1})->Args({100000, 0})
BENCHMARK(BM_RidisegnoVistaDiLavoro)->TAVOLET_MISURE->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PrimaImmagine)->TAVOLET_MISURE->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Caricamento)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RidisegnoDopoZoom)->TAVOLET_MISURE->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv); // fonts need it
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
