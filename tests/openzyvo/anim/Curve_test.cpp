#include "anim/Curve.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <random>

using oz::anim::Curve;
using oz::anim::Infinity;
using oz::anim::Key;
using oz::anim::TangentType;

namespace {

Key key(double time, double value, TangentType in, TangentType out) {
    Key k;
    k.time = time;
    k.value = value;
    k.in.type = in;
    k.out.type = out;
    return k;
}

Key key(double time, double value, TangentType type = TangentType::kLinear) {
    return key(time, value, type, type);
}

Curve curveOf(std::initializer_list<Key> keys) {
    Curve curve;
    for (const Key& k : keys)
        EXPECT_EQ(curve.insert(k), ZStatus::kSuccess);
    return curve;
}

// Whether the curve never falls (or never rises) over [from, to].
bool monotone(const Curve& curve, double from, double to) {
    bool rises = true, falls = true;
    double last = curve.evaluate(from);
    for (int i = 1; i <= 400; ++i) {
        const double v = curve.evaluate(from + (to - from) * i / 400.0);
        rises = rises && v >= last - 1e-12;
        falls = falls && v <= last + 1e-12;
        last = v;
    }
    return rises || falls;
}

double slopeAt(const Curve& curve, double time) {
    const double h = 1e-6;
    return (curve.evaluate(time + h) - curve.evaluate(time - h)) / (2 * h);
}

} // namespace

TEST(Curve, LinearTangentsDrawStraightLinesBetweenKeys) {
    const Curve curve = curveOf({key(0, 0), key(1, 10), key(3, 0)});
    EXPECT_DOUBLE_EQ(curve.evaluate(0.25), 2.5);
    EXPECT_NEAR(curve.evaluate(2.0), 5.0, 1e-9);
    EXPECT_DOUBLE_EQ(curve.evaluate(1.0), 10.0);
}

TEST(Curve, FlatTangentsEaseInAndOut) {
    const Curve curve = curveOf({key(0, 0, TangentType::kFlat), key(1, 10, TangentType::kFlat)});
    EXPECT_DOUBLE_EQ(curve.evaluate(0.5), 5.0);
    EXPECT_DOUBLE_EQ(curve.evaluate(0.25), 10.0 * (3 * 0.0625 - 2 * 0.015625));
    EXPECT_NEAR(slopeAt(curve, 0.001), 0.0, 0.1);
    EXPECT_NEAR(slopeAt(curve, 0.999), 0.0, 0.1);
}

TEST(Curve, StepHoldsAndStepNextJumps) {
    const Curve step =
        curveOf({key(0, 1, TangentType::kFlat, TangentType::kStep), key(2, 5, TangentType::kFlat)});
    EXPECT_EQ(step.evaluate(0.0), 1.0);
    EXPECT_EQ(step.evaluate(1.999), 1.0);
    EXPECT_EQ(step.evaluate(2.0), 5.0);

    const Curve next =
        curveOf({key(0, 1, TangentType::kFlat, TangentType::kStepNext), key(2, 5, TangentType::kFlat)});
    EXPECT_EQ(next.evaluate(0.0), 1.0);
    EXPECT_EQ(next.evaluate(0.001), 5.0);
    EXPECT_EQ(next.evaluate(2.0), 5.0);
}

TEST(Curve, SplineFollowsTheNeighboursAndOvershoots) {
    const Curve line = curveOf(
        {key(0, 0, TangentType::kSpline), key(1, 1, TangentType::kSpline), key(3, 3, TangentType::kSpline)});
    EXPECT_NEAR(line.evaluate(2.2), 2.2, 1e-12);

    const Curve peak = curveOf(
        {key(0, 0, TangentType::kSpline), key(1, 4, TangentType::kSpline), key(2, 0, TangentType::kSpline)});
    EXPECT_DOUBLE_EQ(peak.inSlope(1), 0.0);
    EXPECT_NEAR(slopeAt(peak, 1.0), 0.0, 1e-6);

    const Curve jump = curveOf(
        {key(0, 0, TangentType::kSpline), key(1, 0, TangentType::kSpline), key(2, 10, TangentType::kSpline)});
    EXPECT_LT(jump.evaluate(0.7), 0.0);
}

TEST(Curve, ClampedStaysFlatBesideAnEqualValue) {
    const Curve curve = curveOf({key(0, 0, TangentType::kClamped), key(1, 0, TangentType::kClamped),
                                 key(2, 10, TangentType::kClamped)});
    for (double t = 0.0; t <= 1.0; t += 0.05)
        EXPECT_EQ(curve.evaluate(t), 0.0) << t;
    EXPECT_GT(curve.evaluate(1.5), 0.0);
}

TEST(Curve, PlateauAndAutoNeverOvershootTheirKeys) {
    // A slow rise followed by a steep one: spline tangents dip below the
    // first key and overshoot the last.
    for (TangentType type : {TangentType::kPlateau, TangentType::kAuto}) {
        const Curve curve = curveOf(
            {key(0, 0, type), key(1, 0.1, type), key(2, 10, type), key(3, 10.1, type), key(4, 3, type)});
        EXPECT_TRUE(monotone(curve, 0, 3)) << int(type);
        EXPECT_TRUE(monotone(curve, 3, 4)) << int(type);
        EXPECT_EQ(curve.outSlope(0), 0.0);
        EXPECT_EQ(curve.inSlope(3), 0.0) << "an extreme is flat";
        EXPECT_EQ(curve.inSlope(4), 0.0);
        EXPECT_GT(curve.inSlope(2), 0.0) << "an interior key still moves";
    }
    const Curve spline = curveOf({key(0, 0, TangentType::kSpline), key(1, 0.1, TangentType::kSpline),
                                  key(2, 10, TangentType::kSpline), key(3, 10.1, TangentType::kSpline)});
    EXPECT_FALSE(monotone(spline, 0, 3));
}

TEST(Curve, FixedTangentsUseTheirAngles) {
    Key a = key(0, 0, TangentType::kFixed);
    a.out.angle = std::numbers::pi / 4;
    Key b = key(1, 0, TangentType::kFixed);
    b.in.angle = -std::numbers::pi / 4;
    const Curve curve = curveOf({a, b});
    EXPECT_NEAR(slopeAt(curve, 1e-4), 1.0, 1e-3);
    EXPECT_NEAR(slopeAt(curve, 1 - 1e-4), -1.0, 1e-3);
    EXPECT_NEAR(curve.evaluate(0.5), 0.25, 1e-12);

    Key vertical = key(0, 0, TangentType::kFixed);
    vertical.out.angle = std::numbers::pi;
    const Curve steep = curveOf({vertical, key(1, 1)});
    EXPECT_TRUE(std::isfinite(steep.evaluate(0.5)));
}

TEST(Curve, WeightsBendOnlyWeightedCurves) {
    Key a = key(0, 0), b = key(1, 1);
    a.out.weight = 3.0;
    b.in.weight = 0.2;
    Curve curve = curveOf({a, b});
    EXPECT_DOUBLE_EQ(curve.evaluate(0.3), 0.3);

    // Tangents along the line keep it straight whatever their reach, which
    // pins the solve of time along a weighted segment.
    curve.setWeighted(true);
    for (double t : {0.05, 0.3, 0.5, 0.77, 0.999})
        EXPECT_NEAR(curve.evaluate(t), t, 1e-12);

    Key flatA = key(0, 0, TangentType::kFlat), flatB = key(1, 1, TangentType::kFlat);
    Curve eased = curveOf({flatA, flatB});
    eased.setWeighted(true);
    const double plain = eased.evaluate(0.25);
    flatA.out.weight = 3.0;
    ASSERT_EQ(eased.insert(flatA), ZStatus::kSuccess);
    EXPECT_LT(eased.evaluate(0.25), plain);
    EXPECT_TRUE(monotone(eased, 0, 1));
}

TEST(Curve, InfinitiesContinueTheKeyedRange) {
    Curve curve = curveOf({key(0, 0), key(1, 2), key(2, 1)});
    EXPECT_EQ(curve.evaluate(-5), 0.0);
    EXPECT_EQ(curve.evaluate(7), 1.0);

    curve.setPreInfinity(Infinity::kLinear);
    curve.setPostInfinity(Infinity::kLinear);
    EXPECT_DOUBLE_EQ(curve.evaluate(-1), -2.0);
    EXPECT_DOUBLE_EQ(curve.evaluate(4), -1.0);

    curve.setPreInfinity(Infinity::kCycle);
    curve.setPostInfinity(Infinity::kCycle);
    EXPECT_DOUBLE_EQ(curve.evaluate(2.5), 1.0);
    EXPECT_DOUBLE_EQ(curve.evaluate(-0.5), 1.5);
    EXPECT_DOUBLE_EQ(curve.evaluate(4.0), 0.0);

    curve.setPreInfinity(Infinity::kCycleRelative);
    curve.setPostInfinity(Infinity::kCycleRelative);
    EXPECT_DOUBLE_EQ(curve.evaluate(3.0), 3.0);
    EXPECT_DOUBLE_EQ(curve.evaluate(-1.0), 1.0);

    curve.setPreInfinity(Infinity::kOscillate);
    curve.setPostInfinity(Infinity::kOscillate);
    EXPECT_DOUBLE_EQ(curve.evaluate(2.5), 1.5);
    EXPECT_DOUBLE_EQ(curve.evaluate(4.5), 1.0);
    EXPECT_DOUBLE_EQ(curve.evaluate(-0.5), 1.0);

    for (Infinity mode : {Infinity::kCycle, Infinity::kCycleRelative, Infinity::kOscillate}) {
        curve.setPostInfinity(mode);
        EXPECT_TRUE(std::isfinite(curve.evaluate(1e300))) << int(mode);
        EXPECT_FALSE(std::isnan(curve.evaluate(INFINITY))) << int(mode);
    }
}

TEST(Curve, SingleKeyIsConstantUnlessExtendedAlongItsTangent) {
    Key only = key(1, 4, TangentType::kFixed);
    only.in.angle = only.out.angle = std::atan(2.0);
    Curve curve = curveOf({only});
    EXPECT_EQ(curve.evaluate(-3), 4.0);
    EXPECT_EQ(curve.evaluate(1), 4.0);
    curve.setPostInfinity(Infinity::kCycle);
    EXPECT_EQ(curve.evaluate(9), 4.0);
    curve.setPostInfinity(Infinity::kLinear);
    EXPECT_DOUBLE_EQ(curve.evaluate(2), 6.0);
    EXPECT_EQ(Curve().evaluate(3), 0.0);
}

TEST(Curve, KeysInAnyOrderMakeTheSameCurve) {
    const Curve sorted = curveOf({key(0, 1, TangentType::kAuto), key(1, 3, TangentType::kAuto),
                                  key(2, 2, TangentType::kAuto), key(4, 5, TangentType::kAuto)});
    const Curve shuffled = curveOf({key(2, 2, TangentType::kAuto), key(0, 1, TangentType::kAuto),
                                    key(4, 5, TangentType::kAuto), key(1, 3, TangentType::kAuto)});
    Curve assigned;
    const Key keys[] = {key(4, 5, TangentType::kAuto), key(1, 9, TangentType::kAuto),
                        key(0, 1, TangentType::kAuto), key(2, 2, TangentType::kAuto),
                        key(1, 3, TangentType::kAuto)};
    ASSERT_EQ(assigned.assign(keys), ZStatus::kSuccess);
    ASSERT_EQ(shuffled.size(), 4u);
    ASSERT_EQ(assigned.size(), 4u) << "the later key at time 1 replaces the earlier";
    for (double t = -1; t < 5; t += 0.125) {
        EXPECT_EQ(shuffled.evaluate(t), sorted.evaluate(t)) << t;
        EXPECT_EQ(assigned.evaluate(t), sorted.evaluate(t)) << t;
    }
}

TEST(Curve, EditsKeepKeysSortedAndUnique) {
    Curve curve = curveOf({key(0, 0), key(1, 1), key(2, 2)});
    std::size_t index = 99;
    ASSERT_EQ(curve.insert(key(1 + 1e-12, 7), &index), ZStatus::kSuccess);
    EXPECT_EQ(index, 1u);
    EXPECT_EQ(curve.size(), 3u);
    EXPECT_EQ(curve.key(1).value, 7.0);

    ASSERT_EQ(curve.replace(0, key(3, 3), &index), ZStatus::kSuccess);
    EXPECT_EQ(index, 2u);
    EXPECT_NEAR(curve.key(0).time, 1.0, 1e-9);
    EXPECT_TRUE(curve.find(3.0, index));
    EXPECT_EQ(index, 2u);
    EXPECT_FALSE(curve.find(2.5, index));

    ASSERT_EQ(curve.remove(1), ZStatus::kSuccess);
    EXPECT_NEAR(curve.evaluate(2.0), 5.0, 1e-9);
}

TEST(Curve, RejectsBadInputAndKeepsItsKeys) {
    Curve curve = curveOf({key(0, 0), key(1, 1)});
    Key bad = key(0.5, NAN);
    EXPECT_EQ(curve.insert(bad), ZStatus::kInvalidParameter);
    bad = key(INFINITY, 1);
    EXPECT_EQ(curve.insert(bad), ZStatus::kInvalidParameter);
    bad = key(0.5, 1);
    bad.out.weight = -1;
    EXPECT_EQ(curve.insert(bad), ZStatus::kInvalidParameter);
    bad = key(0.5, 1);
    bad.in.type = static_cast<TangentType>(42);
    EXPECT_EQ(curve.insert(bad), ZStatus::kInvalidParameter);
    const Key mixed[] = {key(3, 3), key(4, NAN)};
    EXPECT_EQ(curve.assign(mixed), ZStatus::kInvalidParameter);
    EXPECT_EQ(curve.remove(2), ZStatus::kInvalidParameter);
    EXPECT_EQ(curve.replace(5, key(0, 0)), ZStatus::kInvalidParameter);
    EXPECT_EQ(curve.size(), 2u);
    EXPECT_DOUBLE_EQ(curve.evaluate(0.5), 0.5);
    EXPECT_TRUE(std::isnan(curve.evaluate(NAN)));
}

TEST(Curve, CachedSegmentDoesNotDependOnTheOrderOfQueries) {
    Curve curve;
    std::mt19937 random(7);
    std::uniform_real_distribution<double> value(-5, 5);
    for (int i = 0; i < 50; ++i)
        ASSERT_EQ(curve.insert(key(i * 0.5, value(random), TangentType::kSpline)), ZStatus::kSuccess);
    std::vector<double> times;
    for (int i = 0; i < 500; ++i)
        times.push_back(std::uniform_real_distribution<double>(-1, 26)(random));
    const Curve fresh = curve;
    for (double t : times)
        EXPECT_EQ(curve.evaluate(t), Curve(fresh).evaluate(t)) << t;
    for (int i = 0; i <= 490; ++i)
        EXPECT_EQ(curve.evaluate(i * 0.05), Curve(fresh).evaluate(i * 0.05));
    for (int i = 490; i >= 0; --i)
        EXPECT_EQ(curve.evaluate(i * 0.05), Curve(fresh).evaluate(i * 0.05));
}
