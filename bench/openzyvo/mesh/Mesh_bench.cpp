#include "mesh/FaceTriangulation.h"
#include "mesh/Mesh.h"
#include "mesh/Topology.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <numbers>

namespace oz::mesh {
namespace {

// How the faces of `holedFaces` differ from one another.
enum class Likeness {
    Translated, // faces in one binade of the coordinates are exact translates, as repeated letters can be
    Scaled,     // each face a little smaller than the one before, so that no two are translates
    Renumbered, // scaled, and each face's outer loop starts at another of its corners
};

// A grid of letter-like faces: a 12-sided outer loop with two square holes, 20 points each, all
// vertices unshared as on a text cap mesh. 10,000 faces give 200,000 points.
Mesh holedFaces(int faceCount, Likeness likeness = Likeness::Translated) {
    Mesh mesh;
    const int columns = static_cast<int>(std::ceil(std::sqrt(faceCount)));
    for (int f = 0; f < faceCount; ++f) {
        const double cx = 3.0 * (f % columns);
        const double cy = 3.0 * (f / columns);
        const double scale = likeness == Likeness::Translated ? 1.0 : 1.0 - 1e-5 * f;
        const int first = likeness == Likeness::Renumbered ? f % 12 : 0;
        std::vector<Point3> points;
        for (int k = 0; k < 12; ++k) {
            const int i = (first + k) % 12;
            const double a = 2.0 * std::numbers::pi * i / 12.0;
            const double r = (i % 2 == 0 ? 1.2 : 1.0) * scale; // concave
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

void triangulateHoledFaces(benchmark::State& state, Likeness likeness) {
    const Mesh mesh = holedFaces(static_cast<int>(state.range(0)), likeness);
    TriangulationCounts counts;
    for (auto _ : state) {
        Triangulation t = triangulateFaces(mesh.faces(), mesh.points());
        benchmark::DoNotOptimize(t.triangles.data());
        counts = t.counts;
    }
    state.counters["points"] = mesh.vertexCount();
    state.counters["faces"] = mesh.faceCount();
    state.counters["planar"] = counts.planar;
    state.counters["similar"] = counts.similar;
    state.counters["memo"] = counts.memo;
    state.counters["glu"] = counts.tessellated;
}

// 10,000 faces, timed on the clock with the work of every thread counted.
void tenThousandFaces(benchmark::internal::Benchmark* b) {
    b->Arg(10000)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();
}

void BM_TriangulateFacesWithHoles(benchmark::State& state) {
    triangulateHoledFaces(state, Likeness::Translated);
}
BENCHMARK(BM_TriangulateFacesWithHoles)->Apply(tenThousandFaces);

// The same faces with no two alike: every face is checked, and the cut of the one before it is
// proven to fit it.
void BM_TriangulateDistinctFacesWithHoles(benchmark::State& state) {
    triangulateHoledFaces(state, Likeness::Scaled);
}
BENCHMARK(BM_TriangulateDistinctFacesWithHoles)->Apply(tenThousandFaces);

// Faces numbered each from another corner, so that the cut of one face alike rarely fits the
// next: nearly every face is checked, tried against an earlier cut and cut by ear clipping.
void BM_TriangulateRenumberedFacesWithHoles(benchmark::State& state) {
    triangulateHoledFaces(state, Likeness::Renumbered);
}
BENCHMARK(BM_TriangulateRenumberedFacesWithHoles)->Apply(tenThousandFaces);

// The walls of an extruded outline: rings of `ringPoints` points stacked `rings` high, each
// outline edge joined to the same edge of the next ring by a quad, as a solid of text has by the
// hundred thousand. The outline wavers in and out, so quads split along either diagonal.
Mesh walls(int ringPoints, int rings) {
    std::vector<Point3> points;
    for (int k = 0; k < rings; ++k) {
        for (int j = 0; j < ringPoints; ++j) {
            const double a = 2.0 * std::numbers::pi * j / ringPoints;
            const double r = 10.0 + 0.3 * std::sin(7.0 * a) + 0.01 * k;
            points.push_back({r * std::cos(a), r * std::sin(a), 0.05 * k});
        }
    }
    std::vector<int32_t> counts;
    std::vector<int32_t> connects;
    for (int k = 0; k + 1 < rings; ++k) {
        for (int j = 0; j < ringPoints; ++j) {
            const int next = (j + 1) % ringPoints;
            connects.insert(connects.end(), {k * ringPoints + j, k * ringPoints + next,
                                             (k + 1) * ringPoints + next, (k + 1) * ringPoints + j});
            counts.push_back(4);
        }
    }
    Mesh mesh;
    mesh.create(points, counts, connects);
    return mesh;
}

void BM_TriangulateWalls(benchmark::State& state) {
    const Mesh mesh = walls(1000, static_cast<int>(state.range(0)) / 1000 + 1);
    TriangulationCounts counts;
    for (auto _ : state) {
        Triangulation t = triangulateFaces(mesh.faces(), mesh.points());
        benchmark::DoNotOptimize(t.triangles.data());
        counts = t.counts;
    }
    state.counters["faces"] = mesh.faceCount();
    state.counters["simple"] = counts.simple;
}
BENCHMARK(BM_TriangulateWalls)
    ->Arg(400000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->MeasureProcessCPUTime();

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
