#include "geometry/EvenOddNesting.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <numbers>

namespace type {
namespace {

// An ellipse in the 100-pixel glyph space the text-layout path works in.
Contour ellipse(Point2 centre, double rx, double ry, int points) {
    Contour contour;
    for (int i = 0; i < points; ++i) {
        const double angle = 2.0 * std::numbers::pi * i / points;
        contour.push_back({centre.x + rx * std::cos(angle), centre.y + ry * std::sin(angle)});
    }
    return contour;
}

// A slashed O: bowl, counter and a diagonal stroke crossing both, so every
// step of the overlap resolution has real work. Curve points scale with the
// flattening resolution the way a font's cubic segments do.
std::vector<Contour> slashedO(int pointsPerRing) {
    return {ellipse({50, -50}, 40, 50, pointsPerRing),
            ellipse({50, -50}, 28, 38, pointsPerRing),
            {{10, -105}, {20, -110}, {90, 5}, {80, 10}}};
}

// A B: an outline of straight stems and two bowls with one counter each.
std::vector<Contour> letterB(int pointsPerBowl) {
    Contour outer{{10, -100}, {10, 0}};
    Contour upper;
    Contour lower;
    for (int i = 0; i <= pointsPerBowl; ++i) {
        const double angle = std::numbers::pi / 2 - std::numbers::pi * i / pointsPerBowl;
        outer.push_back({50 + 35 * std::cos(angle), -25 + 25 * std::sin(angle)});
        upper.push_back({50 + 20 * std::cos(angle), -25 + 12 * std::sin(angle)});
    }
    for (int i = 0; i <= pointsPerBowl; ++i) {
        const double angle = std::numbers::pi / 2 - std::numbers::pi * i / pointsPerBowl;
        outer.push_back({55 + 40 * std::cos(angle), -75 + 25 * std::sin(angle)});
        lower.push_back({55 + 25 * std::cos(angle), -75 + 12 * std::sin(angle)});
    }
    upper.push_back({25, -37});
    upper.push_back({25, -13});
    lower.push_back({25, -87});
    lower.push_back({25, -63});
    return {outer, upper, lower};
}

void BM_NestSlashedO(benchmark::State& state) {
    const std::vector<Contour> glyph = slashedO(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(nestEvenOdd(glyph));
}
BENCHMARK(BM_NestSlashedO)->Arg(16)->Arg(32)->Arg(128);

void BM_NestLetterB(benchmark::State& state) {
    const std::vector<Contour> glyph = letterB(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(nestEvenOdd(glyph));
}
BENCHMARK(BM_NestLetterB)->Arg(8)->Arg(16)->Arg(64);

} // namespace
} // namespace type
