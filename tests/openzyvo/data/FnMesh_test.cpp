#include "MeshFixtures.h"
#include "data/MeshShapeCreator.h"

#include <OpenZyvo/ZFnIntArrayData.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZFnMeshData.h>
#include <cmath>
#include <gtest/gtest.h>

using fixtures::append;
using fixtures::square;

namespace {

// Sum of the areas of a mesh's triangles in the z = 0 plane.
double triangulatedArea(const ZFnMesh& mesh) {
    ZIntArray counts, ids;
    mesh.getTriangles(counts, ids);
    ZPointArray points;
    mesh.getPoints(points);
    double area = 0.0;
    for (unsigned int i = 0; i + 2 < ids.length(); i += 3) {
        const ZVector a = points[ids[i + 1]] - points[ids[i]];
        const ZVector b = points[ids[i + 2]] - points[ids[i]];
        area += 0.5 * std::abs((a ^ b).z);
    }
    return area;
}

} // namespace

TEST(FnMesh, FacesWithOneAndSeveralHolesReadBack) {
    ZFnMesh mesh;
    const ZObject data = ZFnMeshData().create();
    ASSERT_FALSE(mesh.create(0, 0, ZPointArray(), ZIntArray(), ZIntArray(), data).isNull());

    ZPointArray oneHole = square(0, 0, 10);
    append(oneHole, square(2, 2, 2));
    ZStatus status;
    EXPECT_EQ(mesh.addPolygon(oneHole, ZIntArray{4, 4}, false, 1e-10, data, &status), 0);
    ASSERT_TRUE(status);

    ZPointArray twoHoles = square(20, 0, 10);
    append(twoHoles, square(22, 2, 2));
    append(twoHoles, square(26, 6, 2));
    EXPECT_EQ(mesh.addPolygon(twoHoles, ZIntArray{4, 4, 4}, false, 1e-10, ZObject(), &status), 1);
    ASSERT_TRUE(status);

    EXPECT_EQ(mesh.numVertices(), 20);
    EXPECT_EQ(mesh.numPolygons(), 2);
    EXPECT_EQ(mesh.numFaceVertices(), 20);
    EXPECT_EQ(mesh.polygonVertexCount(1), 12);

    ZIntArray holeInfo, holeVertices;
    EXPECT_EQ(mesh.getHoles(holeInfo, holeVertices), 3);
    EXPECT_EQ(holeInfo, (ZIntArray{0, 4, 0, 1, 4, 4, 1, 4, 8}));
    EXPECT_EQ(holeVertices, (ZIntArray{4, 5, 6, 7, 12, 13, 14, 15, 16, 17, 18, 19}));

    ZIntArray vertices;
    ASSERT_TRUE(mesh.getPolygonVertices(1, vertices));
    EXPECT_EQ(vertices[0], 8);
    EXPECT_EQ(vertices[11], 19);
    EXPECT_NEAR(triangulatedArea(mesh), 96.0 + 92.0, 1e-9);
}

TEST(FnMesh, AddHolesCutsIntoAnExistingFace) {
    ZFnMesh mesh;
    const ZObject data = ZFnMeshData().create();
    const int face = mesh.addPolygon(square(0, 0, 4), false, 0.1, data);
    ASSERT_EQ(face, 0);

    ZPointArray holes = square(1, 1, 1);
    append(holes, square(2.5, 2.5, 1));
    ASSERT_TRUE(mesh.addHoles(face, holes, ZIntArray{4, 4}, true, 1e-10));

    ZIntArray holeInfo, holeVertices;
    EXPECT_EQ(mesh.getHoles(holeInfo, holeVertices), 2);
    EXPECT_EQ(holeInfo, (ZIntArray{0, 4, 0, 0, 4, 4}));
    EXPECT_EQ(mesh.polygonVertexCount(0), 12);
    EXPECT_NEAR(triangulatedArea(mesh), 14.0, 1e-9);

    EXPECT_EQ(mesh.addHoles(3, square(1, 1, 1), ZIntArray{4}), ZStatus::kInvalidParameter);
    EXPECT_EQ(mesh.addHoles(0, square(1, 1, 1), ZIntArray{5}), ZStatus::kInvalidParameter);
}

TEST(FnMesh, MergingSharesVerticesWithinTheTolerance) {
    ZFnMesh mesh;
    const ZObject data = ZFnMeshData().create();
    mesh.addPolygon(square(0, 0, 1), true, 1e-6, data);
    mesh.addPolygon(ZPointArray{{1, 0, 0}, {2, 0, 0}, {2, 1, 0}, {1, 1.0000001, 0}}, true, 1e-6);
    EXPECT_EQ(mesh.numVertices(), 6);
    EXPECT_EQ(mesh.numEdges(), 7);

    ZStatus status;
    EXPECT_EQ(
        mesh.addPolygon(ZPointArray{{0, 0, 0}, {1e-9, 0, 0}, {0, 1e-9, 0}}, true, 1e-6, ZObject(), &status),
        -1);
    EXPECT_EQ(status, ZStatus::kFailure);
    EXPECT_EQ(mesh.numPolygons(), 2);
}

TEST(FnMesh, BadArgumentsAndIndicesReturnStatuses) {
    // Without a shape creator a mesh can only be built into mesh data.
    const oz::MeshShapeCreator installed = oz::meshShapeCreator();
    oz::setMeshShapeCreator(nullptr);
    ZFnMesh empty;
    ZStatus status;
    EXPECT_EQ(empty.numVertices(&status), 0);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
    EXPECT_EQ(empty.setObject(ZFnIntArrayData().create()), ZStatus::kInvalidParameter);
    EXPECT_EQ(empty.addPolygon(square(0, 0, 1), true, 1e-10, ZObject(), &status), -1);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);

    const ZObject data = ZFnMeshData().create();
    ZFnMesh mesh;
    EXPECT_TRUE(
        mesh.create(3, 1, square(0, 0, 1), ZIntArray{4}, ZIntArray{0, 1, 2, 3}, data, &status).isNull());
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
    mesh.create(4, 1, square(0, 0, 1), ZIntArray{4}, ZIntArray{0, 1, 2, 7}, data, &status);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);
    mesh.addPolygon(square(0, 0, 1), ZIntArray{4, 4}, false, 0.0, data, &status);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);

    mesh.setObject(fixtures::cube());
    ZIntArray ids;
    int edge[2];
    int triangle[3];
    ZPoint p;
    ZVector n;
    EXPECT_EQ(mesh.getPolygonVertices(6, ids), ZStatus::kInvalidParameter);
    EXPECT_EQ(mesh.getEdgeVertices(12, edge), ZStatus::kInvalidParameter);
    EXPECT_EQ(mesh.getPolygonTriangleVertices(0, 2, triangle), ZStatus::kInvalidParameter);
    EXPECT_EQ(mesh.getPoint(-1, p), ZStatus::kInvalidParameter);
    EXPECT_EQ(mesh.setPoint(8, p), ZStatus::kInvalidParameter);
    EXPECT_EQ(mesh.getPolygonNormal(6, n), ZStatus::kInvalidParameter);
    EXPECT_EQ(mesh.getVertexNormal(8, true, n), ZStatus::kInvalidParameter);
    ZPointArray points;
    EXPECT_EQ(mesh.getPoints(points, ZSpace::kInvalid), ZStatus::kInvalidParameter);
    mesh.polygonVertexCount(-1, &status);
    EXPECT_EQ(status, ZStatus::kInvalidParameter);

    // A wrong point count moves nothing.
    EXPECT_EQ(mesh.setPoints(square(5, 5, 1)), ZStatus::kInvalidParameter);
    mesh.getPoint(1, p);
    EXPECT_EQ(p, ZPoint(1, 0, 0));
    oz::setMeshShapeCreator(installed);
}

TEST(FnMesh, PointsRoundTripInBothPrecisions) {
    ZFnMesh mesh(fixtures::cube());
    ZPointArray points;
    ASSERT_TRUE(mesh.getPoints(points));
    for (ZPoint& p : points)
        p = p + ZVector(0, 0, 2);
    ASSERT_TRUE(mesh.setPoints(points));
    ASSERT_TRUE(mesh.setPoint(6, ZPoint(2, 2, 4)));

    ZFloatPointArray floats;
    ASSERT_TRUE(mesh.getPoints(floats, ZSpace::kWorld));
    EXPECT_EQ(floats[0], ZFloatPoint(0, 0, 2));
    EXPECT_EQ(floats[6], ZFloatPoint(2, 2, 4));
    int edge[2];
    ASSERT_TRUE(mesh.getEdgeVertices(0, edge));
    EXPECT_EQ(edge[0], 0);
    EXPECT_EQ(edge[1], 3);
}

// Long arrays are converted on all cores, in slices: every point must still land at its index.
TEST(FnMesh, LongPointArraysRoundTripInBothPrecisions) {
    constexpr int kQuads = 30000;
    ZPointArray points;
    ZIntArray counts;
    ZIntArray connects;
    for (int i = 0; i <= kQuads; ++i) {
        points.append(ZPoint(i, 0, 0.5 * i));
        points.append(ZPoint(i, 1, -0.25 * i));
    }
    for (int i = 0; i < kQuads; ++i) {
        counts.append(4);
        for (const int v : {2 * i, 2 * i + 2, 2 * i + 3, 2 * i + 1})
            connects.append(v);
    }
    ZFnMesh mesh;
    const ZObject data = ZFnMeshData().create();
    ASSERT_FALSE(
        mesh.create(static_cast<int>(points.length()), kQuads, points, counts, connects, data).isNull());
    ZPointArray back;
    ASSERT_TRUE(mesh.getPoints(back));
    EXPECT_EQ(back, points);
    ZFloatPointArray floats;
    ASSERT_TRUE(mesh.getPoints(floats));
    ASSERT_EQ(floats.length(), points.length());
    for (unsigned int i = 0; i < points.length(); i += 977)
        EXPECT_EQ(floats[i], ZFloatPoint(points[i])) << i;
}

TEST(FnMesh, NormalsAreOnePerFaceVertexAndRoundTrip) {
    ZFnMesh mesh(fixtures::cube());
    ZVector n;
    ASSERT_TRUE(mesh.getPolygonNormal(0, n));
    EXPECT_TRUE(n.isEquivalent(ZVector(0, 0, -1)));
    ASSERT_TRUE(mesh.getVertexNormal(0, true, n));
    EXPECT_TRUE(n.isEquivalent(ZVector(-1, -1, -1).normal(), 1e-12));

    ASSERT_EQ(mesh.numNormals(), 24);
    ZFloatVectorArray normals;
    ASSERT_TRUE(mesh.getNormals(normals));
    EXPECT_EQ(normals[4], ZFloatVector(0, 0, 1));

    ZFloatVectorArray up(static_cast<unsigned int>(mesh.numNormals()), ZFloatVector(0, 0, 1));
    up[0] = ZFloatVector(0, 1, 0);
    ASSERT_TRUE(mesh.setNormals(up));
    ZFloatVectorArray faceNormals;
    ASSERT_TRUE(mesh.getFaceVertexNormals(0, faceNormals));
    EXPECT_EQ(faceNormals, (ZFloatVectorArray{{0, 1, 0}, {0, 0, 1}, {0, 0, 1}, {0, 0, 1}}));
    ASSERT_TRUE(mesh.getNormals(normals));
    EXPECT_EQ(normals, up);
    // Vertex 3 has face-vertices in three faces, all of them now +z.
    ASSERT_TRUE(mesh.getVertexNormal(3, false, n));
    EXPECT_TRUE(n.isEquivalent(ZVector(0, 0, 1)));

    up.remove(0);
    EXPECT_EQ(mesh.setNormals(up), ZStatus::kInvalidParameter);
    EXPECT_EQ(mesh.getFaceVertexNormals(6, faceNormals), ZStatus::kInvalidParameter);
}

TEST(FnMesh, VertexColoursRoundTrip) {
    ZFnMesh mesh(fixtures::cube());
    EXPECT_FALSE(mesh.hasColor());
    const ZColor red(1, 0, 0), green(0, 1, 0, 0.5f);
    ASSERT_TRUE(mesh.setVertexColors(ZColorArray{red, green}, ZIntArray{0, 5}));
    ASSERT_TRUE(mesh.setVertexColor(red, 7));
    EXPECT_TRUE(mesh.hasColor());

    ZColorArray colors;
    ASSERT_TRUE(mesh.getVertexColors(colors));
    ASSERT_EQ(colors.length(), 8u);
    EXPECT_EQ(colors[0], red);
    EXPECT_EQ(colors[5], green);
    EXPECT_EQ(colors[7], red);
    EXPECT_EQ(colors[1], ZColor(-1, -1, -1, -1));
    const ZColor white(1, 1, 1);
    mesh.getVertexColors(colors, &white);
    EXPECT_EQ(colors[1], white);

    EXPECT_EQ(mesh.setVertexColor(red, 8), ZStatus::kInvalidParameter);
    EXPECT_EQ(mesh.setVertexColors(ZColorArray{red}, ZIntArray{0, 1}), ZStatus::kInvalidParameter);
}

TEST(FnMesh, UvsRoundTripInTheDefaultSet) {
    ZFnMesh mesh(fixtures::twoSquares());
    EXPECT_EQ(mesh.currentUVSetName(), "map1");
    EXPECT_EQ(mesh.numUVs(), 0);

    ASSERT_TRUE(mesh.setUVs(ZFloatArray{0, 1, 1, 0}, ZFloatArray{0, 0, 1, 1}));
    ASSERT_TRUE(mesh.assignUVs(ZIntArray{4, 0}, ZIntArray{0, 1, 2, 3}));
    EXPECT_EQ(mesh.numUVs(), 4);

    ZIntArray counts, ids;
    ASSERT_TRUE(mesh.getAssignedUVs(counts, ids));
    EXPECT_EQ(counts, (ZIntArray{4, 0}));
    EXPECT_EQ(ids, (ZIntArray{0, 1, 2, 3}));
    ZFloatArray u, v;
    ASSERT_TRUE(mesh.getUVs(u, v));
    EXPECT_EQ(v, (ZFloatArray{0, 0, 1, 1}));

    EXPECT_EQ(mesh.assignUVs(ZIntArray{3, 0}, ZIntArray{0, 1, 2}), ZStatus::kInvalidParameter);
    EXPECT_EQ(mesh.assignUVs(ZIntArray{4, 0}, ZIntArray{0, 1, 2, 9}), ZStatus::kInvalidParameter);
    EXPECT_EQ(mesh.assignUVs(ZIntArray{4}, ZIntArray{0, 1, 2, 3}), ZStatus::kInvalidParameter);
    EXPECT_EQ(mesh.setUVs(ZFloatArray{0}, ZFloatArray{0, 1}), ZStatus::kInvalidParameter);
    const ZString other("other");
    EXPECT_EQ(mesh.getUVs(u, v, &other), ZStatus::kNotFound);
    ASSERT_TRUE(mesh.createUVSet(other));
    ZStringArray names;
    mesh.getUVSetNames(names);
    EXPECT_EQ(names, (ZStringArray{"map1", "other"}));
}

// Holes put into the first face move its face-vertices behind the second's in the mesh's own
// storage: uv ids given for every face must still land on the face-vertices they are given for.
TEST(FnMesh, UvIdsOfEveryFaceFollowTheFacesAfterHolesMovedThem) {
    ZFnMesh mesh(fixtures::twoSquares());
    ASSERT_TRUE(mesh.addHoles(0, square(0.25, 0.25, 0.5), ZIntArray{4}, true, 1e-10));
    ASSERT_EQ(mesh.polygonVertexCount(0), 8);
    ASSERT_TRUE(mesh.setUVs(ZFloatArray(12, 0.5f), ZFloatArray(12, 0.5f)));
    const ZIntArray given{0, 1, 2, 3, 4, 5, 6, 7, 11, 10, 9, 8};
    ASSERT_TRUE(mesh.assignUVs(ZIntArray{8, 4}, given));

    ZIntArray counts, ids;
    ASSERT_TRUE(mesh.getAssignedUVs(counts, ids));
    EXPECT_EQ(counts, (ZIntArray{8, 4}));
    EXPECT_EQ(ids, given);

    EXPECT_EQ(mesh.assignUVs(ZIntArray{8, 4}, ZIntArray{0, 1, 2, 3, 4, 5, 6, 7, 11, 10, 9, 12}),
              ZStatus::kInvalidParameter);
    ASSERT_TRUE(mesh.getAssignedUVs(counts, ids));
    EXPECT_EQ(ids, given);
}

TEST(FnMesh, CreateKeepsTheDataGroupsAndRebuildsTheRest) {
    const ZObject data = fixtures::cube();
    ZFnMeshData(data).addObjectGroup(4);
    ZFnMesh mesh(data);
    mesh.setVertexColor(ZColor(1, 0, 0), 0);
    ASSERT_FALSE(mesh.create(4, 1, square(0, 0, 1), ZIntArray{4}, ZIntArray{0, 1, 2, 3}, data).isNull());
    EXPECT_EQ(mesh.numVertices(), 4);
    EXPECT_FALSE(mesh.hasColor());
    EXPECT_TRUE(ZFnMeshData(data).hasObjectGroup(4));
}
