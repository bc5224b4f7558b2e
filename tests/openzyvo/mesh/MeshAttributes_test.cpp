#include "MeshTestShapes.h"

#include <gtest/gtest.h>
#include <numeric>

namespace oz::mesh {
namespace {

using namespace test;

void expectNear(Vector3 a, Vector3 b) {
    EXPECT_LT(length(a - b), 1e-12) << a.x << " " << a.y << " " << a.z;
}

TEST(MeshCreate, RejectsBadConnectsAndKeepsTheOldMesh) {
    Mesh mesh = cube();
    const auto points = square(0, 0, 1);
    EXPECT_EQ(mesh.create(points, std::vector<int32_t>{4}, std::vector<int32_t>{0, 1, 2}),
              Status::SizeMismatch);
    EXPECT_EQ(mesh.create(points, std::vector<int32_t>{4}, std::vector<int32_t>{0, 1, 2, 4}),
              Status::InvalidIndex);
    EXPECT_EQ(mesh.create(points, std::vector<int32_t>{4}, std::vector<int32_t>{0, 1, 1, 2}),
              Status::DegenerateLoop);
    EXPECT_EQ(mesh.create(points, std::vector<int32_t>{2, 2}, std::vector<int32_t>{0, 1, 2, 3}),
              Status::InvalidArgument);
    EXPECT_EQ(mesh.vertexCount(), 8);
    EXPECT_EQ(mesh.faceCount(), 6);

    ASSERT_EQ(mesh.create(std::vector<Point3>{}, {}, {}), Status::Success);
    EXPECT_EQ(mesh.vertexCount(), 0);
    EXPECT_EQ(mesh.edgeCount(), 0);
    EXPECT_TRUE(mesh.boundingBox().empty());
}

// Large meshes are laid out and checked block by block on all cores; the status must still be
// that of the first bad loop, wherever the blocks split the faces.
TEST(MeshCreate, LargeMeshesAreLaidOutWholeAndNameTheirFirstBadLoop) {
    constexpr int32_t kQuads = 40000;
    std::vector<Point3> points(2 * (kQuads + 1));
    std::vector<int32_t> counts(kQuads, 4);
    std::vector<int32_t> connects;
    for (int32_t q = 0; q < kQuads; ++q)
        connects.insert(connects.end(), {2 * q, 2 * q + 2, 2 * q + 3, 2 * q + 1});

    Mesh mesh;
    ASSERT_EQ(mesh.create(points, counts, connects), Status::Success);
    ASSERT_EQ(mesh.faceCount(), kQuads);
    for (const int32_t f : {0, 8191, 8192, kQuads - 1}) {
        const auto loop = mesh.outerLoop(f);
        EXPECT_EQ(std::vector<int32_t>(loop.begin(), loop.end()),
                  std::vector<int32_t>(connects.begin() + 4 * f, connects.begin() + 4 * f + 4));
    }

    auto broken = connects;
    broken[4 * 30000 + 2] = broken[4 * 30000 + 1];
    EXPECT_EQ(mesh.create(points, counts, broken), Status::DegenerateLoop);
    broken[4 * 20000] = static_cast<int32_t>(points.size());
    EXPECT_EQ(mesh.create(points, counts, broken), Status::InvalidIndex);
    broken = connects;
    broken[4 * 9000 + 3] = broken[4 * 9000];
    EXPECT_EQ(mesh.create(points, counts, broken), Status::DegenerateLoop);
    counts[35000] = 2;
    EXPECT_EQ(mesh.create(points, counts, connects), Status::InvalidArgument);
    EXPECT_EQ(mesh.faceCount(), kQuads);

    // A face may start on the vertex the face before it ended on.
    std::vector<int32_t> chain;
    for (int32_t t = 0; t < kQuads; ++t)
        chain.insert(chain.end(), {2 * t, 2 * t + 1, 2 * t + 2});
    ASSERT_EQ(mesh.create(std::vector<Point3>(2 * kQuads + 1), std::vector<int32_t>(kQuads, 3), chain),
              Status::Success);
    chain[3 * 25000 + 1] = chain[3 * 25000];
    EXPECT_EQ(mesh.create(std::vector<Point3>(2 * kQuads + 1), std::vector<int32_t>(kQuads, 3), chain),
              Status::DegenerateLoop);
}

TEST(MeshPoints, GetSetAndBounds) {
    Mesh mesh = cube({1, 2, 3});
    EXPECT_EQ(*mesh.point(7), (Point3{2, 3, 4}));
    EXPECT_FALSE(mesh.point(8));
    EXPECT_EQ(mesh.setPoint(8, {}), Status::InvalidIndex);
    EXPECT_EQ(mesh.setPoints(std::vector<Point3>(7)), Status::SizeMismatch);
    ASSERT_EQ(mesh.setPoint(0, {-1, 0, 0}), Status::Success);
    const BoundingBox box = mesh.boundingBox();
    EXPECT_EQ(box.min, (Point3{-1, 0, 0}));
    EXPECT_EQ(box.max, (Point3{2, 3, 4}));
}

TEST(MeshNormals, FaceAndAngleWeightedVertexNormals) {
    const Mesh mesh = cube();
    expectNear(*mesh.faceNormal(0), {0, 0, -1});
    expectNear(*mesh.faceNormal(5), {1, 0, 0});
    const double c = 1.0 / std::sqrt(3.0);
    expectNear(*mesh.vertexNormal(0), {-c, -c, -c});
    expectNear(mesh.vertexNormals()[7], {c, c, c});

    // Cutting the top face into two triangles leaves every vertex normal as it was: the weight is
    // the corner angle, which the cut only splits.
    std::vector<int32_t> connects{0, 2, 3, 1, 4, 5, 7, 4, 7, 6, 0, 1, 5,
                                  4, 2, 6, 7, 3, 0, 4, 6, 2, 1, 3, 7, 5};
    Mesh cut;
    ASSERT_EQ(cut.create(mesh.points(), std::vector<int32_t>{4, 3, 3, 4, 4, 4, 4}, connects),
              Status::Success);
    for (int32_t v = 0; v < 8; ++v)
        expectNear(cut.vertexNormals()[v], mesh.vertexNormals()[v]);
    expectNear(*cut.vertexNormal(5), mesh.vertexNormals()[5]);
}

TEST(MeshNormals, DerivedUntilSetThenKept) {
    Mesh mesh;
    addFace(mesh, {square(0, 0, 1), reversed(square(0.25, 0.25, 0.5))});
    EXPECT_FALSE(mesh.hasExplicitNormals());
    std::vector<Vector3> normals;
    ASSERT_EQ(mesh.faceVertexNormals(0, normals), Status::Success);
    ASSERT_EQ(normals.size(), 8u);
    for (const Vector3& n : normals)
        expectNear(n, {0, 0, 1});

    EXPECT_EQ(mesh.setNormals(std::vector<Vector3>(7)), Status::SizeMismatch);
    ASSERT_EQ(mesh.setNormals(std::vector<Vector3>(8, Vector3{0, 0, -1})), Status::Success);
    EXPECT_TRUE(mesh.hasExplicitNormals());

    addFace(mesh, {reversed(square(5, 5, 1))});
    ASSERT_EQ(mesh.normals().size(), 12u);
    expectNear(mesh.normals()[7], {0, 0, -1});
    expectNear(mesh.normals()[8], {0, 0, -1});
    ASSERT_EQ(mesh.faceVertexNormals(0, normals), Status::Success);
    expectNear(normals[0], {0, 0, -1});
    EXPECT_EQ(mesh.faceVertexNormals(2, normals), Status::InvalidIndex);
}

TEST(MeshColors, SetPerVertexAndAbsentElsewhere) {
    Mesh mesh;
    addFace(mesh, {square(0, 0, 1)});
    EXPECT_FALSE(mesh.vertexColor(0));
    const Color red{1, 0, 0, 1};
    EXPECT_EQ(mesh.setVertexColors(std::vector<Color>{red}, std::vector<int32_t>{4}), Status::InvalidIndex);
    EXPECT_EQ(mesh.setVertexColors(std::vector<Color>{red}, std::vector<int32_t>{}), Status::SizeMismatch);
    ASSERT_EQ(mesh.setVertexColors(std::vector<Color>{red, red}, std::vector<int32_t>{1, 3}),
              Status::Success);
    EXPECT_EQ(*mesh.vertexColor(3), red);
    EXPECT_FALSE(mesh.vertexColor(0));

    addFace(mesh, {square(5, 0, 1)});
    EXPECT_FALSE(mesh.vertexColor(6));
    ASSERT_EQ(mesh.setVertexColors(std::vector<Color>{red}, std::vector<int32_t>{6}), Status::Success);
    EXPECT_EQ(*mesh.vertexColor(6), red);
}

// Colours for a whole solid's vertices are set on all cores when their ids never repeat; a
// repeated id keeps the colour given last, however many vertices are set at once.
TEST(MeshColors, ManyVerticesTakeTheirColoursAndRepeatsKeepTheLast) {
    const int32_t count = 40000;
    std::vector<Point3> points;
    std::vector<int32_t> counts;
    std::vector<int32_t> connects;
    for (int32_t i = 0; i < count / 4; ++i) {
        for (const Point3& p : square(2.0 * i, 0, 1)) {
            connects.push_back(static_cast<int32_t>(points.size()));
            points.push_back(p);
        }
        counts.push_back(4);
    }
    Mesh mesh;
    ASSERT_EQ(mesh.create(points, counts, connects), Status::Success);
    const auto shade = [](int32_t v) {
        return Color{static_cast<float>(v % 7), static_cast<float>(v / 7), 0, 1};
    };

    std::vector<Color> colors;
    std::vector<int32_t> ids;
    for (int32_t v = 1; v < count; v += 2) {
        colors.push_back(shade(v));
        ids.push_back(v);
    }
    ASSERT_EQ(mesh.setVertexColors(colors, ids), Status::Success);
    for (int32_t v = 0; v < count; ++v) {
        if (v % 2)
            ASSERT_EQ(mesh.vertexColor(v), shade(v)) << v;
        else
            ASSERT_FALSE(mesh.vertexColor(v)) << v;
    }

    colors.clear();
    ids.clear();
    for (int32_t v = 0; v < count; ++v) {
        colors.push_back(shade(count - v));
        ids.push_back(v);
    }
    ASSERT_EQ(mesh.setVertexColors(colors, ids), Status::Success);
    for (int32_t v = 0; v < count; ++v)
        ASSERT_EQ(mesh.vertexColor(v), shade(count - v)) << v;
    // A whole column handed over is taken as it is; one that is not is copied as given.
    ASSERT_EQ(mesh.setVertexColors(std::vector<Color>(colors.rbegin(), colors.rend()), ids), Status::Success);
    for (int32_t v = 0; v < count; ++v)
        ASSERT_EQ(mesh.vertexColor(v), shade(v + 1)) << v;
    ASSERT_EQ(mesh.setVertexColors(std::vector<Color>(colors.begin() + 1, colors.end()),
                                   std::vector<int32_t>(ids.begin() + 1, ids.end())),
              Status::Success);
    EXPECT_EQ(mesh.vertexColor(0), shade(1));
    EXPECT_EQ(mesh.vertexColor(1), shade(count - 1));

    const Color last{0, 0, 1, 1};
    colors.assign(ids.size(), Color{1, 0, 0, 1});
    ids.assign(ids.size(), 0);
    colors.back() = last;
    ASSERT_EQ(mesh.setVertexColors(colors, ids), Status::Success);
    EXPECT_EQ(mesh.vertexColor(0), last);
    EXPECT_EQ(mesh.vertexColor(1), shade(count - 1));
}

TEST(MeshUvs, DefaultSetAndAssignment) {
    Mesh mesh;
    addFace(mesh, {{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}});
    EXPECT_EQ(mesh.uvSetNames(), (std::vector<std::string>{"map1"}));
    std::vector<int32_t> ids;
    ASSERT_EQ(mesh.faceVertexUvIds("map1", ids), Status::Success);
    EXPECT_EQ(ids, (std::vector<int32_t>(3, UvSet::kNoUv)));
    EXPECT_EQ(mesh.faceVertexUvIds("nope", ids), Status::UnknownUvSet);

    EXPECT_EQ(mesh.createUvSet("map1"), Status::InvalidArgument);
    ASSERT_EQ(mesh.createUvSet("atlas"), Status::Success);
    EXPECT_EQ(mesh.setUvs("nope", {}, {}), Status::UnknownUvSet);
    const std::vector<float> u{0, 1, 0}, v{0, 0, 1};
    EXPECT_EQ(mesh.setUvs("atlas", u, std::vector<float>{0}), Status::SizeMismatch);
    ASSERT_EQ(mesh.setUvs("atlas", u, v), Status::Success);
    EXPECT_EQ(mesh.assignUvIds("atlas", std::vector<int32_t>{0, 1, 3}), Status::InvalidIndex);
    EXPECT_EQ(mesh.assignUvIds("atlas", std::vector<int32_t>{0, 1}), Status::SizeMismatch);
    ASSERT_EQ(mesh.assignUvIds("atlas", std::vector<int32_t>{0, 1, 2}), Status::Success);

    // Growing the coordinates keeps every id; shrinking them, once or again, drops the ids that
    // would point past them.
    ASSERT_EQ(mesh.setUvs("atlas", std::vector<float>(5, 0.5f), std::vector<float>(5, 0.5f)),
              Status::Success);
    ASSERT_EQ(mesh.faceVertexUvIds("atlas", ids), Status::Success);
    EXPECT_EQ(ids, (std::vector<int32_t>{0, 1, 2}));
    ASSERT_EQ(mesh.setUvs("atlas", std::vector<float>{0, 1}, std::vector<float>{0, 0}), Status::Success);
    ASSERT_EQ(mesh.faceVertexUvIds("atlas", ids), Status::Success);
    EXPECT_EQ(ids, (std::vector<int32_t>{0, 1, UvSet::kNoUv}));
    EXPECT_EQ(mesh.uvSet("atlas")->u.size(), 2u);
    ASSERT_EQ(mesh.setUvs("atlas", std::vector<float>{0}, std::vector<float>{0}), Status::Success);
    ASSERT_EQ(mesh.faceVertexUvIds("atlas", ids), Status::Success);
    EXPECT_EQ(ids, (std::vector<int32_t>{0, UvSet::kNoUv, UvSet::kNoUv}));
}

// Uv ids are laid into place by each face's first face-vertex, a table kept between calls: a hole
// added to the first face moves every later face, and the next assignment must follow.
TEST(MeshUvs, AssignmentAfterAHoleFollowsTheMovedFaces) {
    Mesh mesh;
    addFace(mesh, {square(0, 0, 4)});
    addFace(mesh, {square(5, 0, 1)});
    ASSERT_EQ(mesh.setUvs("map1", std::vector<float>(12, 0.5f), std::vector<float>(12, 0.5f)),
              Status::Success);
    ASSERT_EQ(mesh.assignUvIds("map1", std::vector<int32_t>{0, 1, 2, 3, 4, 5, 6, 7}), Status::Success);
    const int32_t holeSize = 4;
    ASSERT_EQ(mesh.addHoles(0, reversed(square(1, 1, 1)), std::span(&holeSize, 1), false, 0.0),
              Status::Success);
    ASSERT_EQ(mesh.assignUvIds("map1", std::vector<int32_t>{0, 1, 2, 3, 8, 9, 10, 11, 4, 5, 6, 7}),
              Status::Success);
    const auto second = mesh.faceUvIds("map1", 1);
    EXPECT_EQ(std::vector<int32_t>(second.begin(), second.end()), (std::vector<int32_t>{4, 5, 6, 7}));
    const auto first = mesh.faceUvIds("map1", 0);
    EXPECT_EQ(std::vector<int32_t>(first.begin(), first.end()),
              (std::vector<int32_t>{0, 1, 2, 3, 8, 9, 10, 11}));
}

// A mesh created whole keeps no uv id column until ids are assigned; the holes added before then,
// the leftovers they leave in the face pool and the faces added after must all read as having
// no uv until then, and as assigned after.
TEST(MeshUvs, MeshCreatedWholeHasNoUvsUntilAssigned) {
    Mesh mesh;
    auto points = square(0, 0, 4);
    const auto second = square(5, 0, 1);
    points.insert(points.end(), second.begin(), second.end());
    ASSERT_EQ(mesh.create(points, std::vector<int32_t>{4, 4}, std::vector<int32_t>{0, 1, 2, 3, 4, 5, 6, 7}),
              Status::Success);
    std::vector<int32_t> ids;
    ASSERT_EQ(mesh.faceVertexUvIds("map1", ids), Status::Success);
    EXPECT_EQ(ids, (std::vector<int32_t>(8, UvSet::kNoUv)));
    EXPECT_TRUE(mesh.faceUvIds("map1", 0).empty());

    const int32_t holeSize = 4;
    ASSERT_EQ(mesh.addHoles(0, reversed(square(1, 1, 1)), std::span(&holeSize, 1), false, 0.0),
              Status::Success);
    ASSERT_EQ(mesh.createUvSet("atlas"), Status::Success);
    for (const char* set : {"map1", "atlas"}) {
        ASSERT_EQ(mesh.faceVertexUvIds(set, ids), Status::Success);
        EXPECT_EQ(ids, (std::vector<int32_t>(12, UvSet::kNoUv))) << set;
    }

    ASSERT_EQ(mesh.setUvs("atlas", std::vector<float>(12, 0.5f), std::vector<float>(12, 0.5f)),
              Status::Success);
    std::vector<int32_t> assigned(12);
    std::iota(assigned.begin(), assigned.end(), 0);
    ASSERT_EQ(mesh.assignUvIds("atlas", assigned), Status::Success);
    ASSERT_EQ(mesh.setUvs("atlas", std::vector<float>(10, 0.5f), std::vector<float>(10, 0.5f)),
              Status::Success);
    int32_t face = -1;
    ASSERT_EQ(mesh.addPolygon(square(8, 0, 1), std::vector<int32_t>{4}, false, 0.0, face), Status::Success);
    ASSERT_EQ(mesh.faceVertexUvIds("atlas", ids), Status::Success);
    std::vector<int32_t> expected(assigned.begin(), assigned.begin() + 10);
    expected.resize(16, UvSet::kNoUv);
    EXPECT_EQ(ids, expected);
    ASSERT_EQ(mesh.faceVertexUvIds("map1", ids), Status::Success);
    EXPECT_EQ(ids, (std::vector<int32_t>(16, UvSet::kNoUv)));
}

} // namespace
} // namespace oz::mesh
