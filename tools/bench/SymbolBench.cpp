#include "sheet/SymbolLibrary.h"

#include <QCoreApplication>
#include <benchmark/benchmark.h>

using namespace mervak;

namespace {

// Searches as a teacher types them: a whole word, its first letters, one letter (the
// most matches to rank), a phrase, a word found nowhere; each in the picker's 60.
const char* const kSearches[] = {"gos", "ga", "a", "cara de gos", "zzzz", "perro"};

const SymbolLibrary& library(Language language) {
    static SymbolLibraries libraries(SymbolLibrary::installedFolder(), {});
    return libraries.library(language);
}

void Search(benchmark::State& state) {
    const QString words = QString::fromUtf8(kSearches[state.range(0)]);
    const Language language = words == u"perro" ? Language::Spanish : Language::Catalan;
    const SymbolLibrary& searched = library(language);
    state.SetLabel(kSearches[state.range(0)]);
    for (auto _ : state)
        benchmark::DoNotOptimize(searched.search(words, 60));
}

void ReadLibrary(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(
            SymbolLibrary(SymbolLibrary::installedFolder(), Language::Catalan));
}

} // namespace

BENCHMARK(Search)->DenseRange(0, std::size(kSearches) - 1)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadLibrary)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
