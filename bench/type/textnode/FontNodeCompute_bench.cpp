#include "../Paragraph.h"
#include "../RegisterNode.h"
#include "../SharedWorkload.h"
#include "data/MeshAccess.h"
#include "graph/NodeTypeRegistry.h"
#include "mesh/FaceTriangulation.h"
#include "textnode/FontNode.h"
#include "textsource/HexText.h"

#include <OpenZyvo/ZFileIO.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZPlug.h>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>

namespace type {
namespace {

using bench::paragraph;

// A fresh scene with one type node in DejaVu Sans at curve resolution 4,
// evaluated once with an empty text: the font catalogue is read and the face
// loaded, as they are once in a node's life.
class TypeScene {
public:
    TypeScene() {
        registerNode<fontNode>();
        ZFileIO::newFile(true);
        m_node = ZFnDependencyNode().create(ZString(fontNode::kTypeName));
        plug(fontNode::currentFont).setValue("DejaVu Sans");
        plug(fontNode::currentStyle).setValue("Book");
        plug(fontNode::curveResolution).setValue(4);
        setText("");
        evaluate();
    }
    ~TypeScene() { ZFileIO::newFile(true); }

    ZPlug plug(const ZObject& attribute) const { return ZPlug(m_node, attribute); }
    void setText(const std::string& utf8) { plug(fontNode::textInput).setValue(encodeHexText(utf8)); }

    void evaluate() {
        ZObject mesh;
        if (!plug(fontNode::outputMesh).getValue(mesh) || mesh.isNull())
            std::abort();
        benchmark::DoNotOptimize(mesh);
    }

    // Evaluates the node and cuts its mesh into triangles, as drawing or exporting it does.
    oz::mesh::TriangulationCounts evaluateTriangles() {
        ZObject data;
        if (!plug(fontNode::outputMesh).getValue(data) || data.isNull())
            std::abort();
        const oz::mesh::Mesh* mesh = oz::readMesh(oz::meshTargetOf(data), nullptr);
        if (!mesh)
            std::abort();
        const auto triangulation = mesh->triangulation();
        benchmark::DoNotOptimize(triangulation->triangles.data());
        return triangulation->counts;
    }

private:
    ZObject m_node;
};

// A node's first evaluation of the text: every glyph is decomposed.
void evaluateFirstTime(benchmark::State& state, const std::string& text) {
    for (auto _ : state) {
        state.PauseTiming();
        {
            TypeScene scene;
            scene.setText(text);
            state.ResumeTiming();
            scene.evaluate();
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
    state.counters["characters"] = static_cast<double>(text.size());
}

void BM_ComputeDefaultText(benchmark::State& state) {
    evaluateFirstTime(state, decodeHexText("33 44 20 54 79 70 65"));
}
BENCHMARK(BM_ComputeDefaultText)->Unit(benchmark::kMillisecond);

void BM_ComputeParagraph(benchmark::State& state) {
    evaluateFirstTime(state, paragraph());
}
BENCHMARK(BM_ComputeParagraph)->Unit(benchmark::kMillisecond);

// Typing over one character of the paragraph with characters already in it:
// layout and mesh are rebuilt, no glyph is decomposed.
void BM_RecomputeParagraphAfterOneEdit(benchmark::State& state) {
    TypeScene scene;
    std::string text = paragraph();
    scene.setText(text);
    scene.evaluate();
    const char replacements[] = {'x', 'q'};
    std::size_t round = 0;
    for (auto _ : state) {
        state.PauseTiming();
        text[550] = replacements[round++ % 2];
        scene.setText(text);
        state.ResumeTiming();
        scene.evaluate();
    }
}
BENCHMARK(BM_RecomputeParagraphAfterOneEdit)->Unit(benchmark::kMillisecond);

// The same edit, each time with a letter the node has not drawn before
// (Latin, Greek and Cyrillic letters of the font): exactly one glyph is
// decomposed.
void BM_RecomputeParagraphAfterOneNewGlyph(benchmark::State& state) {
    TypeScene scene;
    const std::string text = paragraph();
    scene.setText(text);
    scene.evaluate();
    char32_t next = U'\u00C0';
    for (auto _ : state) {
        state.PauseTiming();
        if (next == U'\u0530')
            next = U'\u00C0';
        const QString letter = QString::fromUcs4(&next, 1);
        ++next;
        std::string edited = text;
        edited.replace(550, 1, letter.toStdString());
        scene.setText(edited);
        state.ResumeTiming();
        scene.evaluate();
    }
}
BENCHMARK(BM_RecomputeParagraphAfterOneNewGlyph)->Unit(benchmark::kMillisecond);

// From a text change to triangles: a node showing nothing gets `text` (every glyph decomposed),
// computes its flat mesh, and the mesh is cut into triangles.
void evaluateFlat(benchmark::State& state, const std::string& text) {
    oz::mesh::TriangulationCounts counts;
    for (auto _ : state) {
        state.PauseTiming();
        {
            TypeScene scene;
            state.ResumeTiming();
            scene.setText(text);
            counts = scene.evaluateTriangles();
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
    state.counters["characters"] = static_cast<double>(text.size());
    state.counters["memo"] = counts.memo;
    state.counters["similar"] = counts.similar;
    state.counters["glu"] = counts.tessellated;
}

void BM_T7Flat(benchmark::State& state) {
    evaluateFlat(state, "3D Type");
}
BENCHMARK(BM_T7Flat)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();

// A change of the short text on a node that has drawn it, its caches warm: one letter is typed over
// by another already in the text, and layout, mesh and cut are redone.
void BM_T7FlatAfterOneEdit(benchmark::State& state) {
    std::string text = "3D Type";
    TypeScene scene;
    scene.setText(text);
    scene.evaluateTriangles();
    const char replacements[] = {'y', 'e'};
    std::size_t round = 0;
    for (auto _ : state) {
        state.PauseTiming();
        text[6] = replacements[round++ % 2];
        state.ResumeTiming();
        scene.setText(text);
        scene.evaluateTriangles();
    }
}
BENCHMARK(BM_T7FlatAfterOneEdit)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();

void BM_P1000Flat(benchmark::State& state) {
    const auto text = sharedWorkload("p1000.txt");
    if (!text) {
        state.SkipWithError("p1000.txt not found: the shared workloads are not beside the source tree "
                            "(set ZYVO_BENCH_WORKLOADS to their folder)");
        return;
    }
    evaluateFlat(state, *text);
}
BENCHMARK(BM_P1000Flat)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();

// The same text typed over by one character on a node that has drawn it: layout, mesh and cut
// are redone, no glyph is decomposed.
void BM_P1000FlatAfterOneEdit(benchmark::State& state) {
    const auto workload = sharedWorkload("p1000.txt");
    if (!workload) {
        state.SkipWithError("p1000.txt not found: the shared workloads are not beside the source tree "
                            "(set ZYVO_BENCH_WORKLOADS to their folder)");
        return;
    }
    std::string text = *workload;
    TypeScene scene;
    scene.setText(text);
    scene.evaluateTriangles();
    const char replacements[] = {'x', 'q'};
    std::size_t round = 0;
    for (auto _ : state) {
        state.PauseTiming();
        text[550] = replacements[round++ % 2];
        state.ResumeTiming();
        scene.setText(text);
        scene.evaluateTriangles();
    }
}
BENCHMARK(BM_P1000FlatAfterOneEdit)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();

} // namespace
} // namespace type
