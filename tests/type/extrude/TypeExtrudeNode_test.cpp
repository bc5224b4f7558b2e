#include "../AffectedAttributes.h"
#include "../GoldenTable.h"
#include "ExtrudeNodeTesting.h"

#include <OpenZyvo/ZCurveAttribute.h>
#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZFloatArray.h>
#include <OpenZyvo/ZFnAttribute.h>
#include <OpenZyvo/ZFnIntArrayData.h>
#include <OpenZyvo/ZObjectArray.h>
#include <OpenZyvoHost/ZHostMessages.h>
#include <algorithm>
#include <map>

namespace typetest {
namespace {

using ::testing::ElementsAreArray;

class TypeExtrudeNode : public ExtrudeNodeTest {};

struct CurvePoint {
    double position;
    double value;
    bool operator==(const CurvePoint&) const = default;
};

std::map<std::string, std::vector<CurvePoint>> curves(const std::string& node) {
    std::map<std::string, std::vector<CurvePoint>> out;
    for (const char* name : {"extrudeCurve", "frontBevelCurve", "backBevelCurve", "outerBevelCurve"}) {
        const ZCurveAttribute curve(plugNamed(node, name));
        ZIntArray indices;
        ZDoubleArray positions;
        ZDoubleArray values;
        EXPECT_TRUE(curve.getEntries(indices, positions, values)) << name;
        std::vector<CurvePoint>& points = out[name];
        for (unsigned int i = 0; i < positions.length(); ++i)
            points.push_back({positions[i], values[i]});
    }
    return out;
}

std::map<std::string, std::vector<CurvePoint>> defaultCurves() {
    std::map<std::string, std::vector<CurvePoint>> out;
    for (const GoldenRow& row : readGoldenTable("extrude_default_curves.tsv", 3))
        out[row[0]].push_back({std::stod(row[1]), std::stod(row[2])});
    out["outerBevelCurve"];
    return out;
}

void setCurve(const std::string& node, const std::string& name, const ZDoubleArray& positions,
              const ZDoubleArray& values) {
    ZCurveAttribute curve(plugNamed(node, name));
    ASSERT_TRUE(curve.setCurve(positions, values)) << name;
}

void reopen() {
    const std::filesystem::path path = writeFile("extrude.zy", "");
    ASSERT_TRUE(run("file -rename \"" + path.string() + "\""));
    ASSERT_TRUE(run("file -save"));
    ASSERT_TRUE(run("file -new -f"));
    ASSERT_TRUE(run("file -open -f \"" + path.string() + "\""));
}

TEST_F(TypeExtrudeNode, HasItsAttributesInOrderWithTheirShortNames) {
    const ZFnDependencyNode node(nodeNamed("typeExtrude1"));
    std::vector<std::string> created;
    for (unsigned int i = 0; i < node.attributeCount(); ++i) {
        const ZFnAttribute fn(node.attribute(i));
        if (fn.parent().isNull() && fn.name() != "message")
            created.push_back(fn.name().asStdString() + " " + fn.shortName().asStdString());
    }
    std::vector<std::string> expected;
    for (const GoldenRow& row : readGoldenTable("typeextrude_attributes.tsv", 3))
        expected.push_back(row[0] + " " + row[1]);
    EXPECT_THAT(created, ElementsAreArray(expected));
}

// What each attribute dirties, as the golden table lists it: five inputs on
// purpose dirty nothing and take effect at the next evaluation another input
// causes; "outerBevelDivisions" dirties only the component lists.
TEST_F(TypeExtrudeNode, EachInputAffectsTheOutputsItsRowLists) {
    const ZFnDependencyNode node(nodeNamed("typeExtrude1"));
    for (const GoldenRow& row : readGoldenTable("typeextrude_attributes.tsv", 3)) {
        ZStatus status;
        const ZObject attribute = node.attribute(ZString(row[0]), &status);
        ASSERT_TRUE(status) << row[0];
        EXPECT_EQ(affectedNames(node, attribute), row[2] == "-" ? "" : row[2]) << row[0];
    }
}

TEST_F(TypeExtrudeNode, ANewNodeShowsTheDefaultCurves) {
    EXPECT_EQ(curves("typeExtrude1"), defaultCurves());
}

TEST_F(TypeExtrudeNode, ANodeReadFromAFileKeepsItsCurvesWhenEachHasFourPoints) {
    const ZDoubleArray positions{0.0, 0.25, 0.5, 0.75, 1.0};
    const ZDoubleArray values{0.5, 0.6, 0.7, 0.8, 0.9};
    for (const char* name : {"extrudeCurve", "frontBevelCurve", "backBevelCurve"})
        setCurve("typeExtrude1", name, positions, values);
    const auto before = curves("typeExtrude1");
    reopen();
    EXPECT_EQ(curves("typeExtrude1"), before);
}

TEST_F(TypeExtrudeNode, ANodeReadFromAFileWithAShortCurveGetsAllThreeDefaults) {
    setCurve("typeExtrude1", "extrudeCurve", {0.0, 0.5, 1.0, 1.0}, {0.2, 0.2, 0.2, 0.2});
    setCurve("typeExtrude1", "backBevelCurve", {0.0, 0.5, 1.0, 1.0}, {0.3, 0.3, 0.3, 0.3});
    setCurve("typeExtrude1", "frontBevelCurve", {0.0, 1.0}, {0.4, 0.4});
    reopen();
    EXPECT_EQ(curves("typeExtrude1"), defaultCurves());
}

TEST_F(TypeExtrudeNode, BevelStyleHasNoFieldZero) {
    EXPECT_FALSE(run("setAttr typeExtrude1.bevelStyle 0"));
    EXPECT_EQ(number("getAttr typeExtrude1.bevelStyle"), 1);
    EXPECT_TRUE(run("setAttr typeExtrude1.bevelStyle 2"));
}

// A change of divisions changes the topology: more rings, more wall faces.
TEST_F(TypeExtrudeNode, MoreExtrudeDivisionsRebuildTheMeshAndItsComponentLists) {
    const int vertices = vertexCount();
    const std::vector<int> walls = components("extrusionComponents");
    const std::vector<int> caps = components("capComponents");
    ASSERT_GT(vertices, 0);
    ASSERT_FALSE(walls.empty());
    ASSERT_TRUE(run("setAttr typeExtrude1.extrudeDivisions 5"));
    // Five rings became six: every outline point gained one vertex.
    EXPECT_EQ(vertexCount(), vertices / 5 * 6);
    EXPECT_EQ(components("extrusionComponents").size(), walls.size() / 4 * 5);
    EXPECT_EQ(components("capComponents").size(), caps.size());
    EXPECT_NE(components("capComponents"), caps);
}

// A shape value only moves points: the mesh, its object groups and its
// component lists stay the ones built before.
TEST_F(TypeExtrudeNode, BevelDistanceMovesPointsOfTheMeshBuiltBefore) {
    ASSERT_TRUE(run("setAttr typeExtrude1.enableOuterBevel 1"));
    const ZObject before = meshData();
    const std::vector<unsigned int> groups = objectGroups(before);
    const std::vector<ZPoint> pointsBefore = points();
    const std::vector<int> bevels = components("bevelComponents");
    ASSERT_FALSE(bevels.empty());
    ASSERT_TRUE(run("setAttr typeExtrude1.bevelDistance 0.05"));
    const ZObject after = meshData();
    EXPECT_TRUE(after == before);
    EXPECT_EQ(objectGroups(after), groups);
    EXPECT_EQ(components("bevelComponents"), bevels);
    const std::vector<ZPoint> pointsAfter = points();
    ASSERT_EQ(pointsAfter.size(), pointsBefore.size());
    EXPECT_NE(pointsAfter, pointsBefore);
}

TEST_F(TypeExtrudeNode, DeleteCapsLeavesNoCapFaces) {
    ASSERT_FALSE(components("capComponents").empty());
    const int faces = ZFnMesh(meshData()).numPolygons();
    ASSERT_TRUE(run("setAttr typeExtrude1.deleteCaps 1"));
    const ZFnMesh mesh(meshData());
    EXPECT_TRUE(components("capComponents").empty());
    EXPECT_LT(mesh.numPolygons(), faces);
    ZIntArray holeInfo;
    ZIntArray holeVertices;
    EXPECT_EQ(mesh.getHoles(holeInfo, holeVertices), 0);
}

std::vector<int> vertexGroupIds() {
    ZObject ids;
    EXPECT_TRUE(plugNamed("typeExtrude1", "vertexGroupIds").getValue(ids));
    ZIntArray values;
    ZFnIntArrayData(ids).copyTo(values);
    return values.asVector();
}

// "3D Type" has six characters with vertices (the blank has none); two ask
// for ids, one of them taken by the cap group. The node asks the scripts for
// the four missing ids once the command that evaluated it has finished.
TEST_F(TypeExtrudeNode, EachCharacterGetsAVertexGroupWithAnIdNoOtherGroupHas) {
    ASSERT_TRUE(run("setAttr typeExtrude1.capGroupId 0"));
    ASSERT_TRUE(run("setAttr typeExtrude1.charGroupId[0] 0"));
    ASSERT_TRUE(run("setAttr typeExtrude1.charGroupId[1] 7"));
    ASSERT_TRUE(run("getAttr typeExtrude1.vertexGroupIds"));
    EXPECT_EQ(texts("ls -type groupId").size(), 4u);
    EXPECT_EQ(number("getAttr -size typeExtrude1.charGroupId"), 6);

    std::vector<int> used = vertexGroupIds();
    ASSERT_EQ(used.size(), 6u);
    EXPECT_NE(used[0], 0);
    EXPECT_EQ(used[1], 7);
    const std::vector<unsigned int> groups = objectGroups(meshData());
    ASSERT_EQ(groups.size(), 3u + 6u);
    for (std::size_t k = 0; k < used.size(); ++k)
        EXPECT_EQ(groups[3 + k], static_cast<unsigned int>(used[k]));
    std::sort(used.begin(), used.end());
    EXPECT_EQ(std::adjacent_find(used.begin(), used.end()), used.end());
}

TEST_F(TypeExtrudeNode, WithoutAnInputMeshItSaysSo) {
    ASSERT_EQ(text("createNode typeExtrude"), "typeExtrude2");
    const std::size_t errors = ZHost::errorCount();
    ZObject data;
    plugNamed("typeExtrude2", "outputMesh").getValue(data);
    EXPECT_THAT(ZHost::errorsSince(errors),
                ::testing::Contains(::testing::HasSubstr("cannot get input mesh")));
}

// Nothing to extrude: the user is told, and the node builds again as soon
// as there is text.
TEST_F(TypeExtrudeNode, AnEmptyTextWarnsAndTheNextTextBuildsAgain) {
    ASSERT_GT(vertexCount(), 0);
    ASSERT_TRUE(run("setAttr -type \"string\" type1.textInput \"\""));
    ::testing::internal::CaptureStderr();
    meshData();
    EXPECT_THAT(::testing::internal::GetCapturedStderr(),
                ::testing::HasSubstr("No valid input. Check the Script Editor for more info."));
    ASSERT_TRUE(run("setAttr -type \"string\" type1.textInput \"2e\""));
    const int dot = vertexCount();
    EXPECT_GT(dot, 0);
    ASSERT_TRUE(run("setAttr -type \"string\" type1.textInput \"2e 2e\""));
    EXPECT_EQ(vertexCount(), 2 * dot);
}

// Values a script can set past the sliders: the node still builds a bounded
// solid and says nothing it need not.
TEST_F(TypeExtrudeNode, OddCountsSetThroughScriptingStillBuildABoundedSolid) {
    // The grid size counts in the "Distance Field" mode, with an inward bevel.
    ASSERT_TRUE(run("setAttr typeExtrude1.mode 0"));
    ASSERT_TRUE(run("setAttr typeExtrude1.enableOuterBevel 1"));
    ASSERT_TRUE(run("setAttr typeExtrude1.bevelDistance 0.1"));
    const int vertices = vertexCount();
    const std::size_t errors = ZHost::errorCount();
    ASSERT_TRUE(run("setAttr typeExtrude1.gridSize 0"));
    EXPECT_EQ(vertexCount(), vertices);
    ASSERT_TRUE(run("setAttr typeExtrude1.gridSize 100000"));
    EXPECT_EQ(vertexCount(), vertices);
    run("setAttr typeExtrude1.extrudeDivisions -3");
    const int fewest = vertexCount();
    EXPECT_GT(fewest, 0);
    EXPECT_LE(fewest, vertices);
    ASSERT_TRUE(run("setAttr typeExtrude1.extrudeDivisions 2000000000"));
    EXPECT_GT(vertexCount(), vertices);
    EXPECT_LT(vertexCount(), vertices * 20);
    EXPECT_TRUE(ZHost::errorsSince(errors).empty());
}

// A curve with one point, or with its points out of order, is still a curve.
TEST_F(TypeExtrudeNode, CurvesWithFewOrUnorderedPointsStillGiveASolid) {
    const int vertices = vertexCount();
    ASSERT_TRUE(run("setAttr typeExtrude1.enableOuterBevel 1"));
    const int beveled = vertexCount();
    setCurve("typeExtrude1", "frontBevelCurve", {0.5}, {0.25});
    setCurve("typeExtrude1", "extrudeCurve", {1.0, 0.0, 0.5, 0.2}, {0.1, 0.9, 0.4, 0.6});
    EXPECT_EQ(vertexCount(), beveled);
    setCurve("typeExtrude1", "extrudeCurve", {}, {});
    EXPECT_EQ(vertexCount(), beveled);
    EXPECT_GT(beveled, vertices);
}

TEST_F(TypeExtrudeNode, EveryFaceVertexHasAUvInTheUnitSquareOfMap1) {
    const ZFnMesh mesh(meshData());
    EXPECT_EQ(mesh.currentUVSetName(), "map1");
    ZIntArray counts;
    ZIntArray ids;
    ASSERT_TRUE(mesh.getAssignedUVs(counts, ids));
    EXPECT_EQ(static_cast<int>(counts.length()), mesh.numPolygons());
    EXPECT_EQ(static_cast<int>(ids.length()), mesh.numFaceVertices());
    ZFloatArray u;
    ZFloatArray v;
    ASSERT_TRUE(mesh.getUVs(u, v));
    for (unsigned int i = 0; i < u.length(); ++i) {
        EXPECT_TRUE(u[i] >= 0.0f && u[i] <= 1.0f && v[i] >= 0.0f && v[i] <= 1.0f) << i;
    }
}

// The offset mode is a shape value: the distance field moves the inward
// bevel's points of the mesh built before, and "Normals" moves them back.
TEST_F(TypeExtrudeNode, TheDistanceFieldModeMovesInwardBevelPointsOfTheSameMesh) {
    ASSERT_TRUE(run("setAttr typeExtrude1.enableOuterBevel 1"));
    ASSERT_TRUE(run("setAttr typeExtrude1.bevelDistance 0.2"));
    const ZObject before = meshData();
    const std::vector<ZPoint> normals = points();
    ASSERT_TRUE(run("setAttr typeExtrude1.mode 0"));
    const std::vector<ZPoint> field = points();
    EXPECT_TRUE(meshData() == before);
    ASSERT_EQ(field.size(), normals.size());
    EXPECT_NE(field, normals);
    ASSERT_TRUE(run("setAttr typeExtrude1.mode 1"));
    EXPECT_EQ(points(), normals);
}

// Distance fields are kept across text changes by outline: a text changed in the middle must
// build exactly what a fresh node builds for the new text, in the letters it moved as well as in
// those it left in place.
TEST_F(TypeExtrudeNode, ATextChangeInTheDistanceFieldModeBuildsWhatAFreshNodeBuilds) {
    const auto inDistanceFieldMode = [&](const std::string& node) {
        ASSERT_TRUE(run("setAttr " + node + ".mode 0"));
        ASSERT_TRUE(run("setAttr " + node + ".enableOuterBevel 1"));
        ASSERT_TRUE(run("setAttr " + node + ".bevelDistance 0.05"));
    };
    inDistanceFieldMode("typeExtrude1");
    ASSERT_TRUE(run("setAttr -type \"string\" type1.textInput \"6F 6F 6F\""));
    ASSERT_GT(vertexCount(), 0);
    ASSERT_TRUE(run("setAttr -type \"string\" type1.textInput \"6F 57 6F\""));
    const std::vector<ZPoint> changed = points();

    ASSERT_EQ(text("createNode typeExtrude"), "typeExtrude2");
    ASSERT_TRUE(run("connectAttr type1.outputMesh typeExtrude2.inputMesh"));
    inDistanceFieldMode("typeExtrude2");
    ZPointArray fresh;
    ZFnMesh(meshData("typeExtrude2")).getPoints(fresh);
    EXPECT_EQ(changed, fresh.asVector());
}

} // namespace
} // namespace typetest
