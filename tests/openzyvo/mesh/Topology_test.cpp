#include "MeshTestShapes.h"

#include <algorithm>
#include <bit>
#include <deque>
#include <gtest/gtest.h>

namespace oz::mesh {
namespace {

using namespace test;

// Breadth-first flood over connected vertices, as the shell walk does.
std::vector<int32_t> flood(const Topology& topo, int32_t seed) {
    std::vector<bool> seen(static_cast<size_t>(topo.vertexVertices.rowCount()), false);
    std::vector<int32_t> order;
    std::deque<int32_t> queue{seed};
    seen[seed] = true;
    while (!queue.empty()) {
        const int32_t v = queue.front();
        queue.pop_front();
        order.push_back(v);
        for (const int32_t n : topo.vertexVertices[v]) {
            if (!seen[n]) {
                seen[n] = true;
                queue.push_back(n);
            }
        }
    }
    return order;
}

TEST(Topology, CubeEdgesAndAdjacency) {
    const Mesh mesh = cube();
    const auto topo = mesh.topology();
    EXPECT_EQ(mesh.edgeCount(), 12);

    // Edges are numbered by first use and keep the direction of that use.
    EXPECT_EQ(topo->edgeVertices[0], (std::array<int32_t, 2>{0, 2}));
    EXPECT_EQ(topo->edgeVertices[3], (std::array<int32_t, 2>{1, 0}));
    for (int32_t e = 0; e < topo->edgeCount(); ++e)
        EXPECT_EQ(topo->edgeFaces[e].size(), 2u) << "edge " << e;
    for (int32_t f = 0; f < mesh.faceCount(); ++f)
        EXPECT_EQ(topo->faceEdges[f].size(), 4u);

    for (int32_t v = 0; v < mesh.vertexCount(); ++v) {
        ASSERT_EQ(topo->vertexVertices[v].size(), 3u);
        EXPECT_EQ(topo->vertexFaces[v].size(), 3u);
        for (size_t i = 0; i < 3; ++i) {
            const auto [a, b] = topo->edgeVertices[topo->vertexEdges[v][i]];
            EXPECT_EQ(topo->vertexVertices[v][i], a == v ? b : a);
            // Cube neighbours differ in exactly one coordinate bit.
            EXPECT_EQ(std::popcount(static_cast<unsigned>(v ^ topo->vertexVertices[v][i])), 1);
        }
        EXPECT_TRUE(std::is_sorted(topo->vertexEdges[v].begin(), topo->vertexEdges[v].end()));
        EXPECT_TRUE(std::is_sorted(topo->vertexFaces[v].begin(), topo->vertexFaces[v].end()));
    }
    EXPECT_EQ(std::vector<int32_t>(topo->vertexFaces[0].begin(), topo->vertexFaces[0].end()),
              (std::vector<int32_t>{0, 2, 4}));
}

TEST(Topology, FloodStaysInsideItsPiece) {
    Mesh mesh = cube();
    const Mesh other = cube({5, 0, 0});
    int32_t face = -1;
    for (int32_t f = 0; f < other.faceCount(); ++f) {
        std::vector<Point3> loop;
        for (const int32_t v : other.outerLoop(f))
            loop.push_back(other.points()[v]);
        ASSERT_EQ(mesh.addPolygon(loop, std::vector<int32_t>{4}, true, 1e-9, face), Status::Success);
    }
    ASSERT_EQ(mesh.vertexCount(), 16);
    ASSERT_EQ(mesh.edgeCount(), 24);

    std::vector<int32_t> first = flood(*mesh.topology(), 3);
    std::vector<int32_t> second = flood(*mesh.topology(), 12);
    EXPECT_EQ(first.front(), 3);
    std::sort(first.begin(), first.end());
    std::sort(second.begin(), second.end());
    EXPECT_EQ(first, (std::vector<int32_t>{0, 1, 2, 3, 4, 5, 6, 7}));
    EXPECT_EQ(second, (std::vector<int32_t>{8, 9, 10, 11, 12, 13, 14, 15}));
}

TEST(Topology, HoleLoopsAreEdgesOfTheirFace) {
    Mesh mesh;
    addFace(mesh, {square(0, 0, 10), reversed(square(3, 3, 4))});
    const auto topo = mesh.topology();
    EXPECT_EQ(topo->edgeCount(), 8);
    EXPECT_EQ(topo->faceEdges[0].size(), 8u);
    EXPECT_EQ(topo->vertexFaces[5].size(), 1u);
    // Outer and hole ring are not joined by any edge.
    const auto reached = flood(*topo, 0);
    EXPECT_EQ(reached.size(), 4u);
}

TEST(Topology, UnusedVerticesHaveEmptyRows) {
    Mesh mesh;
    const auto points = concat({square(0, 0, 1), square(5, 5, 1)});
    ASSERT_EQ(mesh.create(points, std::vector<int32_t>{4}, std::vector<int32_t>{0, 1, 2, 3}),
              Status::Success);
    const auto topo = mesh.topology();
    EXPECT_TRUE(topo->vertexVertices[6].empty());
    EXPECT_TRUE(topo->vertexFaces[7].empty());
    EXPECT_TRUE(topo->vertexVertices[99].empty());
}

} // namespace
} // namespace oz::mesh
