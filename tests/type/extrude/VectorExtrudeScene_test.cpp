#include "ProgramRunner.h"
#include "VectorExtrudeTesting.h"

#include <OpenZyvo/ZCurveAttribute.h>
#include <OpenZyvo/ZDoubleArray.h>
#include <sstream>

namespace typetest {
namespace {

// A text object as an older release saved it: type -> vectorExtrude -> mesh,
// with the older node's own inputs set and a front bevel curve of five points.
const std::string kOldScene = std::string(ZYVO_TEST_DATA_DIR) + "/type/scenes/vector_extrude_201.zya";

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

class VectorExtrudeScene : public VectorExtrudeTest {
protected:
    void SetUp() override {
        TypePluginTest::SetUp();
        ASSERT_TRUE(run("file -open -f \"" + kOldScene + "\""));
    }

    static ZObject shapeMesh() {
        ZObject data;
        EXPECT_TRUE(plugNamed("typeMeshShape1", "outMesh").getValue(data));
        return data;
    }
};

TEST_F(VectorExtrudeScene, AnOldSceneKeepsItsValuesAndIsMarkedAsOld) {
    EXPECT_EQ(number("getAttr type1.legacyDecomposition"), 1);
    EXPECT_EQ(number("getAttr type1.preTLDecompose"), 1);
    EXPECT_EQ(number("getAttr vectorExtrude1.bevel"), 1);
    EXPECT_DOUBLE_EQ(real("getAttr vectorExtrude1.extrudeDistance"), 1.5);
    // Read from a file with four or more points each, the curves stay as saved.
    ZIntArray indices;
    ZDoubleArray positions, values;
    ASSERT_TRUE(ZCurveAttribute(plugNamed("vectorExtrude1", "frontBevelCurve"))
                    .getEntries(indices, positions, values));
    EXPECT_EQ(positions.length(), 5u);
}

// Each character takes its own depth from the saved per-element distances,
// 0.5 apart, with the same bevel on all three.
TEST_F(VectorExtrudeScene, AnOldSceneEvaluatesWithItsPerCharacterDepths) {
    const ZFnMesh mesh(shapeMesh());
    ASSERT_GT(mesh.numPolygons(), 0);
    EXPECT_FALSE(componentFaces("vectorExtrude1", "bevelComponents").empty());
    ZObject ids;
    ASSERT_TRUE(plugNamed("vectorExtrude1", "vertexGroupIds").getValue(ids));
    ZIntArray used;
    ZFnIntArrayData(ids).copyTo(used);
    ASSERT_EQ(used.length(), 3u);
    ZPointArray points;
    mesh.getPoints(points);
    const ZFnGeometryData geometry(meshOf("vectorExtrude1"));
    std::vector<double> depths;
    for (const int id : used) {
        ZIntArray vertices;
        ZFnSingleIndexedComponent(geometry.objectGroupComponent(static_cast<unsigned int>(id)))
            .getElements(vertices);
        std::vector<ZPoint> character;
        for (const int v : vertices)
            character.push_back(points[v]);
        ASSERT_FALSE(character.empty());
        depths.push_back(depth(character));
    }
    EXPECT_NEAR(depths[1] - depths[0], 0.5, 1e-5);
    EXPECT_NEAR(depths[2] - depths[1], 0.5, 1e-5);
    // The scene saved no group ids: the node asked for them on idle, and the
    // plug-in's script made one per character once the queue ran.
    ASSERT_TRUE(run("ls"));
    EXPECT_EQ(number("getAttr -size vectorExtrude1.charGroupId"), 3);
}

std::size_t countLines(const std::string& text, const std::string& prefix) {
    std::size_t count = 0;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        count += line.rfind(prefix, 0) == 0;
    return count;
}

// The program a user runs loads the scene, evaluates the chain and exports
// the solid, with the node's console line on the way.
TEST(VectorExtrudeSceneExport, AnOldSceneExportsThroughTheProgram) {
    const TempFolder folder;
    const std::filesystem::path obj = folder / "old.obj";
    const ProgramResult result = runZyvo({"export", "typeMesh1", obj.string(), "--scene", kOldScene});
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_FALSE(contains(result.err, "// Error:")) << result.err;
    EXPECT_TRUE(contains(result.out, "number of faces: ")) << result.out;
    const std::string text = readFile(obj);
    EXPECT_GT(countLines(text, "v "), 0u);
    EXPECT_GT(countLines(text, "f "), 0u);
}

} // namespace
} // namespace typetest
