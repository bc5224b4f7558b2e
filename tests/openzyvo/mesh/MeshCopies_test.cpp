#include "MeshTestShapes.h"

#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace oz::mesh {
namespace {

using namespace test;

// Everything a mesh shows of itself, to compare a copy before and after its twin is edited.
struct MeshValue {
    std::vector<Point3> points;
    std::vector<std::vector<int32_t>> faces;
    bool explicitNormals = false;
    std::vector<Vector3> normals;
    std::vector<std::optional<Color>> colors;
    std::vector<std::string> uvSetNames;
    std::vector<UvSet> uvSets;
    std::vector<std::vector<int32_t>> uvIds;

    friend bool operator==(const MeshValue&, const MeshValue&) = default;
};

MeshValue valueOf(const Mesh& mesh) {
    MeshValue value;
    value.points.assign(mesh.points().begin(), mesh.points().end());
    for (int32_t f = 0; f < mesh.faceCount(); ++f)
        value.faces.emplace_back(mesh.faceVertices(f).begin(), mesh.faceVertices(f).end());
    value.explicitNormals = mesh.hasExplicitNormals();
    value.normals = mesh.normals();
    for (int32_t v = 0; v < mesh.vertexCount(); ++v)
        value.colors.push_back(mesh.vertexColor(v));
    value.uvSetNames = mesh.uvSetNames();
    for (const std::string& name : value.uvSetNames) {
        value.uvSets.push_back(*mesh.uvSet(name));
        value.uvIds.emplace_back();
        EXPECT_EQ(mesh.faceVertexUvIds(name, value.uvIds.back()), Status::Success);
    }
    return value;
}

// A cube with every column filled in: explicit normals, some colours, two uv sets with ids.
Mesh furnishedCube() {
    Mesh mesh = cube();
    std::vector<Vector3> normals(static_cast<size_t>(mesh.faceVertexCount()), Vector3{0, 0, 1});
    EXPECT_EQ(mesh.setNormals(normals), Status::Success);
    EXPECT_EQ(
        mesh.setVertexColors(std::vector<Color>{{1, 0, 0, 1}, {0, 1, 0, 1}}, std::vector<int32_t>{0, 5}),
        Status::Success);
    EXPECT_EQ(mesh.createUvSet("second"), Status::Success);
    for (const char* set : {"map1", "second"}) {
        EXPECT_EQ(mesh.setUvs(set, std::vector<float>{0, 1, 1, 0}, std::vector<float>{0, 0, 1, 1}),
                  Status::Success);
        std::vector<int32_t> ids(static_cast<size_t>(mesh.faceVertexCount()));
        for (size_t i = 0; i < ids.size(); ++i)
            ids[i] = static_cast<int32_t>(i % 4);
        EXPECT_EQ(mesh.assignUvIds(set, ids), Status::Success);
    }
    return mesh;
}

struct Edit {
    const char* name;
    std::function<Status(Mesh&)> apply;
};

std::vector<Edit> everyKindOfEdit() {
    const auto moved = [](const Mesh& mesh) {
        std::vector<Point3> points(mesh.points().begin(), mesh.points().end());
        for (Point3& p : points)
            p.x += 10.0;
        return points;
    };
    return {
        {"setPoints",
         [&](Mesh& m) {
             return m.setPoints(moved(m));
         }},
        {"setPoint",
         [](Mesh& m) {
             return m.setPoint(3, {7, 7, 7});
         }},
        {"fillPoints",
         [](Mesh& m) {
             return m.fillPoints(m.points().size(), [](std::span<Point3> own) {
                 for (Point3& p : own)
                     p = {1, 2, 3};
             });
         }},
        {"addPolygon",
         [](Mesh& m) {
             int32_t face = -1;
             return m.addPolygon(square(5, 5, 1), std::vector<int32_t>{4}, false, 0.0, face);
         }},
        {"addPolygon merging",
         [](Mesh& m) {
             int32_t face = -1;
             return m.addPolygon(square(0, 0, 1), std::vector<int32_t>{4}, true, 1e-9, face);
         }},
        {"addHoles",
         [](Mesh& m) {
             return m.addHoles(0, reversed(square(0.25, 0.25, 0.5)), std::vector<int32_t>{4}, false, 0.0);
         }},
        {"setNormals",
         [](Mesh& m) {
             return m.setNormals(
                 std::vector<Vector3>(static_cast<size_t>(m.faceVertexCount()), Vector3{1, 0, 0}));
         }},
        {"setVertexColors",
         [](Mesh& m) {
             return m.setVertexColors(std::vector<Color>{{0, 0, 1, 1}}, std::vector<int32_t>{0});
         }},
        {"clearVertexColors",
         [](Mesh& m) {
             m.clearVertexColors();
             return Status::Success;
         }},
        {"createUvSet",
         [](Mesh& m) {
             return m.createUvSet("third");
         }},
        {"setUvs",
         [](Mesh& m) {
             return m.setUvs("second", std::vector<float>{0.5f, 0.5f}, std::vector<float>{0.5f, 0.5f});
         }},
        {"assignUvIds",
         [](Mesh& m) {
             return m.assignUvIds(
                 "map1", std::vector<int32_t>(static_cast<size_t>(m.faceVertexCount()), UvSet::kNoUv));
         }},
        {"create",
         [](Mesh& m) {
             return m.create(square(0, 0, 2), std::vector<int32_t>{4}, std::vector<int32_t>{0, 1, 2, 3});
         }},
    };
}

TEST(MeshCopies, AnEditOfOneCopyLeavesTheOtherAsItWas) {
    for (const Edit& edit : everyKindOfEdit()) {
        SCOPED_TRACE(edit.name);
        const Mesh original = furnishedCube();
        const MeshValue before = valueOf(original);
        for (const bool editTheCopy : {true, false}) {
            Mesh a = original;
            Mesh b = a;
            Mesh& edited = editTheCopy ? b : a;
            const Mesh& kept = editTheCopy ? a : b;
            ASSERT_EQ(edit.apply(edited), Status::Success);
            EXPECT_NE(valueOf(edited), before) << "the edit changed nothing, so it proves nothing";
            EXPECT_EQ(valueOf(kept), before);
            EXPECT_EQ(valueOf(original), before);
        }
    }
}

TEST(MeshCopies, ACopySharesThePointsUntilOneSideMovesThem) {
    Mesh a = cube();
    const Mesh b = a;
    EXPECT_EQ(a.points().data(), b.points().data());
    ASSERT_EQ(a.setPoint(0, {-1, -1, -1}), Status::Success);
    EXPECT_NE(a.points().data(), b.points().data());
    EXPECT_EQ(b.point(0), (Point3{0, 0, 0}));

    // Once alone, the writer keeps writing into its own storage.
    const Point3* own = a.points().data();
    ASSERT_EQ(a.setPoint(1, {-2, -2, -2}), Status::Success);
    EXPECT_EQ(a.points().data(), own);
}

TEST(MeshCopies, DerivedTablesFollowEachCopysOwnEdits) {
    Mesh a = cube();
    ASSERT_GT(a.topology()->edgeCount(), 0);
    Mesh b = a;
    int32_t face = -1;
    ASSERT_EQ(b.addPolygon(square(5, 5, 1), std::vector<int32_t>{4}, false, 0.0, face), Status::Success);
    EXPECT_EQ(a.edgeCount(), 12);
    EXPECT_EQ(b.edgeCount(), 16);
    EXPECT_EQ(a.triangulation()->faceTriangles(5).size(), 2u);
    EXPECT_EQ(b.triangulation()->faceTriangles(6).size(), 2u);
    EXPECT_EQ(a.boundingBox().max, (Point3{1, 1, 1}));
    EXPECT_EQ(b.boundingBox().max, (Point3{6, 6, 1}));
}

} // namespace
} // namespace oz::mesh
