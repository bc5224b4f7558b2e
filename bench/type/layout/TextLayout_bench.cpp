#include "../Paragraph.h"
#include "layout/TextLayoutPath.h"
#include "textsource/HexText.h"

#include <benchmark/benchmark.h>
#include <string>

namespace type {
namespace {

using bench::paragraph;

TypeSettings settingsFor(const std::string& text) {
    TypeSettings settings;
    settings.family = "DejaVu Sans";
    settings.style = "Book";
    settings.curveResolution = 4;
    settings.text = layoutTokens(encodeHexText(text));
    return settings;
}

void layOutCold(benchmark::State& state, const std::string& text) {
    const TypeSettings settings = settingsFor(text);
    for (auto _ : state) {
        GlyphOutlineCache cache;
        benchmark::DoNotOptimize(decomposeTextLayout(settings, cache));
    }
    state.counters["characters"] = static_cast<double>(text.size());
}

void BM_LayOutShortText(benchmark::State& state) {
    layOutCold(state, "3D Type");
}
BENCHMARK(BM_LayOutShortText)->Unit(benchmark::kMillisecond);

void BM_LayOutParagraph(benchmark::State& state) {
    layOutCold(state, paragraph());
}
BENCHMARK(BM_LayOutParagraph)->Unit(benchmark::kMillisecond);

// The paragraph laid out again after one character became a glyph it did not
// use yet: only that glyph is decomposed, the rest comes from the cache.
void BM_RelayOutParagraphAfterOneEdit(benchmark::State& state) {
    const std::string text = paragraph();
    std::string edited = text;
    edited[550] = '&';
    const TypeSettings settings = settingsFor(edited);
    GlyphOutlineCache warm;
    decomposeTextLayout(settingsFor(text), warm);
    for (auto _ : state) {
        state.PauseTiming();
        GlyphOutlineCache cache = warm;
        state.ResumeTiming();
        benchmark::DoNotOptimize(decomposeTextLayout(settings, cache));
    }
}
BENCHMARK(BM_RelayOutParagraphAfterOneEdit)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace type
