#include "MeshFixtures.h"

#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZFnMeshData.h>
#include <gtest/gtest.h>

using fixtures::append;
using fixtures::square;

namespace {

struct Hit {
    bool hit = false;
    ZFloatPoint point;
    float param = 0.0f;
    int face = -1;
    int triangle = -1;
    float bary1 = 0.0f;
    float bary2 = 0.0f;
    ZStatus status;
};

Hit cast(const ZFnMesh& mesh, ZFloatPoint from, ZFloatVector direction, float maxParam = 1e8f,
         bool bothDirections = false, const ZIntArray* faceIds = nullptr, const ZIntArray* triIds = nullptr,
         ZSpace::Space space = ZSpace::kWorld) {
    Hit h;
    h.hit = mesh.closestIntersection(from, direction, faceIds, triIds, false, space, maxParam, bothDirections,
                                     nullptr, h.point, &h.param, &h.face, &h.triangle, &h.bary1, &h.bary2,
                                     1e-6f, &h.status);
    return h;
}

// A 10 x 10 face at z = 0 with a 2 x 2 hole in its middle.
ZObject faceWithHole() {
    ZPointArray points = square(0, 0, 10);
    append(points, square(4, 4, 2));
    const ZObject data = ZFnMeshData().create();
    ZFnMesh().addPolygon(points, ZIntArray{4, 4}, false, 1e-10, data);
    return data;
}

} // namespace

TEST(ClosestIntersection, ARayThroughAHoleMissesAndOneBesideItHits) {
    const ZFnMesh mesh(faceWithHole());
    const Hit through = cast(mesh, {5, 5, 5}, {0, 0, -1});
    EXPECT_TRUE(through.status);
    EXPECT_FALSE(through.hit);

    const Hit beside = cast(mesh, {1, 2, 5}, {0, 0, -2});
    ASSERT_TRUE(beside.hit);
    EXPECT_EQ(beside.face, 0);
    EXPECT_FLOAT_EQ(beside.param, 2.5f);
    EXPECT_TRUE(beside.point.isEquivalent(ZFloatPoint(1, 2, 0)));

    // The barycentric weights rebuild the hit from the hit triangle's corners.
    int corners[3];
    ASSERT_TRUE(mesh.getPolygonTriangleVertices(beside.face, beside.triangle, corners));
    ZPointArray points;
    mesh.getPoints(points);
    const double b3 = 1.0 - beside.bary1 - beside.bary2;
    const ZPoint rebuilt(beside.bary1 * points[corners[0]].x + beside.bary2 * points[corners[1]].x +
                             b3 * points[corners[2]].x,
                         beside.bary1 * points[corners[0]].y + beside.bary2 * points[corners[1]].y +
                             b3 * points[corners[2]].y);
    EXPECT_TRUE(rebuilt.isEquivalent(ZPoint(1, 2, 0), 1e-5));
}

TEST(ClosestIntersection, MaxParamAndTheBackwardDirection) {
    const ZFnMesh mesh(faceWithHole());
    EXPECT_FALSE(cast(mesh, {1, 1, 5}, {0, 0, -1}, 4.0f).hit);
    EXPECT_TRUE(cast(mesh, {1, 1, 5}, {0, 0, -1}, 5.0f).hit);

    EXPECT_FALSE(cast(mesh, {1, 1, -3}, {0, 0, -1}).hit);
    const Hit behind = cast(mesh, {1, 1, -3}, {0, 0, -1}, 1e8f, true);
    ASSERT_TRUE(behind.hit);
    EXPECT_FLOAT_EQ(behind.param, -3.0f);
}

TEST(ClosestIntersection, FaceAndTriangleListsLimitTheSearch) {
    const ZFnMesh mesh(fixtures::twoSquares());
    const Hit all = cast(mesh, {3.25f, 0.5f, 1}, {0, 0, -1});
    ASSERT_TRUE(all.hit);
    EXPECT_EQ(all.face, 1);

    const ZIntArray firstOnly{0};
    EXPECT_FALSE(cast(mesh, {3.25f, 0.5f, 1}, {0, 0, -1}, 1e8f, false, &firstOnly).hit);

    const ZIntArray secondFace{1};
    const ZIntArray otherTriangle{1 - all.triangle};
    const ZIntArray sameTriangle{all.triangle};
    EXPECT_FALSE(cast(mesh, {3.25f, 0.5f, 1}, {0, 0, -1}, 1e8f, false, &secondFace, &otherTriangle).hit);
    const Hit limited = cast(mesh, {3.25f, 0.5f, 1}, {0, 0, -1}, 1e8f, false, &secondFace, &sameTriangle);
    ASSERT_TRUE(limited.hit);
    EXPECT_EQ(limited.face, 1);
    EXPECT_EQ(limited.triangle, all.triangle);
}

TEST(ClosestIntersection, BadArgumentsFail) {
    const ZFnMesh mesh(fixtures::twoSquares());
    const ZIntArray badFace{2};
    const ZIntArray badTriangle{5};
    const ZIntArray face{0};
    EXPECT_EQ(cast(mesh, {0, 0, 1}, {0, 0, -1}, 1e8f, false, &badFace).status, ZStatus::kInvalidParameter);
    EXPECT_EQ(cast(mesh, {0, 0, 1}, {0, 0, -1}, 1e8f, false, &face, &badTriangle).status,
              ZStatus::kInvalidParameter);
    EXPECT_EQ(cast(mesh, {0, 0, 1}, {0, 0, -1}, 1e8f, false, nullptr, &face).status,
              ZStatus::kInvalidParameter);
    EXPECT_EQ(cast(mesh, {0, 0, 1}, {0, 0, 0}).status, ZStatus::kInvalidParameter);
    EXPECT_EQ(cast(mesh, {0, 0, 1}, {0, 0, -1}, -1.0f).status, ZStatus::kInvalidParameter);
    EXPECT_EQ(cast(mesh, {0, 0, 1}, {0, 0, -1}, 1e8f, false, nullptr, nullptr, ZSpace::kInvalid).status,
              ZStatus::kInvalidParameter);
}
