#include "MeshTestShapes.h"

#include <gtest/gtest.h>

namespace oz::mesh {
namespace {

using namespace test;

class RayIntersectionTest : public ::testing::Test {
protected:
    void SetUp() override {
        // Face 0: a 10 x 10 square at z = 0 with a 4 x 4 hole; face 1: a square at z = 5 above it.
        addFace(mesh, {square(0, 0, 10), reversed(square(3, 3, 4))});
        std::vector<Point3> upper = square(0, 0, 10);
        for (Point3& p : upper)
            p.z = 5.0;
        addFace(mesh, {upper});
    }

    RayHit shoot(Point3 origin, Vector3 direction, double maxDistance = 1e8) {
        RayHit hit;
        EXPECT_EQ(mesh.closestIntersection({origin, direction}, maxDistance, 1e-6, hit), Status::Success);
        return hit;
    }

    Mesh mesh;
};

TEST_F(RayIntersectionTest, HitsTheNearestFace) {
    const RayHit hit = shoot({1, 2, -10}, {0, 0, 1});
    ASSERT_TRUE(hit.hit);
    EXPECT_EQ(hit.face, 0);
    EXPECT_NEAR(hit.distance, 10.0, 1e-12);
    EXPECT_NEAR(hit.point.x, 1.0, 1e-12);
    EXPECT_NEAR(hit.point.y, 2.0, 1e-12);
    EXPECT_NEAR(hit.point.z, 0.0, 1e-12);

    // The hit's triangle and barycentrics reproduce the hit point.
    const auto triangles = mesh.triangulation()->faceTriangles(hit.face);
    ASSERT_LT(hit.triangle, static_cast<int32_t>(triangles.size()));
    EXPECT_EQ(triangles[hit.triangle], hit.triangleVertices);
    Point3 p;
    for (int i = 0; i < 3; ++i)
        p += mesh.points()[hit.triangleVertices[i]] * hit.barycentric[i];
    EXPECT_NEAR(length(p - hit.point), 0.0, 1e-12);
}

TEST_F(RayIntersectionTest, PassesThroughTheHole) {
    const RayHit hit = shoot({5, 5, -10}, {0, 0, 1});
    ASSERT_TRUE(hit.hit);
    EXPECT_EQ(hit.face, 1);
    EXPECT_NEAR(hit.distance, 15.0, 1e-12);

    EXPECT_FALSE(shoot({5, 5, -10}, {0, 0, 1}, 14.0).hit);
}

TEST_F(RayIntersectionTest, StopsAtTheMaximumDistance) {
    EXPECT_FALSE(shoot({1, 1, -10}, {0, 0, 1}, 9.5).hit);
    EXPECT_TRUE(shoot({1, 1, -10}, {0, 0, 1}, 10.0).hit);
    // Faces behind the origin never count.
    EXPECT_FALSE(shoot({1, 1, 6}, {0, 0, 1}).hit);
}

TEST_F(RayIntersectionTest, BackFacesCountAndDirectionLengthDoesNot) {
    const RayHit hit = shoot({1, 1, 20}, {0, 0, -0.001});
    ASSERT_TRUE(hit.hit);
    EXPECT_EQ(hit.face, 1);
    EXPECT_NEAR(hit.distance, 15.0, 1e-9);
}

TEST_F(RayIntersectionTest, FollowsMovedPoints) {
    std::vector<Point3> moved(mesh.points().begin(), mesh.points().end());
    for (Point3& p : moved)
        p.x += 100.0;
    ASSERT_EQ(mesh.setPoints(moved), Status::Success);
    EXPECT_FALSE(shoot({1, 2, -10}, {0, 0, 1}).hit);
    EXPECT_EQ(shoot({101, 2, -10}, {0, 0, 1}).face, 0);
}

TEST_F(RayIntersectionTest, RejectsUnusableRays) {
    RayHit hit;
    EXPECT_EQ(mesh.closestIntersection({{0, 0, 0}, {0, 0, 0}}, 1.0, 0.0, hit), Status::InvalidArgument);
    EXPECT_EQ(mesh.closestIntersection({{0, 0, 0}, {0, 0, NAN}}, 1.0, 0.0, hit), Status::InvalidArgument);
    EXPECT_EQ(mesh.closestIntersection({{0, 0, 0}, {0, 0, 1}}, -1.0, 0.0, hit), Status::InvalidArgument);
    EXPECT_FALSE(hit.hit);
}

TEST(RayIntersection, EmptyMeshHasNoHit) {
    Mesh mesh;
    RayHit hit;
    EXPECT_EQ(mesh.closestIntersection({{0, 0, 0}, {1, 0, 0}}, 1e8, 1e-6, hit), Status::Success);
    EXPECT_FALSE(hit.hit);
}

} // namespace
} // namespace oz::mesh
