#include "../geometry/Fixtures.h"
#include "offset/Mitres.h"
#include "offset/NormalsOffset.h"

#include <gtest/gtest.h>

namespace type {
namespace {

FaceOutline squareWithHole() {
    FaceOutline face;
    for (const Contour& loop :
         {testing::rectangle(0, 0, 6, 6), testing::reversed(testing::rectangle(2, 2, 4, 4))}) {
        face.points.insert(face.points.end(), loop.begin(), loop.end());
        face.loopSizes.push_back(static_cast<int>(loop.size()));
    }
    return face;
}

// Inwards the outer square shrinks and the hole grows; a negative offset
// does the opposite, each edge moving by exactly the distance.
TEST(NormalsOffset, EdgesMoveByTheDistanceIntoOrOutOfTheMaterial) {
    const FaceOutline face = squareWithHole();
    const std::vector<Mitre> found = mitres(face);
    std::vector<Point2> out;
    for (const double d : {0.5, -0.5}) {
        normalsOffset(face, found, d, out);
        ASSERT_EQ(out.size(), face.points.size());
        for (std::size_t i = 0; i < 4; ++i) {
            EXPECT_NEAR(out[i].x, face.points[i].x == 0 ? d : 6 - d, 1e-12);
            EXPECT_NEAR(out[i].y, face.points[i].y == 0 ? d : 6 - d, 1e-12);
        }
        for (std::size_t i = 4; i < 8; ++i) {
            EXPECT_NEAR(out[i].x, face.points[i].x == 2 ? 2 - d : 4 + d, 1e-12);
            EXPECT_NEAR(out[i].y, face.points[i].y == 2 ? 2 - d : 4 + d, 1e-12);
        }
    }
}

TEST(NormalsOffset, ZeroDistanceKeepsTheOutline) {
    const FaceOutline face = squareWithHole();
    std::vector<Point2> out;
    normalsOffset(face, mitres(face), 0.0, out);
    EXPECT_EQ(out, face.points);
}

} // namespace
} // namespace type
