#include "../../../tests/type/geometry/InstalledGlyphs.h"
#include "../RegisterNode.h"
#include "data/MeshAccess.h"
#include "mesh/FaceTriangulation.h"
#include "textnode/FontNode.h"
#include "textsource/HexText.h"

#include <OpenZyvo/ZFileIO.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZPlug.h>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

namespace type {
namespace {

// The flat caps of every glyph of one style, as the type node makes them: one mesh whose faces are
// real letters, most of them no copy of another (dots and accents are), so most faces are checked
// and cut.
struct GlyphCaps {
    oz::mesh::FaceLoops faces;
    std::vector<oz::mesh::Point3> points;
};

const GlyphCaps& glyphCaps(const std::string& family, const std::string& style) {
    static std::map<std::string, GlyphCaps> made;
    const std::string key = family + " " + style;
    if (const auto found = made.find(key); found != made.end())
        return found->second;
    std::u32string characters;
    for (const auto& [listed, covered] : installedStyles(family.c_str())) {
        if (listed == style)
            characters = covered;
    }
    if (characters.empty())
        std::abort();
    registerNode<fontNode>();
    ZFileIO::newFile(true);
    const ZObject node = ZFnDependencyNode().create(ZString(fontNode::kTypeName));
    ZPlug(node, fontNode::currentFont).setValue(ZString(family));
    ZPlug(node, fontNode::currentStyle).setValue(ZString(style));
    ZPlug(node, fontNode::textInput).setValue(encodeHexText(utf8Lines(characters)));
    ZObject data;
    if (!ZPlug(node, fontNode::outputMesh).getValue(data) || data.isNull())
        std::abort();
    const oz::mesh::Mesh* mesh = oz::readMesh(oz::meshTargetOf(data), nullptr);
    if (!mesh)
        std::abort();
    GlyphCaps& caps = made[key];
    caps.faces = mesh->faces();
    caps.points.assign(mesh->points().begin(), mesh->points().end());
    ZFileIO::newFile(true);
    return caps;
}

// Cutting every cap of a font, reported per face: the cost of faces that are not copies.
void cutGlyphCaps(benchmark::State& state, const std::string& family, const std::string& style) {
    const GlyphCaps& caps = glyphCaps(family, style);
    oz::mesh::TriangulationCounts counts;
    for (auto _ : state) {
        const oz::mesh::Triangulation cut = oz::mesh::triangulateFaces(caps.faces, caps.points);
        benchmark::DoNotOptimize(cut.triangles.data());
        counts = cut.counts;
    }
    const auto faces = static_cast<double>(caps.faces.faceCount());
    state.counters["faces"] = faces;
    state.counters["points"] = static_cast<double>(caps.points.size());
    state.counters["face_time"] = benchmark::Counter(faces, benchmark::Counter::kIsIterationInvariantRate |
                                                                benchmark::Counter::kInvert);
    state.counters["planar"] = counts.planar;
    state.counters["memo"] = counts.memo;
    state.counters["similar"] = counts.similar;
    state.counters["glu"] = counts.tessellated;
}

void BM_CutGlyphCapsSans(benchmark::State& state) {
    cutGlyphCaps(state, "DejaVu Sans", "Book");
}
BENCHMARK(BM_CutGlyphCapsSans)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();

void BM_CutGlyphCapsSerif(benchmark::State& state) {
    cutGlyphCaps(state, "DejaVu Serif", "Book");
}
BENCHMARK(BM_CutGlyphCapsSerif)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();

} // namespace
} // namespace type
