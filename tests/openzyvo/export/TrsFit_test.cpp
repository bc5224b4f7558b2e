#include "export/TrsFit.h"

#include <cmath>
#include <gtest/gtest.h>
#include <vector>

namespace oz::exporter::test {
namespace {

// A box corner set, and the same moved by a known transformation.
std::vector<Float3> box(float depth) {
    std::vector<Float3> points;
    for (float x : {0.0f, 2.0f})
        for (float y : {0.0f, 1.0f})
            for (float z : {0.0f, depth})
                points.push_back({x + 3.0f, y - 1.0f, z + 0.5f});
    return points;
}

std::vector<Float3> moved(const std::vector<Float3>& points, const Trs& trs) {
    std::vector<Float3> out;
    for (const Float3& p : points) {
        const Double3 q = applyTrs(trs, {p[0], p[1], p[2]});
        out.push_back({static_cast<float>(q[0]), static_cast<float>(q[1]), static_cast<float>(q[2])});
    }
    return out;
}

Trs turnedAndStretched() {
    Trs trs;
    trs.translation = {1.5, -2.0, 0.25};
    const double half = 0.6;
    const double length = std::sqrt(0.2 * 0.2 + 0.5 * 0.5 + 0.8 * 0.8);
    trs.rotation = {std::sin(half) * 0.2 / length, std::sin(half) * 0.5 / length,
                    std::sin(half) * 0.8 / length, std::cos(half)};
    trs.scale = {1.5, 0.5, 2.0};
    return trs;
}

void expectReproduces(const TrsFit& fit, const std::vector<Float3>& rest, const std::vector<Float3>& target) {
    ASSERT_TRUE(fit.trs) << "off by " << fit.largestError;
    for (std::size_t i = 0; i < rest.size(); ++i) {
        const Double3 q = applyTrs(*fit.trs, {rest[i][0], rest[i][1], rest[i][2]});
        for (std::size_t a = 0; a < 3; ++a)
            EXPECT_NEAR(q[a], target[i][a], 1e-5) << i;
    }
}

TEST(TrsFit, RecoversTurnStretchAndShift) {
    const std::vector<Float3> rest = box(1.0f);
    const std::vector<Float3> target = moved(rest, turnedAndStretched());
    const TrsFit fit = fitTrs(rest, target, 1e-4);
    expectReproduces(fit, rest, target);
    EXPECT_NEAR(std::abs(fit.trs->scale[1]), 0.5, 1e-5);
}

TEST(TrsFit, RecoversTheMotionOfAFlatPiece) {
    const std::vector<Float3> rest = box(0.0f);
    const std::vector<Float3> target = moved(rest, turnedAndStretched());
    expectReproduces(fitTrs(rest, target, 1e-4), rest, target);
}

TEST(TrsFit, AMirrorIsANegativeScale) {
    const std::vector<Float3> rest = box(1.0f);
    Trs mirror;
    mirror.scale = {-1.0, 1.0, 1.0};
    const std::vector<Float3> target = moved(rest, mirror);
    const TrsFit fit = fitTrs(rest, target, 1e-4);
    expectReproduces(fit, rest, target);
    EXPECT_LT(fit.trs->scale[0] * fit.trs->scale[1] * fit.trs->scale[2], 0.0);
}

TEST(TrsFit, RefusesShearAndBending) {
    const std::vector<Float3> rest = box(1.0f);
    std::vector<Float3> sheared = rest;
    for (Float3& p : sheared)
        p[0] += 0.5f * p[1];
    EXPECT_FALSE(fitTrs(rest, sheared, 1e-4).trs);
    std::vector<Float3> bent = rest;
    bent[7][2] += 0.3f;
    const TrsFit fit = fitTrs(rest, bent, 1e-4);
    EXPECT_FALSE(fit.trs);
    EXPECT_GT(fit.largestError, 1e-4);
}

TEST(TrsFit, RefusesPiecesTooThinToTellTheirTurn) {
    const std::vector<Float3> line = {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}};
    EXPECT_FALSE(fitTrs(line, line, 1e-4).trs);
    EXPECT_FALSE(fitTrs({}, {}, 1e-4).trs);
    EXPECT_FALSE(fitTrs(line, std::vector<Float3>(2), 1e-4).trs);
}

} // namespace
} // namespace oz::exporter::test
