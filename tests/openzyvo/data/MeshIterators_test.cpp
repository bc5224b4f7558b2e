#include "MeshFixtures.h"

#include <OpenZyvo/ZItGeometry.h>
#include <OpenZyvo/ZItMeshEdge.h>
#include <OpenZyvo/ZItMeshPolygon.h>
#include <OpenZyvo/ZItMeshVertex.h>
#include <deque>
#include <gtest/gtest.h>
#include <vector>

TEST(ItMeshVertex, WalksACubeWithStableNeighbourLists) {
    const ZObject cube = fixtures::cube();
    ZItMeshVertex it(cube);
    EXPECT_EQ(it.count(), 8);
    int visited = 0;
    for (; !it.isDone(); it.next())
        EXPECT_EQ(it.index(), visited++);
    EXPECT_EQ(visited, 8);
    ZStatus status;
    it.position(ZSpace::kObject, &status);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);

    it.reset();
    ZIntArray vertices, faces, edges;
    ASSERT_TRUE(it.getConnectedVertices(vertices));
    ASSERT_TRUE(it.getConnectedFaces(faces));
    ASSERT_TRUE(it.getConnectedEdges(edges));
    EXPECT_EQ(vertices, (ZIntArray{3, 1, 4}));
    EXPECT_EQ(faces, (ZIntArray{0, 2, 5}));
    EXPECT_EQ(edges, (ZIntArray{0, 3, 9}));
    EXPECT_FALSE(it.onBoundary());

    // A second iterator over a copy of the data sees the same order.
    const ZObject copy = ZFnMeshData().create();
    ZFnMesh().copy(cube, copy);
    ZItMeshVertex other(copy);
    ZIntArray again;
    other.getConnectedVertices(again);
    EXPECT_EQ(again, vertices);

    int previous = -1;
    ASSERT_TRUE(it.setIndex(6, previous));
    EXPECT_EQ(previous, 0);
    EXPECT_EQ(it.position(), ZPoint(1, 1, 1));
    ZVector normal;
    ASSERT_TRUE(it.getNormal(normal));
    EXPECT_TRUE(normal.isEquivalent(ZVector(1, 1, 1).normal(), 1e-12));
    EXPECT_EQ(it.setIndex(8, previous), ZStatus::kInvalidParameter);
    EXPECT_EQ(it.index(), 6);

    ASSERT_TRUE(it.setPosition(ZPoint(2, 2, 2)));
    ZPoint moved;
    ZFnMesh(cube).getPoint(6, moved);
    EXPECT_EQ(moved, ZPoint(2, 2, 2));
}

TEST(ItMeshVertex, BreadthFirstWalkStaysInItsPiece) {
    ZItMeshVertex it(fixtures::twoSquares());
    std::vector<int> reached;
    std::vector<bool> seen(static_cast<size_t>(it.count()), false);
    std::deque<int> queue{0};
    seen[0] = true;
    while (!queue.empty()) {
        const int v = queue.front();
        queue.pop_front();
        reached.push_back(v);
        int previous;
        ASSERT_TRUE(it.setIndex(v, previous));
        ZIntArray next;
        it.getConnectedVertices(next);
        for (const int n : next) {
            if (!seen[static_cast<size_t>(n)]) {
                seen[static_cast<size_t>(n)] = true;
                queue.push_back(n);
            }
        }
    }
    EXPECT_EQ(reached, (std::vector<int>{0, 1, 3, 2}));
    EXPECT_TRUE(it.onBoundary());
}

TEST(ItMeshEdge, EdgesOfACubeAndOfOpenPieces) {
    ZItMeshEdge it(fixtures::cube());
    EXPECT_EQ(it.count(), 12);
    for (; !it.isDone(); it.next()) {
        int faceCount = 0;
        it.numConnectedFaces(faceCount);
        EXPECT_EQ(faceCount, 2);
    }
    it.reset();
    EXPECT_EQ(it.index(0), 0);
    EXPECT_EQ(it.index(1), 3);
    EXPECT_EQ(it.point(1), ZPoint(0, 1, 0));
    EXPECT_EQ(it.center(), ZPoint(0, 0.5, 0));
    EXPECT_DOUBLE_EQ(it.length(), 1.0);
    ZIntArray faces, edges;
    it.getConnectedFaces(faces);
    EXPECT_EQ(faces, (ZIntArray{0, 5}));
    it.getConnectedEdges(edges);
    EXPECT_EQ(edges.length(), 4u);
    EXPECT_TRUE(std::is_sorted(edges.begin(), edges.end()));
    EXPECT_EQ(std::count(edges.begin(), edges.end(), 0), 0);

    ZStatus status;
    it.index(2, &status);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);

    ZItMeshEdge open(fixtures::twoSquares());
    EXPECT_EQ(open.count(), 8);
    EXPECT_TRUE(open.onBoundary());
}

TEST(ItMeshPolygon, FacesOfACube) {
    const ZObject cube = fixtures::cube();
    ZFnMesh(cube).setVertexColor(ZColor(0, 0, 1), 4);
    ZItMeshPolygon it(cube);
    EXPECT_EQ(it.count(), 6);
    int previous;
    ASSERT_TRUE(it.setIndex(1, previous));

    ZIntArray vertices, edges, faces;
    it.getVertices(vertices);
    EXPECT_EQ(vertices, (ZIntArray{4, 5, 6, 7}));
    EXPECT_EQ(it.polygonVertexCount(), 4);
    EXPECT_EQ(it.vertexIndex(2), 6);
    EXPECT_EQ(it.point(2), ZPoint(1, 1, 1));
    it.getEdges(edges);
    EXPECT_EQ(edges, (ZIntArray{4, 5, 6, 7}));
    it.getConnectedFaces(faces);
    EXPECT_EQ(faces, (ZIntArray{2, 3, 4, 5}));
    ZVector normal;
    it.getNormal(normal);
    EXPECT_TRUE(normal.isEquivalent(ZVector(0, 0, 1)));
    EXPECT_EQ(it.center(), ZPoint(0.5, 0.5, 1));
    int triangles = 0;
    it.numTriangles(triangles);
    EXPECT_EQ(triangles, 2);

    ZColor color(1, 1, 1);
    EXPECT_TRUE(it.hasColor());
    ASSERT_TRUE(it.getColor(color));
    EXPECT_EQ(color, ZColor(0, 0, 1));
    it.setIndex(0, previous);
    color = ZColor(1, 1, 1);
    EXPECT_FALSE(it.hasColor());
    EXPECT_EQ(it.getColor(color), ZStatus::kNotFound);
    EXPECT_EQ(color, ZColor(1, 1, 1));

    ZStatus status;
    it.vertexIndex(4, &status);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
}

TEST(ItMeshPolygon, HolesFollowTheOuterLoop) {
    ZPointArray points = fixtures::square(0, 0, 4);
    fixtures::append(points, fixtures::square(1, 1, 1));
    const ZObject data = ZFnMeshData().create();
    ZFnMesh().addPolygon(points, ZIntArray{4, 4}, false, 1e-10, data);

    ZItMeshPolygon it(data);
    EXPECT_EQ(it.polygonVertexCount(), 8);
    ZIntArray edges;
    it.getEdges(edges);
    EXPECT_EQ(edges.length(), 8u);
    EXPECT_EQ(it.center(), ZPoint(2, 2, 0));
}

TEST(ItGeometry, AllPositionsAtOnceAndOneByOne) {
    const ZObject cube = fixtures::cube();
    ZItGeometry it(cube);
    ZPointArray points;
    ASSERT_TRUE(it.allPositions(points));
    ASSERT_EQ(points.length(), 8u);
    for (ZPoint& p : points)
        p.x += 10.0;
    ASSERT_TRUE(it.setAllPositions(points));

    ZPointArray moved;
    ZFnMesh(cube).getPoints(moved);
    EXPECT_EQ(moved[6], ZPoint(11, 1, 1));

    points.remove(0);
    EXPECT_EQ(it.setAllPositions(points), ZStatus::kInvalidParameter);
    ZFnMesh(cube).getPoints(moved);
    EXPECT_EQ(moved[0], ZPoint(10, 0, 0));

    int visited = 0;
    for (it.reset(); !it.isDone(); it.next()) {
        ++visited;
        it.setPosition(it.position() + ZVector(0, 0, 1));
    }
    EXPECT_EQ(visited, 8);
    ZFnMesh(cube).getPoints(moved);
    EXPECT_EQ(moved[0], ZPoint(10, 0, 1));
}

// Enough points for the conversions to run in several blocks at once.
TEST(ItGeometry, AllPositionsOfALargeMeshKeepTheirOrderAndTheCallersArray) {
    constexpr int kTriangles = 30000;
    ZPointArray corners;
    ZIntArray counts;
    ZIntArray connects;
    for (int t = 0; t < kTriangles; ++t) {
        for (int c = 0; c < 3; ++c) {
            connects.append(3 * t + c);
            corners.append(ZPoint(t, c, 0.5 * t));
        }
        counts.append(3);
    }
    const ZObject data = ZFnMeshData().create();
    ASSERT_FALSE(ZFnMesh().create(3 * kTriangles, kTriangles, corners, counts, connects, data).isNull());

    ZItGeometry it(data);
    ZPointArray points(7, ZPoint(-1, -1, -1));
    ASSERT_TRUE(it.allPositions(points));
    ASSERT_EQ(points.length(), corners.length());
    for (unsigned int i = 0; i < points.length(); ++i)
        ASSERT_EQ(points[i], corners[i]) << i;

    for (ZPoint& p : points)
        p.y += 100.0;
    ASSERT_TRUE(it.setAllPositions(points));
    // The same array again, of the right size already: every point is written anew.
    for (ZPoint& p : points)
        p = ZPoint(-5, -5, -5);
    ASSERT_TRUE(it.allPositions(points));
    for (unsigned int i = 0; i < points.length(); ++i)
        ASSERT_EQ(points[i], corners[i] + ZVector(0, 100, 0)) << i;
}

TEST(MeshIterators, RefuseObjectsThatAreNotMeshes) {
    ZStatus status;
    ZItMeshVertex vertices(ZObject(), &status);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
    EXPECT_TRUE(vertices.isDone());
    ZItGeometry geometry(ZFnMeshData().create(), &status);
    EXPECT_TRUE(status);
    EXPECT_TRUE(geometry.isDone());
    ZPointArray none;
    EXPECT_TRUE(geometry.allPositions(none));
    EXPECT_EQ(none.length(), 0u);
}

// Every mesh iterator walks the same way over its own kind of element.
template <class It, int Count> struct IteratorKind {
    using Iterator = It;
    static constexpr int count = Count;
};

template <class Kind> class MeshIteratorCursor : public ::testing::Test {};

using AllMeshIterators = ::testing::Types<IteratorKind<ZItGeometry, 8>, IteratorKind<ZItMeshVertex, 8>,
                                          IteratorKind<ZItMeshEdge, 12>, IteratorKind<ZItMeshPolygon, 6>>;
TYPED_TEST_SUITE(MeshIteratorCursor, AllMeshIterators);

TYPED_TEST(MeshIteratorCursor, WalksToTheCountStaysThereAndResets) {
    const ZObject cube = fixtures::cube();
    typename TypeParam::Iterator it(cube);
    ZStatus status;
    EXPECT_EQ(it.count(&status), TypeParam::count);
    EXPECT_TRUE(status);
    int steps = 0;
    for (; !it.isDone(); it.next())
        EXPECT_EQ(it.index(), steps++);
    EXPECT_EQ(steps, TypeParam::count);

    EXPECT_TRUE(it.next()) << "next() at the end is harmless";
    EXPECT_EQ(it.index(&status), TypeParam::count);
    EXPECT_TRUE(status);
    EXPECT_TRUE(it.isDone());

    EXPECT_TRUE(it.reset());
    EXPECT_EQ(it.index(), 0);
    EXPECT_FALSE(it.isDone());
}
