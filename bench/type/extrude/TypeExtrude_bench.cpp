#include "../RegisterNode.h"
#include "../SharedWorkload.h"
#include "data/MeshAccess.h"
#include "extrude/TypeExtrude.h"
#include "graph/NodeTypeRegistry.h"
#include "mesh/FaceTriangulation.h"
#include "textnode/FontNode.h"
#include "textsource/HexText.h"

#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvo/ZFileIO.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZPlug.h>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <malloc.h>
#include <optional>
#include <sstream>
#include <string>

namespace type {
namespace {

// A type node in DejaVu Sans at 4 segments per curve, fontSize 1, feeding a typeExtrude node
// 0.25 deep with bevels 0.02 wide and deep in 3 divisions, front and back, in "Normals" mode.
class SolidScene {
public:
    explicit SolidScene(bool bevel) {
        registerNode<fontNode>();
        registerNode<TypeExtrude>();
        ZFileIO::newFile(true);
        m_text = ZFnDependencyNode().create(ZString(fontNode::kTypeName));
        m_extrude = ZFnDependencyNode().create(ZString(TypeExtrude::kTypeName));
        ZDGModifier modifier;
        modifier.connect(ZPlug(m_text, fontNode::outputMesh), extrude(TypeExtrude::inputMesh));
        modifier.connect(ZPlug(m_text, fontNode::vertsPerChar), extrude(TypeExtrude::vertsPerChar));
        if (!modifier.doIt())
            std::abort();
        ZPlug(m_text, fontNode::currentFont).setValue("DejaVu Sans");
        ZPlug(m_text, fontNode::currentStyle).setValue("Book");
        ZPlug(m_text, fontNode::curveResolution).setValue(4);
        ZPlug(m_text, fontNode::fontSize).setValue(1.0);
        extrude(TypeExtrude::extrudeDistance).setValue(0.25);
        if (bevel) {
            extrude(TypeExtrude::bevelStyle).setValue(2);
            extrude(TypeExtrude::enableFrontBevel).setValue(true);
            extrude(TypeExtrude::enableBackBevel).setValue(true);
            for (const ZObject* distance : {&TypeExtrude::bevelDistance, &TypeExtrude::bevelOffset,
                                            &TypeExtrude::backBevelDistance, &TypeExtrude::backBevelOffset})
                extrude(*distance).setValue(0.02);
            extrude(TypeExtrude::bevelDivisions).setValue(3);
            extrude(TypeExtrude::backBevelDivisions).setValue(3);
        }
    }
    ~SolidScene() { ZFileIO::newFile(true); }

    ZPlug extrude(const ZObject& attribute) const { return ZPlug(m_extrude, attribute); }
    void setText(const std::string& utf8) {
        ZPlug(m_text, fontNode::textInput).setValue(encodeHexText(utf8));
    }

    const oz::mesh::Mesh& solid() {
        ZObject data;
        if (!extrude(TypeExtrude::outputMesh).getValue(data) || data.isNull())
            std::abort();
        const oz::mesh::Mesh* mesh = oz::readMesh(oz::meshTargetOf(data), nullptr);
        if (!mesh)
            std::abort();
        return *mesh;
    }

    void flat() {
        ZObject data;
        if (!ZPlug(m_text, fontNode::outputMesh).getValue(data) || data.isNull())
            std::abort();
    }

    // Evaluates the solid and cuts it into triangles, as drawing or exporting it does.
    std::size_t triangles() {
        const auto triangulation = solid().triangulation();
        benchmark::DoNotOptimize(triangulation->triangles.data());
        m_cuts = triangulation->counts;
        return triangulation->triangles.size();
    }
    // How the faces of the last triangulation were cut: faces the GLU sweep takes are the slow ones.
    const oz::mesh::TriangulationCounts& cuts() const { return m_cuts; }

private:
    ZObject m_text;
    ZObject m_extrude;
    oz::mesh::TriangulationCounts m_cuts;
};

void report(benchmark::State& state, SolidScene& scene, std::size_t triangles) {
    state.counters["vertices"] = scene.solid().vertexCount();
    state.counters["triangles"] = static_cast<double>(triangles);
}

// The heap the solid takes per vertex of it: the output mesh with its colours, components and
// groups, and the node's caches, measured as a fresh node builds it from a flat text already built.
void reportBytesPerVertex(benchmark::State& state, const std::string& text) {
    SolidScene scene(true);
    scene.setText(text);
    scene.flat();
    const std::size_t before = mallinfo2().uordblks;
    const int vertices = scene.solid().vertexCount();
    const std::size_t after = mallinfo2().uordblks;
    state.counters["bytes/vertex"] = static_cast<double>(after - before) / vertices;
}

// A text change on nodes that have drawn the text before (glyphs decomposed, caches warm): one
// letter is typed over by another already in the text, and the flat mesh, the solid and its
// triangles are built anew.
void solidAfterTextChange(benchmark::State& state, std::string text, bool bevel) {
    SolidScene scene(bevel);
    scene.setText(text);
    scene.triangles();
    const std::size_t at = text.size() / 2;
    const char replacements[] = {'x', text[at]};
    std::size_t round = 0;
    std::size_t triangles = 0;
    for (auto _ : state) {
        text[at] = replacements[round++ % 2];
        scene.setText(text);
        triangles = scene.triangles();
    }
    report(state, scene, triangles);
    state.counters["memo"] = scene.cuts().memo;
    state.counters["similar"] = scene.cuts().similar;
    state.counters["tessellated"] = scene.cuts().tessellated;
}

void BM_T7Bevel(benchmark::State& state) {
    solidAfterTextChange(state, "3D Type", true);
}
BENCHMARK(BM_T7Bevel)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();

void BM_P1000Bevel(benchmark::State& state) {
    const auto text = sharedWorkload("p1000.txt");
    if (!text) {
        state.SkipWithError("p1000.txt not found: set ZYVO_BENCH_WORKLOADS to the shared workloads");
        return;
    }
    solidAfterTextChange(state, *text, true);
    reportBytesPerVertex(state, *text);
}
BENCHMARK(BM_P1000Bevel)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();

// The same text change with the bevel rings offset through each glyph face's distance field, in
// the one text change that builds a field for each new face.
void BM_P1000BevelDistanceField(benchmark::State& state) {
    const auto text = sharedWorkload("p1000.txt");
    if (!text) {
        state.SkipWithError("p1000.txt not found: set ZYVO_BENCH_WORKLOADS to the shared workloads");
        return;
    }
    std::string changed = *text;
    SolidScene scene(true);
    scene.extrude(TypeExtrude::mode).setValue(0);
    std::size_t triangles = 0;
    const std::size_t at = changed.size() / 2;
    const char replacements[] = {'x', changed[at]};
    std::size_t round = 0;
    for (auto _ : state) {
        changed[at] = replacements[round++ % 2];
        scene.setText(changed);
        triangles = scene.triangles();
    }
    report(state, scene, triangles);
}
BENCHMARK(BM_P1000BevelDistanceField)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();

void BM_P1000Extrude(benchmark::State& state) {
    const auto text = sharedWorkload("p1000.txt");
    if (!text) {
        state.SkipWithError("p1000.txt not found: set ZYVO_BENCH_WORKLOADS to the shared workloads");
        return;
    }
    solidAfterTextChange(state, *text, false);
}
BENCHMARK(BM_P1000Extrude)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();

// A shape value changes on the beveled paragraph: only the points of the solid move.
void BM_P1000BevelDistanceChange(benchmark::State& state) {
    const auto text = sharedWorkload("p1000.txt");
    if (!text) {
        state.SkipWithError("p1000.txt not found: set ZYVO_BENCH_WORKLOADS to the shared workloads");
        return;
    }
    SolidScene scene(true);
    scene.setText(*text);
    scene.solid();
    const double distances[] = {0.03, 0.02};
    std::size_t round = 0;
    for (auto _ : state) {
        scene.extrude(TypeExtrude::bevelDistance).setValue(distances[round++ % 2]);
        benchmark::DoNotOptimize(scene.solid().points().data());
    }
    report(state, scene, 0);
}
BENCHMARK(BM_P1000BevelDistanceChange)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();

} // namespace
} // namespace type
