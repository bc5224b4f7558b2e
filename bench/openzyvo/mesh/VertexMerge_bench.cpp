#include "mesh/Mesh.h"
#include "mesh/VertexMerge.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <numbers>

namespace oz::mesh {
namespace {

// A solid of text in miniature: letter-like outlines (a wavy outer loop around two holes) on a
// grid, each extruded into a stack of rings. The front and back rings are bevelled (inset and
// closer together in depth), the rest are straight walls, so many vertices share nearly the same
// x and y at different depths, as on a real solid. Ring loops are joined by quads, the caps are
// the first and last outer rings, and their holes are put back afterwards.
struct Solid {
    std::vector<Point3> points;
    std::vector<int32_t> counts;
    std::vector<int32_t> connects;
    std::vector<int32_t> capFaces;
    std::vector<std::vector<Point3>> capHoles; // per cap face, its two holes' points
};

constexpr int kOuterPoints = 40;
constexpr int kHolePoints = 12;
constexpr int kRings = 16;
constexpr int kBevelRings = 4;

Point3 ringPoint(double cx, double cy, double radius, int j, int points, int ring) {
    const int fromEnd = std::min(ring, kRings - 1 - ring);
    const double inset = fromEnd < kBevelRings ? 0.002 * (kBevelRings - fromEnd) : 0.0;
    const double depth = fromEnd < kBevelRings ? 0.01 * fromEnd : 0.04 + 0.02 * (fromEnd - kBevelRings);
    const double z = ring <= kRings / 2 ? depth : 0.25 - depth;
    const double a = 2.0 * std::numbers::pi * j / points;
    const double r = radius * (1.0 + 0.1 * std::sin(5.0 * a)) - inset;
    return {cx + r * std::cos(a), cy + r * std::sin(a), z};
}

Solid solidOfLetters(int letters) {
    Solid s;
    const int columns = static_cast<int>(std::ceil(std::sqrt(letters)));
    const int perRing = kOuterPoints + 2 * kHolePoints;
    for (int g = 0; g < letters; ++g) {
        const double cx = 0.7 * (g % columns);
        const double cy = 1.2 * (g / columns);
        const auto base = static_cast<int32_t>(s.points.size());
        for (int ring = 0; ring < kRings; ++ring) {
            for (int j = 0; j < kOuterPoints; ++j)
                s.points.push_back(ringPoint(cx, cy, 0.3, j, kOuterPoints, ring));
            for (const double hx : {-0.1, 0.1}) {
                for (int j = 0; j < kHolePoints; ++j)
                    s.points.push_back(ringPoint(cx + hx, cy, 0.05, j, kHolePoints, ring));
            }
        }
        const auto loopWalls = [&](int first, int size) {
            for (int ring = 0; ring + 1 < kRings; ++ring) {
                for (int j = 0; j < size; ++j) {
                    const int32_t a = base + ring * perRing + first;
                    const int32_t b = a + perRing;
                    const int next = (j + 1) % size;
                    s.connects.insert(s.connects.end(), {a + j, a + next, b + next, b + j});
                    s.counts.push_back(4);
                }
            }
        };
        loopWalls(0, kOuterPoints);
        loopWalls(kOuterPoints, kHolePoints);
        loopWalls(kOuterPoints + kHolePoints, kHolePoints);
        for (const int ring : {0, kRings - 1}) {
            s.capFaces.push_back(static_cast<int32_t>(s.counts.size()));
            s.counts.push_back(kOuterPoints);
            std::vector<Point3> holes;
            for (int j = 0; j < kOuterPoints; ++j)
                s.connects.push_back(base + ring * perRing + j);
            for (int j = kOuterPoints; j < perRing; ++j)
                holes.push_back(s.points[static_cast<size_t>(base + ring * perRing + j)]);
            s.capHoles.push_back(std::move(holes));
        }
    }
    return s;
}

// How a solid's rebuild puts the holes of its caps back: every hole point lands on a vertex of the
// walls. The first call indexes the whole mesh, the rest look points up. The mesh is created
// outside the timing.
void BM_ReinsertSolidCapHoles(benchmark::State& state) {
    const Solid solid = solidOfLetters(static_cast<int>(state.range(0)));
    const std::vector<int32_t> holeCounts{kHolePoints, kHolePoints};
    for (auto _ : state) {
        state.PauseTiming();
        Mesh mesh;
        mesh.create(solid.points, solid.counts, solid.connects);
        state.ResumeTiming();
        for (size_t c = 0; c < solid.capFaces.size(); ++c)
            mesh.addHoles(solid.capFaces[c], solid.capHoles[c], holeCounts, true, 1e-10);
        benchmark::DoNotOptimize(mesh.faceVertexCount());
        state.PauseTiming();
        if (mesh.vertexCount() != static_cast<int32_t>(solid.points.size()))
            state.SkipWithError("a hole point did not merge");
        mesh = Mesh();
        state.ResumeTiming();
    }
    state.counters["points"] = static_cast<double>(solid.points.size());
    state.counters["calls"] = static_cast<double>(solid.capFaces.size());
}
BENCHMARK(BM_ReinsertSolidCapHoles)->Arg(400)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

// The two halves of the same work apart: indexing a solid's points, and looking up points that
// each land on one of them.
void BM_IndexSolidPoints(benchmark::State& state) {
    const Solid solid = solidOfLetters(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        VertexMergeIndex index(1e-10);
        index.extend(solid.points);
        benchmark::DoNotOptimize(index.find(solid.points[0], solid.points));
    }
    state.counters["points"] = static_cast<double>(solid.points.size());
}
BENCHMARK(BM_IndexSolidPoints)->Arg(400)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

void BM_FindSolidPoints(benchmark::State& state) {
    const Solid solid = solidOfLetters(static_cast<int>(state.range(0)));
    VertexMergeIndex index(1e-10);
    index.extend(solid.points);
    for (auto _ : state) {
        int64_t found = 0;
        for (const std::vector<Point3>& holes : solid.capHoles) {
            for (const Point3& p : holes)
                found += index.find(p, solid.points);
        }
        benchmark::DoNotOptimize(found);
    }
    state.counters["lookups"] = static_cast<double>(solid.capHoles.size() * 2 * kHolePoints);
}
BENCHMARK(BM_FindSolidPoints)->Arg(400)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace oz::mesh
