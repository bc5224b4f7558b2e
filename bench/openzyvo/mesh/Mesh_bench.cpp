#include "mesh/FaceTriangulation.h"
#include "mesh/Mesh.h"
#include "mesh/Topology.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <numbers>

namespace oz::mesh {
namespace {

// A grid of letter-like faces: a 12-sided outer loop with two square holes, 20 points each, all
// vertices unshared as on a text cap mesh. 10,000 faces give 200,000 points. Faces in one binade
// of the coordinates are exact translates of each other, as repeated letters can be; `distinct`
// scales each face a little differently, so that none is.
Mesh holedFaces(int faceCount, bool distinct = false) {
    Mesh mesh;
    const int columns = static_cast<int>(std::ceil(std::sqrt(faceCount)));
    for (int f = 0; f < faceCount; ++f) {
        const double cx = 3.0 * (f % columns);
        const double cy = 3.0 * (f / columns);
        std::vector<Point3> points;
        for (int i = 0; i < 12; ++i) {
            const double a = 2.0 * std::numbers::pi * i / 12.0;
            const double r = (i % 2 == 0 ? 1.2 : 1.0) * (distinct ? 1.0 - 1e-5 * f : 1.0); // concave
            points.push_back({cx + r * std::cos(a), cy + r * std::sin(a), 0.0});
        }
        for (const double hx : {-0.5, 0.1}) {
            points.push_back({cx + hx, cy - 0.2, 0.0});
            points.push_back({cx + hx, cy + 0.2, 0.0});
            points.push_back({cx + hx + 0.4, cy + 0.2, 0.0});
            points.push_back({cx + hx + 0.4, cy - 0.2, 0.0});
        }
        int32_t face = -1;
        mesh.addPolygon(points, std::vector<int32_t>{12, 4, 4}, false, 0.0, face);
    }
    return mesh;
}

void BM_TriangulateFacesWithHoles(benchmark::State& state) {
    const Mesh mesh = holedFaces(static_cast<int>(state.range(0)));
    TriangulationCounts counts;
    for (auto _ : state) {
        Triangulation t = triangulateFaces(mesh.faces(), mesh.points());
        benchmark::DoNotOptimize(t.triangles.data());
        counts = t.counts;
    }
    state.counters["points"] = mesh.vertexCount();
    state.counters["faces"] = mesh.faceCount();
    state.counters["memo"] = counts.memo;
    state.counters["glu"] = counts.tessellated;
}
BENCHMARK(BM_TriangulateFacesWithHoles)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MeasureProcessCPUTime();

// The same faces with no two alike: every face is checked and cut.
void BM_TriangulateDistinctFacesWithHoles(benchmark::State& state) {
    const Mesh mesh = holedFaces(static_cast<int>(state.range(0)), true);
    TriangulationCounts counts;
    for (auto _ : state) {
        Triangulation t = triangulateFaces(mesh.faces(), mesh.points());
        benchmark::DoNotOptimize(t.triangles.data());
        counts = t.counts;
    }
    state.counters["memo"] = counts.memo;
    state.counters["glu"] = counts.tessellated;
}
BENCHMARK(BM_TriangulateDistinctFacesWithHoles)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MeasureProcessCPUTime();

// How an extrusion rebuild puts holes back into its caps: the mesh is created without holes, then
// every cap (every other face here) gets its holes one call at a time, front to back.
void BM_ReinsertCapHoles(benchmark::State& state) {
    const Mesh source = holedFaces(static_cast<int>(state.range(0)));
    std::vector<int32_t> counts, connects;
    for (int32_t f = 0; f < source.faceCount(); ++f) {
        for (const int32_t face : {f, f}) {
            const auto outer = source.outerLoop(face);
            counts.push_back(static_cast<int32_t>(outer.size()));
            connects.insert(connects.end(), outer.begin(), outer.end());
        }
    }
    for (auto _ : state) {
        Mesh mesh;
        mesh.create(source.points(), counts, connects);
        for (int32_t f = 0; f < source.faceCount(); ++f) {
            const auto holes = source.faceVertices(f).subspan(source.outerLoop(f).size());
            std::vector<Point3> points;
            for (const int32_t v : holes)
                points.push_back(source.points()[v]);
            mesh.addHoles(2 * f, points, std::vector<int32_t>{4, 4}, true, 1e-10);
        }
        benchmark::DoNotOptimize(mesh.faceVertexCount());
    }
}
BENCHMARK(BM_ReinsertCapHoles)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_BuildTopology(benchmark::State& state) {
    const Mesh mesh = holedFaces(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        Topology t = buildTopology(mesh.faces(), mesh.vertexCount());
        benchmark::DoNotOptimize(t.vertexVertices.items.data());
    }
}
BENCHMARK(BM_BuildTopology)->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_ClosestIntersection(benchmark::State& state) {
    const Mesh mesh = holedFaces(static_cast<int>(state.range(0)));
    mesh.triangulation();
    int i = 0;
    for (auto _ : state) {
        RayHit hit;
        const double x = 3.0 * (i++ % 100);
        mesh.closestIntersection({{x + 0.9, 0.1, 10.0}, {0, 0, -1}}, 1e8, 1e-6, hit);
        benchmark::DoNotOptimize(hit);
    }
}
BENCHMARK(BM_ClosestIntersection)->Arg(10000)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace oz::mesh
