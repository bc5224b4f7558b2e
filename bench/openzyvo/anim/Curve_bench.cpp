#include "anim/Curve.h"

#include <benchmark/benchmark.h>
#include <random>

namespace {

oz::anim::Curve keyedCurve(int keys) {
    oz::anim::Curve curve;
    std::mt19937 random(3);
    std::uniform_real_distribution<double> value(-10, 10);
    for (int i = 0; i < keys; ++i) {
        oz::anim::Key key;
        key.time = i / 24.0;
        key.value = value(random);
        curve.insert(key);
    }
    return curve;
}

// 1,000 times walking forward through the keys, as playback samples them.
void BM_CurveSequential(benchmark::State& state) {
    const oz::anim::Curve curve = keyedCurve(static_cast<int>(state.range(0)));
    const double end = curve.keys().back().time;
    for (auto _ : state) {
        for (int i = 0; i < 1000; ++i)
            benchmark::DoNotOptimize(curve.evaluate(end * i / 1000.0));
    }
    state.SetItemsProcessed(state.iterations() * 1000);
}
BENCHMARK(BM_CurveSequential)->Arg(10)->Arg(1000);

// 1,000 scattered times, each needing the binary search.
void BM_CurveScattered(benchmark::State& state) {
    const oz::anim::Curve curve = keyedCurve(static_cast<int>(state.range(0)));
    std::mt19937 random(5);
    std::vector<double> times(1000);
    for (double& t : times)
        t = std::uniform_real_distribution<double>(0, curve.keys().back().time)(random);
    for (auto _ : state) {
        for (double t : times)
            benchmark::DoNotOptimize(curve.evaluate(t));
    }
    state.SetItemsProcessed(state.iterations() * 1000);
}
BENCHMARK(BM_CurveScattered)->Arg(10)->Arg(1000);

} // namespace
