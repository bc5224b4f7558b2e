#include "geometry/EdgeSubdivision.h"

#include <gtest/gtest.h>

namespace type {
namespace {

void expectPoints(const Contour& actual, const Contour& expected) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i) {
        EXPECT_NEAR(actual[i].x, expected[i].x, 1e-12) << "point " << i;
        EXPECT_NEAR(actual[i].y, expected[i].y, 1e-12) << "point " << i;
    }
}

TEST(EdgeSubdivision, DivisionsAreCappedByMaxDivisions) {
    // Two points make two edges of 3.5, the closing one included.
    const Contour segment{{0, 0}, {3.5, 0}};

    expectPoints(subdivideEdges(segment, {10, 1.0}),
                 {{0, 0}, {3.5 / 3, 0}, {7.0 / 3, 0}, {3.5, 0}, {7.0 / 3, 0}, {3.5 / 3, 0}});
    expectPoints(subdivideEdges(segment, {2, 1.0}), {{0, 0}, {1.75, 0}, {3.5, 0}, {1.75, 0}});
}

TEST(EdgeSubdivision, EdgesShortOfTwoSegmentsStayWhole) {
    const Contour square{{0, 0}, {1, 0}, {1, 1}, {0, 1}};

    EXPECT_EQ(subdivideEdges(square, {10, 1.0}), square);
    EXPECT_EQ(subdivideEdges(square, {10, 0.6}), square);
    EXPECT_EQ(subdivideEdges(square, {1, 0.1}), square);
    EXPECT_EQ(subdivideEdges(square, {10, 0.5}).size(), 8u);
}

TEST(EdgeSubdivision, DegenerateInputGivesNoCrash) {
    EXPECT_TRUE(subdivideEdges({}, {10, 1.0}).empty());
    EXPECT_EQ(subdivideEdges({{2, 3}}, {10, 1.0}), (Contour{{2, 3}}));
    // A zero maximum length asks for as many pieces as allowed.
    EXPECT_EQ(subdivideEdges({{0, 0}, {1, 0}}, {4, 0.0}).size(), 8u);
}

} // namespace
} // namespace type
