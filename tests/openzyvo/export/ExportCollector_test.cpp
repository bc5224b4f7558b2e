#include "NodesScene.h"
#include "export/ExportCollector.h"
#include "export/ExportMeshConversion.h"
#include "export/GlbWriter.h"

#include <OpenZyvo/ZColorArray.h>
#include <OpenZyvo/ZFloatArray.h>
#include <OpenZyvo/ZFnMeshData.h>
#include <filesystem>
#include <random>
#include <tiny_gltf.h>

namespace nodestest {
namespace {

using oz::exporter::ExportMesh;
using oz::exporter::ExportScene;

// A mesh shape "letterShape" under "letter" (moved to z = 2) showing four quads: object group 10
// holds faces 0 and 1, group 11 faces 1 and 2, face 3 is in none. "red" takes group 10 and "blue"
// group 11, wired as a shader assignment wires them.
class ExportCollector : public NodesTest {
protected:
    void SetUp() override {
        NodesTest::SetUp();
        letter = createDag("transform", "letter");
        shape = createDag("mesh", "letterShape", letter);
        setTriple(letter, "translate", 0, 0, 2);
        const ZObject mesh = quadStrip(4);
        addFaceGroup(mesh, 10, {0, 1});
        addFaceGroup(mesh, 11, {1, 2});
        ASSERT_TRUE(plug(shape, "inMesh").setValue(mesh));
        bind("red", 10, {1.0, 0.0, 0.0}, 0);
        bind("blue", 11, {0.0, 0.0, 1.0}, 1);
    }

    void bind(const char* engineName, int id, std::array<double, 3> colour, unsigned int member) {
        const ZObject groupId = createNode("groupId");
        ASSERT_TRUE(plug(groupId, "groupId").setValue(id));
        const ZObject engine = createNode("shadingEngine", engineName);
        const ZObject shader = createNode("lambert");
        setTriple(shader, "color", colour[0], colour[1], colour[2]);
        connect(plug(shader, "outColor"), plug(engine, "surfaceShader"));

        const ZPlug group = plug(shape, "instObjGroups[0].objectGroups").elementByLogicalIndex(member);
        connect(plug(groupId, "groupId"), group.child(0));
        connect(plug(engine, "memberWireframeColor"), group.child(1));
        connect(group, plug(engine, "dagSetMembers[0]"));
        connect(plug(groupId, "message"), plug(engine, "groupNodes[0]"));
    }

    ZObject letter, shape;
};

std::vector<std::uint32_t> trianglesOf(const ExportMesh& mesh, std::size_t primitive) {
    return mesh.primitives.at(primitive).triangles;
}

TEST_F(ExportCollector, ObjectGroupsBoundToEnginesBecomePrimitives) {
    ExportScene scene;
    ZString error;
    ASSERT_TRUE(oz::exporter::collectExportScene({letter}, scene, &error)) << error.asChar();
    ASSERT_EQ(scene.meshes.size(), 1u);
    const ExportMesh& mesh = scene.meshes[0];
    EXPECT_EQ(mesh.name, "letter");
    EXPECT_EQ(mesh.positions.size(), 10u);
    EXPECT_EQ(mesh.positions[9], (oz::exporter::Float3{4.0f, 1.0f, 2.0f})) << "world space";
    EXPECT_EQ(mesh.triangles.size(), 8u);
    EXPECT_EQ(mesh.normals.size(), 24u);
    EXPECT_TRUE(mesh.uvs.empty());
    EXPECT_TRUE(mesh.colors.empty());

    ASSERT_EQ(scene.materials.size(), 2u);
    EXPECT_EQ(scene.materials[0].name, "red");
    EXPECT_EQ(scene.materials[0].baseColor, (std::array<float, 4>{1, 0, 0, 1}));
    EXPECT_EQ(scene.materials[1].name, "blue");
    EXPECT_EQ(scene.materials[1].baseColor, (std::array<float, 4>{0, 0, 1, 1}));

    ASSERT_EQ(mesh.primitives.size(), 2u) << "face 3 stays with the default material";
    EXPECT_EQ(mesh.primitives[0].material, 0u);
    EXPECT_EQ(trianglesOf(mesh, 0), (std::vector<std::uint32_t>{0, 1, 2, 3}))
        << "face 1 stays with the first member";
    EXPECT_EQ(mesh.primitives[1].material, 1u);
    EXPECT_EQ(trianglesOf(mesh, 1), (std::vector<std::uint32_t>{4, 5}));
}

TEST_F(ExportCollector, GroupIdAndShaderAreReadAtExportTime) {
    ASSERT_TRUE(plug("groupId1.groupId").setValue(11));
    ASSERT_TRUE(plug("lambert1.colorG").setValue(1.0f));
    ExportScene scene;
    ASSERT_TRUE(oz::exporter::collectExportScene(oz::exporter::sceneMeshShapes(), scene));
    ASSERT_EQ(scene.meshes.size(), 1u);
    EXPECT_EQ(trianglesOf(scene.meshes[0], 0), (std::vector<std::uint32_t>{2, 3, 4, 5}))
        << "both members now name group 11";
    ASSERT_EQ(scene.materials.size(), 1u) << "blue is left without faces";
    EXPECT_EQ(scene.materials[0].baseColor, (std::array<float, 4>{1, 1, 0, 1}));
}

TEST_F(ExportCollector, RefusesNodesThatShowNoMesh) {
    ExportScene scene;
    ZString error;
    EXPECT_EQ(oz::exporter::collectExportScene({letter, createNode("groupId", "notAShape")}, scene, &error),
              ZStatus::kInvalidParameter);
    EXPECT_NE(error.asStdString().find("notAShape"), std::string::npos) << error.asChar();

    createDag("mesh", "emptyShape");
    ASSERT_TRUE(oz::exporter::collectExportScene(oz::exporter::sceneMeshShapes(), scene));
    EXPECT_EQ(scene.meshes.size(), 1u) << "a shape without a mesh has nothing to write";
}

class TempDirectory {
public:
    TempDirectory()
        : m_path(std::filesystem::temp_directory_path() /
                 ("oz_nodes_test_" + std::to_string(std::random_device()()))) {
        std::filesystem::create_directories(m_path);
    }
    ~TempDirectory() { std::filesystem::remove_all(m_path); }
    std::filesystem::path operator/(const char* name) const { return m_path / name; }

private:
    std::filesystem::path m_path;
};

TEST_F(ExportCollector, GltfKeepsTheMaterialSplitAndWorldBounds) {
    ExportScene scene;
    ASSERT_TRUE(oz::exporter::collectExportScene({shape}, scene));
    TempDirectory dir;
    const auto file = dir / "letter.glb";
    ASSERT_TRUE(oz::exporter::writeGlb(scene, file).ok());

    tinygltf::TinyGLTF loader;
    tinygltf::Model model;
    std::string error, warning;
    ASSERT_TRUE(loader.LoadBinaryFromFile(&model, &error, &warning, file.string())) << error;
    ASSERT_EQ(model.meshes.size(), 1u);
    const auto& primitives = model.meshes[0].primitives;
    ASSERT_EQ(primitives.size(), 3u);
    ASSERT_EQ(model.materials.size(), 3u);
    const std::vector<std::pair<std::string, std::size_t>> expected{{"red", 12}, {"blue", 6}, {"", 6}};
    for (std::size_t i = 0; i < primitives.size(); ++i) {
        const auto& material = model.materials.at(static_cast<std::size_t>(primitives[i].material));
        if (!expected[i].first.empty()) {
            EXPECT_EQ(material.name, expected[i].first);
        }
        EXPECT_EQ(model.accessors.at(static_cast<std::size_t>(primitives[i].indices)).count,
                  expected[i].second);
    }
    EXPECT_EQ(model.materials.at(static_cast<std::size_t>(primitives[1].material))
                  .pbrMetallicRoughness.baseColorFactor,
              (std::vector<double>{0, 0, 1, 1}));
    const auto& positions =
        model.accessors.at(static_cast<std::size_t>(primitives[0].attributes.at("POSITION")));
    EXPECT_EQ(positions.minValues, (std::vector<double>{0, 0, 2}));
    EXPECT_EQ(positions.maxValues, (std::vector<double>{4, 1, 2}));
}

// A unit square with a square hole, map1 uvs from the points and a colour on vertex 0.
ZObject holedSquare() {
    const ZObject data = ZFnMeshData().create();
    ZFnMesh fn(data);
    const ZPointArray loops{{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0},
                            {1, 1, 0}, {1, 3, 0}, {3, 3, 0}, {3, 1, 0}};
    EXPECT_EQ(fn.addPolygon(loops, ZIntArray{4, 4}), 0);
    ZFloatArray u, v;
    ZIntArray ids;
    for (unsigned int i = 0; i < loops.length(); ++i) {
        u.append(static_cast<float>(loops[i].x / 4));
        v.append(static_cast<float>(loops[i].y / 4));
        ids.append(static_cast<int>(i));
    }
    EXPECT_TRUE(fn.setUVs(u, v));
    EXPECT_TRUE(fn.assignUVs(ZIntArray{8}, ids));
    EXPECT_TRUE(fn.setVertexColor(ZColor(1, 0, 0, 1), 0));
    return data;
}

TEST(ExportMeshConversion, HolesMirrorsUvsAndColours) {
    ZMatrix mirror;
    mirror(0, 0) = -1.0;
    oz::exporter::ConvertedMesh converted;
    ASSERT_TRUE(oz::exporter::convertForExport(holedSquare(), mirror, "ring", converted));
    const ExportMesh& mesh = converted.mesh;
    ASSERT_EQ(mesh.triangles.size(), 8u) << "the hole is cut out";
    ASSERT_EQ(mesh.normals.size(), 24u);
    ASSERT_EQ(mesh.uvs.size(), 24u);
    EXPECT_EQ(converted.triangleFaces, std::vector<int>(8, 0));
    for (std::size_t t = 0; t < mesh.triangles.size(); ++t) {
        const auto& a = mesh.positions[mesh.triangles[t][0]];
        const auto& b = mesh.positions[mesh.triangles[t][1]];
        const auto& c = mesh.positions[mesh.triangles[t][2]];
        const float z = (b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0]);
        EXPECT_GT(z, 0.0f) << "triangle " << t << " still faces +z after the mirror";
        for (int corner = 0; corner < 3; ++corner) {
            const auto& p = mesh.positions[mesh.triangles[t][static_cast<std::size_t>(corner)]];
            const auto& uv = mesh.uvs[3 * t + static_cast<std::size_t>(corner)];
            EXPECT_FLOAT_EQ(uv[0], -p[0] / 4) << "uvs follow their corners";
            EXPECT_EQ(mesh.normals[3 * t + static_cast<std::size_t>(corner)],
                      (oz::exporter::Float3{0, 0, 1}));
        }
    }
    ASSERT_EQ(mesh.colors.size(), 8u);
    EXPECT_EQ(mesh.colors[0], (oz::exporter::Float4{1, 0, 0, 1}));
    EXPECT_EQ(mesh.colors[1], (oz::exporter::Float4{1, 1, 1, 1})) << "vertices without a colour are white";
}

} // namespace
} // namespace nodestest
