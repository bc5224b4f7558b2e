#include "../geometry/Fixtures.h"
#include "extrude/RingOffset.h"
#include "offset/NormalsOffset.h"

#include <gtest/gtest.h>

namespace type {
namespace {

struct Square {
    Square() {
        const Contour loop = testing::rectangle(0, 0, 4, 4);
        outline.points = loop;
        outline.loopSizes = {4};
        directions = mitres(outline);
        field = DistanceFieldOffset(outline, directions, 100);
    }
    FaceOffsetData data() const { return {outline, directions, &field}; }

    FaceOutline outline;
    std::vector<Mitre> directions;
    DistanceFieldOffset field;
};

std::vector<Point2> normals(const Square& s, double d) {
    std::vector<Point2> out;
    normalsOffset(s.outline, s.directions, d, out);
    return out;
}

std::vector<Point2> field(const Square& s, double d) {
    std::vector<Point2> out;
    s.field.offset(d, out);
    return out;
}

std::vector<Point2> ring(const Square& s, OffsetMode mode, InternalBevel style, double d) {
    std::vector<Point2> out;
    offsetRing(s.data(), mode, style, d, out);
    return out;
}

TEST(RingOffset, OutwardRingsAlwaysMoveAlongTheMitresAlsoInDistanceFieldMode) {
    const Square s;
    EXPECT_EQ(ring(s, OffsetMode::kDistanceField, InternalBevel::kOuter, -0.5), normals(s, -0.5));
    EXPECT_EQ(ring(s, OffsetMode::kDistanceField, InternalBevel::kInner, -0.5), normals(s, -0.5));
}

TEST(RingOffset, InwardRingsUseTheFieldInItsModeTheOuterBevelAtTwiceTheDistance) {
    const Square s;
    EXPECT_EQ(ring(s, OffsetMode::kDistanceField, InternalBevel::kInner, 0.5), field(s, 0.5));
    EXPECT_EQ(ring(s, OffsetMode::kDistanceField, InternalBevel::kNone, 0.5), field(s, 0.5));
    EXPECT_EQ(ring(s, OffsetMode::kDistanceField, InternalBevel::kOuter, 0.5), field(s, 1.0));
    EXPECT_NE(field(s, 1.0), field(s, 0.5));
}

TEST(RingOffset, NormalsModeNeverAsksTheField) {
    const Square s;
    EXPECT_EQ(ring(s, OffsetMode::kNormals, InternalBevel::kOuter, 0.5), normals(s, 0.5));
}

} // namespace
} // namespace type
