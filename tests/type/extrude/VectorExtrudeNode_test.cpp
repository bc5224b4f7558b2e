#include "../AffectedAttributes.h"
#include "../GoldenTable.h"
#include "VectorExtrudeTesting.h"

#include <OpenZyvo/ZCurveAttribute.h>
#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZFnAttribute.h>
#include <OpenZyvo/ZObjectArray.h>

namespace typetest {
namespace {

using ::testing::ElementsAreArray;

// A type node feeding both extrusion nodes, so that they can be compared.
class VectorExtrudeNode : public VectorExtrudeTest {
protected:
    void SetUp() override {
        TypePluginTest::SetUp();
        ASSERT_EQ(text("createNode type"), "type1");
        ASSERT_TRUE(run("setAttr -type \"string\" type1.currentFont \"DejaVu Sans\""));
        ASSERT_TRUE(run("setAttr -type \"string\" type1.currentStyle \"Book\""));
        ASSERT_TRUE(run("setAttr -type \"string\" type1.textInput \"42 25 6F\""));
        for (const char* node : {"typeExtrude", "vectorExtrude"}) {
            const std::string name = std::string(node) + "1";
            ASSERT_EQ(text(std::string("createNode ") + node), name);
            ASSERT_TRUE(run("connectAttr type1.outputMesh " + name + ".inputMesh"));
            ASSERT_TRUE(run("connectAttr type1.vertsPerChar " + name + ".vertsPerChar"));
        }
    }

    // Gives both nodes one value.
    static void setBoth(const std::string& attribute, const std::string& value) {
        for (const char* node : {"typeExtrude1", "vectorExtrude1"})
            ASSERT_TRUE(run(std::string("setAttr ") + node + "." + attribute + " " + value))
                << node << "." << attribute;
    }

    // The values typeExtrude starts with, where the older node's differ.
    static void takeTypeExtrudeValues() {
        for (const auto& [attribute, value] : {std::pair{"extrudeOffset", "0"},
                                               {"bevelDistance", "0.35"},
                                               {"bevelOffset", "0.25"},
                                               {"bevelDivisions", "6"},
                                               {"backBevelDistance", "0.35"},
                                               {"backBevelOffset", "0.25"},
                                               {"backBevelDivisions", "6"},
                                               {"capGroupId", "1"},
                                               {"bevelGroupId", "1"},
                                               {"extrudeGroupId", "1"}})
            setBoth(attribute, value);
    }
};

TEST_F(VectorExtrudeNode, HasItsAttributesInOrderWithItsOwnDefaults) {
    const ZFnDependencyNode node(nodeNamed("vectorExtrude1"));
    std::vector<std::string> created;
    for (unsigned int i = 0; i < node.attributeCount(); ++i) {
        const ZFnAttribute fn(node.attribute(i));
        if (fn.parent().isNull() && fn.name() != "message")
            created.push_back(fn.name().asStdString() + " " + fn.shortName().asStdString());
    }
    std::vector<std::string> expected;
    for (const GoldenRow& row : readGoldenTable("vectorextrude_attributes.tsv", 4)) {
        expected.push_back(row[0] + " " + row[1]);
        if (row[2] != "-") {
            EXPECT_DOUBLE_EQ(real("getAttr vectorExtrude1." + row[0]), std::stod(row[2])) << row[0];
        }
    }
    EXPECT_THAT(created, ElementsAreArray(expected));
    // Unlike typeExtrude's -1, the group ids start at 1.
    for (const char* id : {"capGroupId", "bevelGroupId", "extrudeGroupId"})
        EXPECT_EQ(number(std::string("getAttr vectorExtrude1.") + id), 1) << id;
}

TEST_F(VectorExtrudeNode, EachInputAffectsTheOutputsItsRowLists) {
    const ZFnDependencyNode node(nodeNamed("vectorExtrude1"));
    for (const GoldenRow& row : readGoldenTable("vectorextrude_attributes.tsv", 4)) {
        ZStatus status;
        const ZObject attribute = node.attribute(ZString(row[0]), &status);
        ASSERT_TRUE(status) << row[0];
        EXPECT_EQ(affectedNames(node, attribute), row[3] == "-" ? "" : row[3]) << row[0];
    }
}

TEST_F(VectorExtrudeNode, StartsWithTheProfileTypeExtrudeStartsWith) {
    for (const char* name : {"extrudeCurve", "frontBevelCurve", "backBevelCurve", "outerBevelCurve"}) {
        ZIntArray indices;
        ZDoubleArray older[2], newer[2];
        ASSERT_TRUE(
            ZCurveAttribute(plugNamed("vectorExtrude1", name)).getEntries(indices, older[0], older[1]));
        ASSERT_TRUE(ZCurveAttribute(plugNamed("typeExtrude1", name)).getEntries(indices, newer[0], newer[1]));
        EXPECT_EQ(older[0].asVector(), newer[0].asVector()) << name;
        EXPECT_EQ(older[1].asVector(), newer[1].asVector()) << name;
    }
}

// With its extra inputs untouched and the shared ones set alike, the older
// node builds typeExtrude's solid: points, faces, holes, uvs, component lists
// and character groups, with and without bevels, in both offset modes.
TEST_F(VectorExtrudeNode, WithItsExtraInputsAtTheirDefaultsBuildsWhatTypeExtrudeBuilds) {
    takeTypeExtrudeValues();
    const std::vector<std::vector<std::pair<const char*, const char*>>> settings = {
        {},
        {{"enableFrontBevel", "1"}, {"bevelStyle", "2"}, {"enableBackBevel", "1"}, {"mode", "0"}},
        {{"enableOuterBevel", "1"}, {"bevelStyle", "1"}, {"deleteCaps", "1"}, {"extrudeDivisions", "2"}},
        {{"enableExtrusion", "0"}},
    };
    for (const auto& changes : settings) {
        std::string label;
        for (const auto& [attribute, value] : changes) {
            setBoth(attribute, value);
            label += std::string(attribute) + "=" + value + " ";
        }
        const SolidSnapshot older = snapshot("vectorExtrude1");
        ASSERT_FALSE(older.points.empty()) << label;
        EXPECT_TRUE(older == snapshot("typeExtrude1")) << label;
    }
}

TEST_F(VectorExtrudeNode, BevelSwitchForcesTheBevelThatBevelStyleWouldGive) {
    takeTypeExtrudeValues();
    // "Off" leaves the bevel to bevelStyle and its switches.
    EXPECT_TRUE(snapshot("vectorExtrude1") == snapshot("typeExtrude1"));
    EXPECT_TRUE(componentFaces("vectorExtrude1", "bevelComponents").empty());

    ASSERT_TRUE(run("setAttr vectorExtrude1.bevel 1"));
    setBoth("bevelStyle", "2");
    ASSERT_TRUE(run("setAttr typeExtrude1.enableFrontBevel 1"));
    const SolidSnapshot inside = snapshot("vectorExtrude1");
    EXPECT_FALSE(inside.components[1].empty());
    EXPECT_TRUE(inside == snapshot("typeExtrude1")) << "Inside";

    ASSERT_TRUE(run("setAttr vectorExtrude1.bevel 2"));
    setBoth("bevelStyle", "1");
    ASSERT_TRUE(run("setAttr typeExtrude1.enableOuterBevel 1"));
    const SolidSnapshot outside = snapshot("vectorExtrude1");
    EXPECT_FALSE(outside.components[1].empty());
    EXPECT_NE(outside.points.size(), inside.points.size());
    EXPECT_TRUE(outside == snapshot("typeExtrude1")) << "Outside";

    EXPECT_FALSE(run("setAttr vectorExtrude1.bevel 3"));
}

TEST_F(VectorExtrudeNode, EachEvaluationPrintsItsFaceCount) {
    ::testing::internal::CaptureStdout();
    const int faces = ZFnMesh(meshOf("vectorExtrude1")).numPolygons();
    const std::string printed = ::testing::internal::GetCapturedStdout();
    ASSERT_GT(faces, 0);
    EXPECT_NE(printed.find("number of faces: " + std::to_string(faces) + "\n"), std::string::npos) << printed;
}

// The character groups come with the mesh, one vertex group a character,
// the same vertices as typeExtrude's.
TEST_F(VectorExtrudeNode, GroupsEachCharacterAsTypeExtrudeDoes) {
    takeTypeExtrudeValues();
    auto groups = [](const std::string& node) {
        ZObject ids;
        EXPECT_TRUE(plugNamed(node, "vertexGroupIds").getValue(ids));
        ZIntArray used;
        ZFnIntArrayData(ids).copyTo(used);
        ZFnGeometryData geometry(meshOf(node));
        std::vector<std::vector<int>> vertices;
        for (const int id : used) {
            ZIntArray elements;
            ZFnSingleIndexedComponent(geometry.objectGroupComponent(static_cast<unsigned int>(id)))
                .getElements(elements);
            vertices.push_back(elements.asVector());
        }
        return vertices;
    };
    const std::vector<std::vector<int>> older = groups("vectorExtrude1");
    ASSERT_EQ(older.size(), 3u);
    EXPECT_FALSE(older[1].empty());
    EXPECT_EQ(older, groups("typeExtrude1"));
}

} // namespace
} // namespace typetest
