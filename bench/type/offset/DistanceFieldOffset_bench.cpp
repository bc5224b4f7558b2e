#include "../SharedWorkload.h"
#include "layout/GlyphDecomposition.h"
#include "layout/GuiApplication.h"
#include "offset/DistanceFieldOffset.h"

#include <QFontDatabase>
#include <QRawFont>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <sstream>

namespace type {
namespace {

// Glyphs at 100 pixels to the em, curves flattened as in the shared workloads.
constexpr int kEm = 100;
constexpr int kCurveResolution = 4;

std::vector<FaceOutline> facesOf(const QRawFont& font, char c) {
    std::vector<FaceOutline> faces;
    const QPainterPath path = font.pathForGlyph(font.glyphIndexesForString(QString(QChar(c))).value(0));
    for (const Shape& shape : decomposeGlyphPath(path, kCurveResolution)) {
        FaceOutline& face = faces.emplace_back();
        face.points = shape.outer;
        face.loopSizes = {static_cast<int>(shape.outer.size())};
        for (const Contour& hole : shape.holes) {
            face.points.insert(face.points.end(), hole.begin(), hole.end());
            face.loopSizes.push_back(static_cast<int>(hole.size()));
        }
    }
    return faces;
}

// The P1000 text: the faces of each distinct glyph, and which glyph each character shows.
struct Workload {
    std::vector<std::vector<FaceOutline>> glyphs;
    std::vector<int> characters;
};

std::optional<Workload> p1000() {
    const std::optional<std::string> text = sharedWorkload("p1000.txt");
    if (!text || !ensureGuiApplication())
        return std::nullopt;
    const QRawFont font = QRawFont::fromFont(QFontDatabase().font("DejaVu Sans", "Book", kEm));
    Workload workload;
    std::map<char, int> index;
    for (const char c : *text) {
        if (c == ' ' || c == '\n' || c == '\r')
            continue;
        auto [it, added] = index.emplace(c, static_cast<int>(workload.glyphs.size()));
        if (added)
            workload.glyphs.push_back(facesOf(font, c));
        workload.characters.push_back(it->second);
    }
    return workload;
}

std::size_t faceCount(const Workload& workload) {
    std::size_t count = 0;
    for (const std::vector<FaceOutline>& faces : workload.glyphs)
        count += faces.size();
    return count;
}

// Building the distance data of every face of the distinct glyphs, as a text change
// with an empty cache does.
void BM_BuildDistinctGlyphsOfP1000(benchmark::State& state) {
    const std::optional<Workload> workload = p1000();
    if (!workload) {
        state.SkipWithError("p1000.txt or the fonts are missing");
        return;
    }
    const int gridSize = static_cast<int>(state.range(0));
    for (auto _ : state)
        for (const std::vector<FaceOutline>& faces : workload->glyphs)
            for (const FaceOutline& face : faces)
                benchmark::DoNotOptimize(DistanceFieldOffset(face, mitres(face), gridSize));
    state.counters["faces"] = static_cast<double>(faceCount(*workload));
    state.counters["per face"] =
        benchmark::Counter(static_cast<double>(faceCount(*workload)),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_BuildDistinctGlyphsOfP1000)->Arg(100)->Arg(25)->Unit(benchmark::kMillisecond);

// One offset of every face of every character, with the distance data built.
void BM_OffsetAllFacesOfP1000(benchmark::State& state) {
    const std::optional<Workload> workload = p1000();
    if (!workload) {
        state.SkipWithError("p1000.txt or the fonts are missing");
        return;
    }
    std::vector<std::vector<DistanceFieldOffset>> fields;
    for (const std::vector<FaceOutline>& faces : workload->glyphs) {
        std::vector<DistanceFieldOffset>& glyph = fields.emplace_back();
        for (const FaceOutline& face : faces)
            glyph.emplace_back(face, mitres(face), 100);
    }
    std::vector<Point2> ring;
    for (auto _ : state)
        for (const int character : workload->characters)
            for (const DistanceFieldOffset& field : fields[character]) {
                field.offset(0.02 * kEm, ring);
                benchmark::DoNotOptimize(ring.data());
            }
}
BENCHMARK(BM_OffsetAllFacesOfP1000)->Unit(benchmark::kMillisecond);

// One typical glyph's face.
void BM_BuildLetterE(benchmark::State& state) {
    if (!ensureGuiApplication()) {
        state.SkipWithError("no GUI application");
        return;
    }
    const QRawFont font = QRawFont::fromFont(QFontDatabase().font("DejaVu Sans", "Book", kEm));
    const FaceOutline face = facesOf(font, 'e').at(0);
    const int gridSize = static_cast<int>(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(DistanceFieldOffset(face, mitres(face), gridSize));
    state.counters["points"] = static_cast<double>(face.points.size());
}
BENCHMARK(BM_BuildLetterE)->Arg(100)->Arg(25)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace type
