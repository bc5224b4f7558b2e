#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZFnMeshData.h>
#include <OpenZyvo/ZItGeometry.h>
#include <benchmark/benchmark.h>

namespace {

constexpr int kSide = 1000; // a kSide x kSide grid: one million points

// A flat grid of quads in z = 0, built once and shared by the benchmarks.
const ZObject& grid() {
    static const ZObject data = [] {
        ZPointArray points;
        points.setLength(kSide * kSide);
        for (int y = 0; y < kSide; ++y) {
            for (int x = 0; x < kSide; ++x)
                points[static_cast<unsigned int>(y * kSide + x)] = ZPoint(x, y, 0);
        }
        ZIntArray counts, connects;
        for (int y = 0; y + 1 < kSide; ++y) {
            for (int x = 0; x + 1 < kSide; ++x) {
                const int corner = y * kSide + x;
                counts.append(4);
                for (const int v : {corner, corner + 1, corner + kSide + 1, corner + kSide})
                    connects.append(v);
            }
        }
        const ZObject made = ZFnMeshData().create();
        ZFnMesh().create(static_cast<int>(points.length()), static_cast<int>(counts.length()), points, counts,
                         connects, made);
        return made;
    }();
    return data;
}

// What a deformer does per evaluation: read every point, move each, write them all back.
void DeformerPass(benchmark::State& state) {
    ZItGeometry it(grid());
    double offset = 0.0;
    for (auto _ : state) {
        ZPointArray points;
        it.allPositions(points);
        offset += 0.001;
        for (ZPoint& p : points)
            p.z = offset * p.x;
        it.setAllPositions(points);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * kSide * kSide);
}

void AllPositions(benchmark::State& state) {
    const ZItGeometry it(grid());
    for (auto _ : state) {
        ZPointArray points;
        it.allPositions(points);
        benchmark::DoNotOptimize(points.data());
    }
    state.SetItemsProcessed(state.iterations() * kSide * kSide);
}

void SetAllPositions(benchmark::State& state) {
    ZItGeometry it(grid());
    ZPointArray points;
    it.allPositions(points);
    for (auto _ : state) {
        it.setAllPositions(points);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * kSide * kSide);
}

} // namespace

BENCHMARK(DeformerPass)->Unit(benchmark::kMillisecond);
BENCHMARK(AllPositions)->Unit(benchmark::kMillisecond);
BENCHMARK(SetAllPositions)->Unit(benchmark::kMillisecond);
