#include "fonts/FontFolders.h"
#include "fonts/FontScanner.h"

#include <benchmark/benchmark.h>

namespace {

// A type node's first compute scans every installed font; it must stay under a
// second so that creating a text object does not stall the host.
void BM_ScanInstalledFonts(benchmark::State& state) {
    const std::vector<ZString> folders = type::fontFolders();
    std::size_t entries = 0;
    for (auto _ : state) {
        type::FontCatalogue catalogue;
        type::scanFontFolders(folders, catalogue);
        entries = catalogue.size();
        benchmark::DoNotOptimize(entries);
    }
    state.counters["entries"] = static_cast<double>(entries);
}
BENCHMARK(BM_ScanInstalledFonts)->Unit(benchmark::kMillisecond);

} // namespace
