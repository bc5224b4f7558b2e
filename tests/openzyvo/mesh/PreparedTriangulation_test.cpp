#include "MeshTestShapes.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <optional>
#include <vector>

namespace oz::mesh {
namespace {

using namespace test;

// A strip of unit squares along x, large enough that its cut is prepared on another thread.
// Vertex 2i is (i, 0), vertex 2i + 1 is (i, 1).
constexpr int32_t kQuads = 20000;

Mesh quadStrip() {
    std::vector<Point3> points;
    for (int32_t i = 0; i <= kQuads; ++i) {
        points.push_back({double(i), 0.0, 0.0});
        points.push_back({double(i), 1.0, 0.0});
    }
    std::vector<int32_t> connects;
    for (int32_t i = 0; i < kQuads; ++i)
        connects.insert(connects.end(), {2 * i, 2 * i + 2, 2 * i + 3, 2 * i + 1});
    Mesh mesh;
    EXPECT_EQ(mesh.create(points, std::vector<int32_t>(kQuads, 4), connects), Status::Success);
    return mesh;
}

void expectSameCut(const Triangulation& a, const Triangulation& b) {
    EXPECT_EQ(a.faceTriangleStart, b.faceTriangleStart);
    EXPECT_TRUE(std::equal(a.triangles.begin(), a.triangles.end(), b.triangles.begin(), b.triangles.end()));
}

TEST(PreparedTriangulation, IsTheCutBuiltWhenAskedAndSharedByCopies) {
    const Mesh prepared = quadStrip();
    prepared.prepareTriangulation();
    // A copy made while the cut runs shares it instead of cutting again.
    const Mesh copy = prepared;
    const auto cut = prepared.triangulation();
    EXPECT_EQ(copy.triangulation().get(), cut.get());
    expectSameCut(*cut, *quadStrip().triangulation());
}

TEST(PreparedTriangulation, PointsMovedMeanwhileAreCutWhereTheyAre) {
    // Moving vertex 3 to (1.5, 1.6) makes the first square's diagonal from vertex 2 to 1 the
    // shorter one.
    const Point3 moved{1.5, 1.6, 0.0};
    Mesh expected = quadStrip();
    ASSERT_EQ(expected.setPoint(3, moved), Status::Success);
    Mesh mesh = quadStrip();
    mesh.prepareTriangulation();
    ASSERT_EQ(mesh.setPoint(3, moved), Status::Success);
    expectSameCut(*mesh.triangulation(), *expected.triangulation());
    EXPECT_NE(mesh.triangulation()->faceTriangles(0)[0], quadStrip().triangulation()->faceTriangles(0)[0]);
}

TEST(PreparedTriangulation, FacesAddedMeanwhileAreCut) {
    Mesh mesh = quadStrip();
    mesh.prepareTriangulation();
    addFace(mesh, {square(0.0, 5.0, 1.0)});
    const auto cut = mesh.triangulation();
    ASSERT_EQ(cut->faceCount(), kQuads + 1);
    EXPECT_EQ(cut->faceTriangles(kQuads).size(), 2u);
}

TEST(PreparedTriangulation, MeshGoneOrReplacedBeforeItsCutEndsLeavesNothingBehind) {
    // The sanitizer build checks that the running cut neither touches the mesh nor leaks.
    for (int round = 0; round < 8; ++round) {
        Mesh mesh = quadStrip();
        mesh.prepareTriangulation();
    }
    Mesh replaced = quadStrip();
    replaced.prepareTriangulation();
    replaced = cube();
    EXPECT_EQ(replaced.triangulation()->faceCount(), 6);
    std::optional<Mesh> original(quadStrip());
    original->prepareTriangulation();
    const Mesh survivor = *original;
    original.reset();
    EXPECT_EQ(survivor.triangulation()->triangles.size(), 2u * kQuads);
}

} // namespace
} // namespace oz::mesh
