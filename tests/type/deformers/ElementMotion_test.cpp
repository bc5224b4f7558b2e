#include "deformers/ElementMotion.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>
#include <vector>

namespace {

using type::AnimationFrame;
using type::Point3;

void expectNear(const Point3& got, const Point3& want) {
    EXPECT_NEAR(got.x, want.x, 1e-6);
    EXPECT_NEAR(got.y, want.y, 1e-6);
    EXPECT_NEAR(got.z, want.z, 1e-6);
}

type::Box3 box(Point3 min, Point3 max) {
    type::Box3 b;
    b.extend(min);
    b.extend(max);
    return b;
}

// Three unit characters on a row: x 0..1, 2..3, 4..5; y from 0 up to 1, 2 and
// 3, so that the text is 3 high.
type::Elements row() {
    type::Elements elements;
    for (int i = 0; i < 3; ++i) {
        elements.bounds.push_back(box({2.0 * i, 0, 0}, {2.0 * i + 1, 1.0 + i, 1}));
        elements.textBounds.extend(elements.bounds.back().min);
        elements.textBounds.extend(elements.bounds.back().max);
        elements.vertices.push_back({});
    }
    return elements;
}

AnimationFrame characters(int count) {
    AnimationFrame frame;
    frame.solidsPerCharacter.assign(static_cast<std::size_t>(count), 1.0);
    return frame;
}

TEST(ElementMotion, PerParticleArraysRepeatModuloTheirLength) {
    AnimationFrame frame = characters(3);
    frame.positionIn = {{1, 0, 0}, {0, 2, 0}};
    frame.scaleIn = {{0.5, 0.5, 0.5}};
    frame.envelope = 0.5f;
    const type::Elements elements = row();
    expectNear(type::elementMotion(frame, elements, 2).translation, {1, 0, 0});
    expectNear(type::elementMotion(frame, elements, 1).translation, {0, 2, 0});
    // The scale offsets enter through the envelope on top of the channel value.
    expectNear(type::elementMotion(frame, elements, 1).scale, {1.25, 1.25, 1.25});
}

TEST(ElementMotion, CurrentChannelsGoThroughTheEnvelopeSampledOnesDoNot) {
    AnimationFrame frame = characters(3);
    frame.envelope = 0.5f;
    frame.position = {4, 0, 0};
    frame.rotation = {0, 0, std::numbers::pi / 2};
    frame.rotationIn = {{0, 0, std::numbers::pi / 2}};
    const type::Elements elements = row();
    const type::ElementMotion current = type::elementMotion(frame, elements, 0);
    expectNear(current.translation, {2, 0, 0});
    EXPECT_NEAR(current.rotationDegrees.z, 135.0, 1e-4);

    frame.sampled[type::kPositionX] = {10, 20, 30};
    frame.sampled[type::kRotationZ] = {0, std::numbers::pi, 0};
    const type::ElementMotion sampled = type::elementMotion(frame, elements, 1);
    expectNear(sampled.translation, {20, 0, 0});
    EXPECT_NEAR(sampled.rotationDegrees.z, 180.0, 1e-4);
}

TEST(ElementMotion, PivotsSitOnTheElementOnLocalAxesAndOnTheTextOnOthers) {
    AnimationFrame frame = characters(3);
    frame.pivotLocation = {0.5, 0.0, 1.0};
    frame.position = {0, 0, 10};
    const type::ElementMotion motion = type::elementMotion(frame, row(), 1);
    // X and Z local by default, Y over the whole text: and all moved along.
    expectNear(motion.rotationPivot, {2.5, 0, 11});
    frame.localScalePivot = {false, true, true};
    frame.pivotLocation = {1.0, 1.0, 0.0};
    expectNear(type::elementMotion(frame, row(), 1).scalePivot, {5, 2, 10});
}

TEST(ElementMotion, WordsTurnAboutTheirOwnSpan) {
    AnimationFrame frame = characters(3);
    frame.grouping = type::AnimationGrouping::Word;
    frame.solidsPerWord = {2, 0, 1};
    frame.solidsPerLine = {3};
    frame.sampled[type::kPositionY] = {7, 8, 9};
    const type::Elements elements = row();
    const type::ElementMotion second = type::elementMotion(frame, elements, 1);
    // The first word spans x 0..3, so its pivot is at 1.5 for both letters;
    // the scale pivot stays on the letter.
    EXPECT_NEAR(second.rotationPivot.x, 1.5, 1e-9);
    EXPECT_NEAR(second.scalePivot.x, 2.5, 1e-9);
    EXPECT_NEAR(second.translation.y, 7.0, 1e-9);
    // The empty word is passed over: the third letter is word 2.
    EXPECT_NEAR(type::elementMotion(frame, elements, 2).translation.y, 9.0, 1e-9);
}

TEST(ElementMotion, WordModeWithoutLinesPivotsPerCharacter) {
    AnimationFrame frame = characters(3);
    frame.grouping = type::AnimationGrouping::Word;
    frame.solidsPerWord = {2, 1};
    EXPECT_EQ(type::groupCount(frame), 2);
    EXPECT_NEAR(type::elementMotion(frame, row(), 1).rotationPivot.x, 2.5, 1e-9);
}

TEST(ElementMotion, MovesOnlyItsVerticesAndKeepsInputWhereTheResultIsNaN) {
    type::ElementMotion motion;
    motion.translation = {1, 0, 0};
    motion.scale = {std::numeric_limits<double>::quiet_NaN(), 1, 1};
    std::vector<Point3> points = {{0, 0, 0}, {5, 5, 5}, {1, 2, 3}};
    const std::vector<int> vertices = {2, 0, 17, -1};
    type::moveElement(motion, std::span<const int>(vertices), std::span<Point3>(points));
    expectNear(points[0], {0, 0, 0});
    expectNear(points[1], {5, 5, 5});
    expectNear(points[2], {1, 2, 3});
}

TEST(ElementMotion, WritesFromTheInputIntoAnotherArrayAndCopiesWhatStays) {
    type::ElementMotion moving;
    moving.translation = {1, 0, 0};
    const type::ElementMotion resting;
    const std::vector<Point3> in = {{0, 0, 0}, {5, 5, 5}, {1, 2, 3}};
    std::vector<Point3> out = {{9, 9, 9}, {9, 9, 9}, {9, 9, 9}};
    const std::vector<int> first = {0, 2};
    const std::vector<int> second = {1};
    for (int frame = 0; frame < 2; ++frame) {
        // The input stays as it is, so every frame moves from the same place.
        type::moveElement(moving, std::span<const int>(first), std::span<const Point3>(in),
                          std::span<Point3>(out));
        type::moveElement(resting, std::span<const int>(second), std::span<const Point3>(in),
                          std::span<Point3>(out));
    }
    expectNear(out[0], {1, 0, 0});
    expectNear(out[1], {5, 5, 5});
    expectNear(out[2], {2, 2, 3});
    expectNear(in[0], {0, 0, 0});
}

TEST(ElementMotion, OneMapAgreesWithScalingThenTurningEachAboutItsPivot) {
    type::ElementMotion motion;
    motion.translation = {0.5, -2, 3};
    motion.scale = {1.5, 0.25, -2};
    motion.rotationDegrees = {31, -47, 112};
    motion.scalePivot = {1, 2, -1};
    motion.rotationPivot = {-3, 0.5, 2};
    const type::PivotTransform scaling(motion.scalePivot, {}, motion.scale);
    const type::PivotTransform turning(motion.rotationPivot, motion.rotationDegrees, {1, 1, 1});
    const type::AffineMap map = type::motionMap(motion);
    for (const Point3& p : {Point3{0, 0, 0}, Point3{1, 2, 3}, Point3{-40, 0.5, 7}}) {
        const Point3 stepwise = turning.apply(scaling.apply(
            {p.x + motion.translation.x, p.y + motion.translation.y, p.z + motion.translation.z}));
        const Point3 once = map.apply(p.x, p.y, p.z);
        EXPECT_NEAR(once.x, stepwise.x, 1e-12);
        EXPECT_NEAR(once.y, stepwise.y, 1e-12);
        EXPECT_NEAR(once.z, stepwise.z, 1e-12);
    }

    // A translation alone is exact.
    type::ElementMotion shift;
    shift.translation = {0.1, 0.2, 0.3};
    const Point3 moved = type::motionMap(shift).apply(0.7, 0.1, 0.2);
    EXPECT_EQ(moved.x, 0.7 + 0.1);
    EXPECT_EQ(moved.y, 0.1 + 0.2);
    EXPECT_EQ(moved.z, 0.2 + 0.3);
}

TEST(ElementMotion, ScaleAndTurnAboutTheMovedPivots) {
    type::ElementMotion motion;
    motion.translation = {10, 0, 0};
    motion.scale = {2, 2, 2};
    motion.rotationDegrees = {0, 0, 90};
    motion.scalePivot = {10, 0, 0};
    motion.rotationPivot = {11, 0, 0};
    std::vector<Point3> points = {{1, 0, 0}};
    const std::vector<int> vertices = {0};
    type::moveElement(motion, std::span<const int>(vertices), std::span<Point3>(points));
    // (11, 0, 0) scaled about (10, 0, 0) is (12, 0, 0), a quarter turn about
    // (11, 0, 0) takes it to (11, 1, 0).
    expectNear(points[0], {11, 1, 0});
}

} // namespace
