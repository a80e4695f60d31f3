#include "template/AreaHitTest.h"
#include "template/MvwReader.h"
#include "template/MvwWriter.h"
#include "template/TemplateFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace mervak;

namespace {

// ActionTexts of the kind teachers write: words with accents, named keys,
// page changes, sounds and pictures.
const QString kTexts[] = {
    QStringLiteral("casa{ENTER}"),
    QStringLiteral("{|Sona sons\\campana.WAV}gat"),
    QStringLiteral("{|Pagina 2}"),
    QStringLiteral("plaça de l'església{TAB}"),
    QStringLiteral("{|Enganxa dibuixos\\poma.bmp}poma{ENTER}"),
    QStringLiteral("^c{|Espera 2}^v"),
    QStringLiteral("{|Llegir Bon dia, com estàs?}"),
    QStringLiteral("{|SIM 5 {{|Sona be.WAV}} {{|Sona no.WAV}}}"),
};

Template largeTemplate(int areas) {
    Template t;
    t.FitxGraf = QStringLiteral("C:\\PLANTILLES\\lamina.bmp");
    t.descripcio = QStringLiteral("Plantilla de prova amb \"cometes\"");
    t.PageCount = static_cast<int16_t>(areas / 40 + 1);
    t.reserveAreas(areas);
    for (int i = 0; i < areas; ++i) {
        Area a;
        a.X0 = static_cast<int16_t>(i % 8 * 15);
        a.Y0 = static_cast<int16_t>(i / 8 % 5 * 24);
        a.X1 = static_cast<int16_t>(a.X0 + 14);
        a.Y1 = static_cast<int16_t>(a.Y0 + 23);
        a.Page = static_cast<int16_t>(i / 40 + 1);
        a.ActionText = kTexts[i % std::size(kTexts)];
        a.Flags = static_cast<int16_t>(i % 3 == 0 ? -1 : 0);
        t.AppendArea(a);
    }
    return t;
}

void setCounters(benchmark::State& state, qsizetype bytes) {
    state.SetComplexityN(state.range(0));
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * bytes);
}

void ReadMvw(benchmark::State& state) {
    const QByteArray bytes = writeMvw(largeTemplate(static_cast<int>(state.range(0))));
    for (auto _ : state) {
        Template t;
        if (readMvw(bytes, t))
            state.SkipWithError("did not read");
        benchmark::DoNotOptimize(t);
    }
    setCounters(state, bytes.size());
}

void WriteMvw(benchmark::State& state) {
    const Template t = largeTemplate(static_cast<int>(state.range(0)));
    qsizetype size = 0;
    for (auto _ : state) {
        const QByteArray bytes = writeMvw(t);
        size = bytes.size();
        benchmark::DoNotOptimize(bytes.constData());
    }
    setCounters(state, size);
}

// From the file on disk to the open Template.
void OpenFile(benchmark::State& state) {
    QTemporaryDir dir;
    const QString path = QDir(dir.path()).filePath(QStringLiteral("gran.mvw"));
    Template t = largeTemplate(static_cast<int>(state.range(0)));
    saveTemplate(t, path);
    for (auto _ : state) {
        Template opened;
        if (openTemplate(opened, path).error)
            state.SkipWithError("did not open");
        benchmark::DoNotOptimize(opened);
    }
    setCounters(state, QFileInfo(path).size());
}

// From the open Template to the file on disk, atomically and flushed to the disk.
void SaveFile(benchmark::State& state) {
    QTemporaryDir dir;
    const QString path = QDir(dir.path()).filePath(QStringLiteral("gran.mvw"));
    Template t = largeTemplate(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        if (saveTemplate(t, path).error)
            state.SkipWithError("did not save");
    }
    setCounters(state, QFileInfo(path).size());
}

void sizes(benchmark::internal::Benchmark* b) {
    for (int n : {1000, 4000, 8000, 16000, 32767})
        b->Arg(n);
    b->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);
}

// The worst case of the hit test: every Area on the current page and a point that
// misses them all, so the whole array is scanned.
void FindAreaMiss(benchmark::State& state) {
    Template t = largeTemplate(static_cast<int>(state.range(0)));
    for (int i = 1; i <= t.AreaCount(); ++i)
        t.area(static_cast<int16_t>(i)).Page = 1;
    for (auto _ : state)
        benchmark::DoNotOptimize(FindArea(t, 120, 120));
    state.SetComplexityN(state.range(0));
}

BENCHMARK(ReadMvw)->Apply(sizes);
BENCHMARK(FindAreaMiss)->Apply(sizes);
BENCHMARK(WriteMvw)->Apply(sizes);
BENCHMARK(OpenFile)->Apply(sizes);
BENCHMARK(SaveFile)->Apply(sizes);

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
