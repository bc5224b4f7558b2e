#include "MeshTestShapes.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <random>

namespace oz::mesh {
namespace {

using namespace test;

// Every triangle of `face` must lie in the face: centroid inside the outer loop and outside every
// hole, wound like the face. Their areas must add up to the outer area minus the holes'.
void expectTrianglesFillFace(const Mesh& mesh, int32_t face) {
    const auto outer = loopPoints(mesh, face, 0);
    double expected = std::abs(signedArea(outer));
    for (int32_t h = 1; h < mesh.faces().faceLoopCount(face); ++h)
        expected -= std::abs(signedArea(loopPoints(mesh, face, h)));

    const Vector3 normal = *mesh.faceNormal(face);
    for (const auto& [a, b, c] : mesh.triangulation()->faceTriangles(face)) {
        const Point3 pa = mesh.points()[a], pb = mesh.points()[b], pc = mesh.points()[c];
        const Point3 centroid = (pa + pb + pc) * (1.0 / 3.0);
        EXPECT_TRUE(inside(centroid, outer)) << "triangle outside the outer loop";
        for (int32_t h = 1; h < mesh.faces().faceLoopCount(face); ++h)
            EXPECT_FALSE(inside(centroid, loopPoints(mesh, face, h))) << "triangle inside hole " << h;
        EXPECT_GE(dot(cross(pb - pa, pc - pa), normal), 0.0) << "triangle wound against its face";
    }
    EXPECT_NEAR(*mesh.triangulatedArea(face), expected, 1e-9 * std::max(1.0, expected));
}

TEST(FaceHoles, OneHoleRoundTripsThroughGetHoles) {
    Mesh mesh;
    const int32_t face = addFace(mesh, {square(0, 0, 10), reversed(square(3, 3, 4))});
    ASSERT_EQ(face, 0);

    const HoleList holes = mesh.holes();
    EXPECT_EQ(holes.info, (std::vector<int32_t>{0, 4, 0}));
    EXPECT_EQ(holes.vertices, (std::vector<int32_t>{4, 5, 6, 7}));
    EXPECT_EQ(mesh.outerLoop(0).size(), 4u);
    EXPECT_EQ(mesh.faceVertices(0).size(), 8u);
    expectTrianglesFillFace(mesh, face);
    EXPECT_NEAR(*mesh.triangulatedArea(face), 100.0 - 16.0, 1e-12);
}

TEST(FaceHoles, SeveralHolesAnyWindingStayOpen) {
    // A concave outer loop (a comb) with holes wound both ways: odd winding must keep every hole
    // open whatever its direction.
    const std::vector<Point3> comb{{0, 0, 0},  {30, 0, 0}, {30, 20, 0}, {22, 20, 0},
                                   {22, 8, 0}, {18, 8, 0}, {18, 20, 0}, {0, 20, 0}};
    Mesh mesh;
    const int32_t face = addFace(
        mesh, {comb, circle(5, 10, 3, 24, true), circle(12, 10, 2, 16, false), reversed(square(24, 2, 4))});
    ASSERT_EQ(face, 0);

    const HoleList holes = mesh.holes();
    EXPECT_EQ(holes.info, (std::vector<int32_t>{0, 24, 0, 0, 16, 24, 0, 4, 40}));
    ASSERT_EQ(holes.vertices.size(), 44u);
    EXPECT_EQ(holes.vertices.front(), 8);
    EXPECT_EQ(holes.vertices.back(), 51);
    expectTrianglesFillFace(mesh, face);
}

TEST(FaceHoles, HolesAddedToAnEarlierFaceLeaveLaterFacesIntact) {
    Mesh mesh;
    addFace(mesh, {square(0, 0, 10)});
    addFace(mesh, {square(20, 0, 10), reversed(square(22, 2, 2))});
    ASSERT_EQ(mesh.setNormals(std::vector<Vector3>(12, Vector3{0, 0, 7})), Status::Success);
    ASSERT_EQ(mesh.setUvs("map1", std::vector<float>(12, 0.5f), std::vector<float>(12, 0.5f)),
              Status::Success);
    std::vector<int32_t> uvIds(12);
    std::iota(uvIds.begin(), uvIds.end(), 0);
    ASSERT_EQ(mesh.assignUvIds("map1", uvIds), Status::Success);
    const std::vector<int32_t> laterFace(mesh.faceVertices(1).begin(), mesh.faceVertices(1).end());

    const auto hole = reversed(square(4, 4, 2));
    ASSERT_EQ(mesh.addHoles(0, hole, std::vector<int32_t>{4}, false, 0.0), Status::Success);

    EXPECT_EQ(std::vector<int32_t>(mesh.faceVertices(1).begin(), mesh.faceVertices(1).end()), laterFace);
    EXPECT_EQ(mesh.holes().info, (std::vector<int32_t>{0, 4, 0, 1, 4, 4}));
    EXPECT_EQ(mesh.holes().vertices, (std::vector<int32_t>{12, 13, 14, 15, 8, 9, 10, 11}));
    EXPECT_NEAR(*mesh.triangulatedArea(0), 96.0, 1e-12);
    EXPECT_NEAR(*mesh.triangulatedArea(1), 96.0, 1e-12);

    // Per-face-vertex data moved with its face-vertices: the new hole sits at face-vertices
    // 4..7, gets the face's own normal and no uvs; face 1 kept what it had.
    const std::vector<Vector3> normals = mesh.normals();
    ASSERT_EQ(normals.size(), 16u);
    EXPECT_EQ(normals[3], (Vector3{0, 0, 7}));
    EXPECT_EQ(normals[4], (Vector3{0, 0, 1}));
    EXPECT_EQ(normals[8], (Vector3{0, 0, 7}));
    std::vector<int32_t> ids;
    ASSERT_EQ(mesh.faceVertexUvIds("map1", ids), Status::Success);
    EXPECT_EQ(ids[4], UvSet::kNoUv);
    EXPECT_EQ(ids[8], 4);
    EXPECT_EQ(ids[15], 11);
}

TEST(FaceHoles, HolesAddedInAnyFaceOrderMatchFacesBuiltWithThem) {
    // Three rounds of one hole per face, faces shuffled in each round: blocks keep moving, the
    // leftovers outgrow the live face-vertices and the pool must be compacted along the way.
    constexpr int kFaces = 2000;
    const auto hole = [](int f, int k) {
        return reversed(square(2.0 * f + 0.1 + 0.3 * k, 0.4, 0.2));
    };

    Mesh built;
    Mesh patched;
    for (int f = 0; f < kFaces; ++f) {
        addFace(built, {square(2.0 * f, 0, 1), hole(f, 0), hole(f, 1), hole(f, 2)});
        addFace(patched, {square(2.0 * f, 0, 1)});
    }
    const std::vector<float> uv(4 * kFaces, 0.0f);
    ASSERT_EQ(patched.setUvs("map1", uv, uv), Status::Success);
    std::vector<int32_t> uvIds(4 * kFaces);
    std::iota(uvIds.begin(), uvIds.end(), 0);
    ASSERT_EQ(patched.assignUvIds("map1", uvIds), Status::Success);
    ASSERT_EQ(patched.setNormals(std::vector<Vector3>(4 * kFaces, Vector3{1, 0, 0})), Status::Success);

    std::vector<int> order(kFaces);
    std::iota(order.begin(), order.end(), 0);
    std::mt19937 random(3);
    for (int k = 0; k < 3; ++k) {
        std::shuffle(order.begin(), order.end(), random);
        for (const int f : order)
            ASSERT_EQ(patched.addHoles(f, hole(f, k), std::vector<int32_t>{4}, false, 0), Status::Success);
    }

    ASSERT_EQ(patched.faceVertexCount(), built.faceVertexCount());
    EXPECT_LE(patched.faces().poolSize(), 2 * patched.faceVertexCount());
    for (int32_t f = 0; f < kFaces; ++f) {
        ASSERT_EQ(patched.faces().faceLoopCount(f), 4);
        for (int32_t l = 0; l < 4; ++l)
            ASSERT_EQ(loopPoints(patched, f, l), loopPoints(built, f, l)) << "face " << f << " loop " << l;
        const auto faceUvs = patched.faceUvIds("map1", f);
        ASSERT_EQ(faceUvs.size(), 16u);
        EXPECT_EQ(faceUvs[0], 4 * f);
        EXPECT_EQ(faceUvs[3], 4 * f + 3);
        EXPECT_EQ(faceUvs[4], UvSet::kNoUv);
        std::vector<Vector3> normals;
        ASSERT_EQ(patched.faceVertexNormals(f, normals), Status::Success);
        EXPECT_EQ(normals[3], (Vector3{1, 0, 0}));
        EXPECT_EQ(normals[15], (Vector3{0, 0, 1}));
    }
    std::vector<int32_t> ordered;
    ASSERT_EQ(patched.faceVertexUvIds("map1", ordered), Status::Success);
    EXPECT_EQ(ordered[16], 4);
    EXPECT_EQ(patched.normals()[16], (Vector3{1, 0, 0}));
    EXPECT_EQ(patched.holes().info.size(), 9u * kFaces);
    EXPECT_EQ(patched.edgeCount(), built.edgeCount());
    EXPECT_NEAR(*patched.triangulatedArea(kFaces - 1), 0.88, 1e-12);
}

TEST(FaceHoles, HoleAddedAfterItsFaceReusesCoincidentVertices) {
    // The way cap holes are re-inserted into an extruded mesh: the hole's points already exist
    // as vertices of the wall, and merging ties the cap to them.
    Mesh mesh;
    const auto outer = square(0, 0, 10);
    const auto hole = reversed(square(3, 3, 4));
    ASSERT_EQ(mesh.create(concat({outer, hole}), std::vector<int32_t>{4, 4},
                          std::vector<int32_t>{0, 1, 2, 3, 4, 5, 6, 7}),
              Status::Success);
    ASSERT_EQ(mesh.addHoles(0, hole, std::vector<int32_t>{4}, true, 1e-10), Status::Success);

    EXPECT_EQ(mesh.vertexCount(), 8);
    EXPECT_EQ(mesh.holes().vertices, (std::vector<int32_t>{4, 5, 6, 7}));
    EXPECT_EQ(mesh.faces().faceLoopCount(0), 2);
    EXPECT_NEAR(*mesh.triangulatedArea(0), 84.0, 1e-12);
}

TEST(FaceHoles, TriangulationIsRebuiltForNewTopologyOnly) {
    Mesh mesh;
    addFace(mesh, {square(0, 0, 10), reversed(square(3, 3, 4))});
    const auto before = mesh.triangulation();
    const auto topologyBefore = mesh.topology();

    std::vector<Point3> moved(mesh.points().begin(), mesh.points().end());
    for (Point3& p : moved)
        p.z += 5.0;
    const uint64_t topologyVersion = mesh.topologyVersion();
    const uint64_t geometryVersion = mesh.geometryVersion();
    ASSERT_EQ(mesh.setPoints(moved), Status::Success);
    EXPECT_EQ(mesh.topologyVersion(), topologyVersion);
    EXPECT_NE(mesh.geometryVersion(), geometryVersion);
    EXPECT_EQ(mesh.triangulation(), before);
    EXPECT_EQ(mesh.topology(), topologyBefore);

    ASSERT_EQ(mesh.addHoles(0, reversed(square(8, 8, 1)), std::vector<int32_t>{4}, false, 0.0),
              Status::Success);
    EXPECT_NE(mesh.triangulation(), before);
    // 12 vertices and 2 holes: n + 2h - 2 triangles.
    EXPECT_EQ(mesh.triangulation()->faceTriangles(0).size(), 14u);
}

TEST(FaceHoles, CopiesShareCachesButNotChanges) {
    Mesh mesh;
    addFace(mesh, {square(0, 0, 10), reversed(square(3, 3, 4))});
    const auto triangles = mesh.triangulation();

    Mesh copy = mesh;
    EXPECT_EQ(copy.triangulation(), triangles);
    ASSERT_EQ(copy.addHoles(0, reversed(square(8, 8, 1)), std::vector<int32_t>{4}, false, 0.0),
              Status::Success);
    EXPECT_EQ(mesh.holes().info.size(), 3u);
    EXPECT_EQ(copy.holes().info.size(), 6u);
    EXPECT_EQ(mesh.triangulation(), triangles);
}

} // namespace
} // namespace oz::mesh
