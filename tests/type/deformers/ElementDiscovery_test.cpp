#include "deformers/ElementDiscovery.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

namespace {

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

// Three pieces: a quad 0-1-2-3 (faces 0 and 1 as triangles), a triangle
// 4-5-6 (face 2) and a quad 7-8-9-10 (face 3), the last two standing for
// the dot and the stem of one letter.
struct Pieces {
    std::vector<type::Point3> points = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}, {3, 0, 0}, {4, 0, 0},
                                        {3, 1, 0}, {3, 2, 0}, {4, 2, 0}, {4, 3, 0}, {3, 3, 0}};
    std::vector<int> counts = {3, 3, 3, 4};
    std::vector<int> vertices = {0, 1, 2, 0, 2, 3, 4, 5, 6, 7, 8, 9, 10};
};

TEST(ElementDiscovery, WithoutGroupsEveryConnectedShellIsAnElement) {
    Pieces pieces;
    type::FaceListTopology mesh(pieces.points, pieces.counts, pieces.vertices);
    type::Elements elements;
    ASSERT_TRUE(type::discoverElements(mesh, {}, elements));
    ASSERT_EQ(elements.vertices.size(), 3u);
    EXPECT_THAT(elements.vertices[0], UnorderedElementsAre(0, 1, 2, 3));
    EXPECT_THAT(elements.vertices[1], UnorderedElementsAre(4, 5, 6));
    EXPECT_THAT(elements.vertices[2], UnorderedElementsAre(7, 8, 9, 10));
    EXPECT_DOUBLE_EQ(elements.bounds[1].max.x, 4.0);
    EXPECT_DOUBLE_EQ(elements.textBounds.max.y, 3.0);
    EXPECT_DOUBLE_EQ(elements.textBounds.min.x, 0.0);
}

TEST(ElementDiscovery, AGroupBringsAllItsPiecesAlong) {
    Pieces pieces;
    type::FaceListTopology mesh(pieces.points, pieces.counts, pieces.vertices);
    type::Elements elements;
    ASSERT_TRUE(type::discoverElements(mesh, {{0}, {4, 10}}, elements));
    ASSERT_EQ(elements.vertices.size(), 2u);
    EXPECT_THAT(elements.vertices[1], UnorderedElementsAre(4, 5, 6, 7, 8, 9, 10));
    EXPECT_DOUBLE_EQ(elements.bounds[1].min.y, 0.0);
    EXPECT_DOUBLE_EQ(elements.bounds[1].max.y, 3.0);
}

TEST(ElementDiscovery, ShellsTakeOverWhenTheGroupsRunOut) {
    Pieces pieces;
    type::FaceListTopology mesh(pieces.points, pieces.counts, pieces.vertices);
    type::Elements elements;
    ASSERT_TRUE(type::discoverElements(mesh, {{5}}, elements));
    ASSERT_EQ(elements.vertices.size(), 3u);
    EXPECT_THAT(elements.vertices[0], UnorderedElementsAre(4, 5, 6));
    EXPECT_THAT(elements.vertices[1], UnorderedElementsAre(0, 1, 2, 3));
}

TEST(ElementDiscovery, AGroupNamingNoVertexFails) {
    Pieces pieces;
    type::FaceListTopology mesh(pieces.points, pieces.counts, pieces.vertices);
    type::Elements elements;
    EXPECT_FALSE(type::discoverElements(mesh, {{40}}, elements));
}

TEST(ElementDiscovery, FacesWithoutVerticesDoNotStopTheWalk) {
    // The last face claims more vertices than the list holds.
    const std::vector<type::Point3> points = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    const std::vector<int> counts = {0, 3, 9};
    const std::vector<int> vertices = {0, 1, 2};
    type::FaceListTopology mesh(points, counts, vertices);
    type::Elements elements;
    ASSERT_TRUE(type::discoverElements(mesh, {}, elements));
    ASSERT_EQ(elements.vertices.size(), 3u);
    EXPECT_THAT(elements.vertices[0], ElementsAre());
    EXPECT_THAT(elements.vertices[1], UnorderedElementsAre(0, 1, 2));
    EXPECT_TRUE(elements.bounds[2].empty());
}

} // namespace
