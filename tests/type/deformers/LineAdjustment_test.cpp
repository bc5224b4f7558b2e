#include "deformers/LineAdjustment.h"

#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace {

using type::Adjustments;
using type::Point3;

type::Box3 box(Point3 min, Point3 max) {
    type::Box3 b;
    b.extend(min);
    b.extend(max);
    return b;
}

// "ab c" then an empty line then "d": unit characters two apart, each
// character one element with one vertex at its box's minimum.
type::Elements text() {
    type::Elements elements;
    for (int i = 0; i < 4; ++i) {
        elements.bounds.push_back(box({2.0 * i, 0, 0}, {2.0 * i + 1, 1, 1}));
        elements.vertices.push_back({i});
    }
    return elements;
}

Adjustments grouped() {
    Adjustments a;
    a.solidsPerCharacter = {1, 1, 1, 1};
    a.solidsPerWord = {2, 1, 0, 1};
    a.solidsPerLine = {3, 0, 1};
    a.positions.assign(4, Point3{});
    return a;
}

// Where each character of each line goes: the layouts applied to the
// characters' single vertices.
std::vector<Point3> laidOut(const Adjustments& a) {
    const type::Elements elements = text();
    std::vector<Point3> points;
    for (const type::Box3& b : elements.bounds)
        points.push_back(b.min);
    for (int line = 0; line < static_cast<int>(a.solidsPerLine.size()); ++line)
        for (const type::CharacterLayout& layout : type::layoutLine(a, elements, line))
            type::adjustCharacter(layout, elements.vertices[static_cast<std::size_t>(layout.character)],
                                  std::span<Point3>(points));
    return points;
}

TEST(LineAdjustment, NothingStoredLeavesEveryCharacterInPlace) {
    const std::vector<Point3> points = laidOut(grouped());
    for (int i = 0; i < 4; ++i)
        EXPECT_DOUBLE_EQ(points[static_cast<std::size_t>(i)].x, 2.0 * i);
}

TEST(LineAdjustment, MovingAWordAlongXPushesTheLaterWordsOfItsLine) {
    Adjustments a = grouped();
    a.wordPositions = {{1.5, 0.25, 0}};
    const std::vector<Point3> points = laidOut(a);
    EXPECT_DOUBLE_EQ(points[0].x, 1.5);
    EXPECT_DOUBLE_EQ(points[1].x, 3.5);
    EXPECT_DOUBLE_EQ(points[1].y, 0.25);
    // The next word follows along x only; the next line not at all.
    EXPECT_DOUBLE_EQ(points[2].x, 5.5);
    EXPECT_DOUBLE_EQ(points[2].y, 0.0);
    EXPECT_DOUBLE_EQ(points[3].x, 6.0);
}

TEST(LineAdjustment, WideningACharacterPushesTheRestOfItsLine) {
    Adjustments a = grouped();
    a.positions[0] = {0.5, 0, 0};
    a.linePositions = {{}, {}, {0, -3, 0}};
    const std::vector<Point3> points = laidOut(a);
    EXPECT_DOUBLE_EQ(points[1].x, 2.5);
    EXPECT_DOUBLE_EQ(points[2].x, 4.5);
    // The empty line is passed over: "d" is on line 2.
    EXPECT_DOUBLE_EQ(points[3].x, 6.0);
    EXPECT_DOUBLE_EQ(points[3].y, -3.0);
}

TEST(LineAdjustment, ScalesAreOffsetsFromOneAboutTheBoxMinimum) {
    Adjustments a = grouped();
    a.scales = {{0, 0, 0}, {-1, -1, -1}};
    const type::Elements elements = text();
    const std::vector<type::CharacterLayout> layouts = type::layoutLine(a, elements, 0);
    ASSERT_EQ(layouts.size(), 3u);
    EXPECT_DOUBLE_EQ(layouts[0].own.apply({1, 1, 1}).x, 1.0);
    const Point3 collapsed = layouts[1].own.apply({3, 1, 1});
    EXPECT_DOUBLE_EQ(collapsed.x, 2.0);
    EXPECT_DOUBLE_EQ(collapsed.y, 0.0);
}

TEST(LineAdjustment, WordsTurnAboutTheirFirstCharacter) {
    Adjustments a = grouped();
    a.wordRotations = {{0, 0, 90}};
    const std::vector<type::CharacterLayout> layouts = type::layoutLine(a, text(), 0);
    // b's corner (2, 0, 0) turns a quarter about a's (0, 0, 0).
    const Point3 turned = layouts[1].word.apply({2, 0, 0});
    EXPECT_NEAR(turned.x, 0.0, 1e-7);
    EXPECT_NEAR(turned.y, 2.0, 1e-7);
}

TEST(LineAdjustment, CentredLinesShiftByHalfTheirGrowthAndTheStoredOffset) {
    Adjustments a = grouped();
    a.positions = {{1, 0, 0}, {1, 0, 0}, {0, 0, 0}, {0, 0, 0}};
    a.alignmentAdjustments = {0.25, 0.0, 0.5};
    a.alignment = type::LineAlignment::Centre;
    EXPECT_DOUBLE_EQ(type::layoutLine(a, text(), 0)[0].alignmentShift, 1.25);
    a.alignment = type::LineAlignment::Right;
    EXPECT_DOUBLE_EQ(type::layoutLine(a, text(), 2)[0].alignmentShift, 0.5);
    a.alignment = type::LineAlignment::Left;
    EXPECT_DOUBLE_EQ(type::layoutLine(a, text(), 0)[0].alignmentShift, 0.0);
    a.alignmentAdjustments.clear();
    a.alignment = type::LineAlignment::Centre;
    EXPECT_DOUBLE_EQ(type::layoutLine(a, text(), 0)[0].alignmentShift, 0.0);
}

TEST(LineAdjustment, ACharacterEndsAtTheFirstVertexBeyondThePoints) {
    type::CharacterLayout layout{0,
                                 type::PivotTransform({}, {}, {1, 1, 1}),
                                 type::PivotTransform({}, {}, {1, 1, 1}),
                                 type::PivotTransform({}, {}, {1, 1, 1}),
                                 Point3{1, 0, 0},
                                 0.0};
    std::vector<Point3> points = {{0, 0, 0}, {0, 0, 0}};
    const std::vector<int> vertices = {0, 9, 1};
    const type::Box3 moved = type::adjustCharacter(layout, vertices, std::span<Point3>(points));
    EXPECT_DOUBLE_EQ(points[0].x, 1.0);
    EXPECT_DOUBLE_EQ(points[1].x, 0.0);
    EXPECT_DOUBLE_EQ(moved.max.x, 1.0);
}

TEST(LineAdjustment, NaNKeepsTheInputCoordinate) {
    type::CharacterLayout layout{0,
                                 type::PivotTransform({}, {}, {1, 1, 1}),
                                 type::PivotTransform({}, {}, {1, 1, 1}),
                                 type::PivotTransform({}, {}, {1, 1, 1}),
                                 Point3{std::numeric_limits<double>::quiet_NaN(), 2, 0},
                                 0.0};
    std::vector<Point3> points = {{3, 0, 0}};
    const std::vector<int> vertices = {0};
    type::adjustCharacter(layout, vertices, std::span<Point3>(points));
    EXPECT_DOUBLE_EQ(points[0].x, 3.0);
    EXPECT_DOUBLE_EQ(points[0].y, 2.0);
}

TEST(LineAdjustment, NeedsCharactersPositionsAndLines) {
    Adjustments a = grouped();
    EXPECT_TRUE(type::canAdjust(a));
    a.solidsPerLine.clear();
    EXPECT_FALSE(type::canAdjust(a));
}

} // namespace
