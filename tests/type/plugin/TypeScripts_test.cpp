#include "PluginTesting.h"

namespace typetest {
namespace {

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

using TypeScripts = TypePluginTest;

std::vector<std::string> sourcesOf(const std::string& plug) {
    return texts("listConnections -s 1 -d 0 -p 1 " + plug);
}

TEST_F(TypeScripts, CreateTextWiresACompleteTextObject) {
    ASSERT_THAT(texts("typeCreateText"), ElementsAre("type1", "typeExtrude1", "shellDeformer1",
                                                     "vectorAdjust1", "typeMesh1", "typeMesh1Shape"));

    EXPECT_THAT(sourcesOf("typeExtrude1.inputMesh"), ElementsAre("type1.outputMesh"));
    EXPECT_THAT(sourcesOf("shellDeformer1.input[0].inputGeom"), ElementsAre("typeExtrude1.outputMesh"));
    EXPECT_THAT(sourcesOf("vectorAdjust1.input[0].inputGeom"), ElementsAre("shellDeformer1.outputGeom[0]"));
    EXPECT_THAT(sourcesOf("typeMesh1Shape.inMesh"), ElementsAre("vectorAdjust1.outputGeom[0]"));

    for (const std::string deformer : {"shellDeformer1", "vectorAdjust1"}) {
        EXPECT_THAT(sourcesOf(deformer + ".grouping"), ElementsAre("type1.grouping")) << deformer;
        EXPECT_THAT(sourcesOf(deformer + ".vertsPerChar"), ElementsAre("type1.vertsPerChar")) << deformer;
        EXPECT_THAT(sourcesOf(deformer + ".vertexGroupIds"), ElementsAre("typeExtrude1.vertexGroupIds"))
            << deformer;
    }
    for (const std::string attribute :
         {"manipulatorPositionsPP", "manipulatorWordRotationsPP", "manipulatorLineScalesPP", "alignmentMode"})
        EXPECT_THAT(sourcesOf("vectorAdjust1." + attribute), ElementsAre("type1." + attribute)) << attribute;
    EXPECT_THAT(sourcesOf("typeExtrude1.vertsPerChar"), ElementsAre("type1.vertsPerChar"));
    EXPECT_THAT(sourcesOf("shellDeformer1.time"), ElementsAre("time1.outTime"));

    EXPECT_THAT(sourcesOf("type1.animationMessage"), ElementsAre("shellDeformer1.message"));
    EXPECT_THAT(sourcesOf("type1.extrudeMessage"), ElementsAre("typeExtrude1.message"));
    EXPECT_THAT(sourcesOf("type1.transformMessage"), ElementsAre("typeMesh1.message"));
    EXPECT_THAT(sourcesOf("type1.remeshMessage"), ElementsAre("typeMesh1Shape.message"));
    EXPECT_EQ(text("getAttr -type typeMesh1.toolPosition"), "double3");
}

TEST_F(TypeScripts, TwoTextObjectsKeepToThemselves) {
    ASSERT_TRUE(run("typeCreateText"));
    ASSERT_THAT(texts("typeCreateText"), ElementsAre("type2", "typeExtrude2", "shellDeformer2",
                                                     "vectorAdjust2", "typeMesh2", "typeMesh2Shape"));
    EXPECT_THAT(sourcesOf("typeExtrude2.inputMesh"), ElementsAre("type2.outputMesh"));
    EXPECT_THAT(sourcesOf("type2.transformMessage"), ElementsAre("typeMesh2.message"));
}

// A new text object draws without the node's complaint about a missing font.
TEST_F(TypeScripts, NewTextStartsInAnInstalledFont) {
    ASSERT_TRUE(run("typeCreateText"));
    EXPECT_NE(text("getAttr type1.currentFont"), "");
    EXPECT_GT(std::stoi(text("getAttr type1.numberOfShells")), 0);
    EXPECT_EQ(text("getAttr type1.fontError"), "");
}

TEST_F(TypeScripts, SetTextKeepsEveryByteOfTheText) {
    ASSERT_TRUE(run("typeCreateText"));
    ASSERT_TRUE(run("typeSetText \"type1\" \"\\\"\\\\\xc3\xbc\""));
    EXPECT_EQ(text("getAttr type1.textInput"), "22 5c c3 bc ");
}

// A text object that cannot be wired up is not left half made.
TEST_F(TypeScripts, CreateTextTakesBackWhatItMadeWhenWiringFails) {
    python("import zyvo.cmds\n"
           "def refuse(source, destination, **flags):\n"
           "    raise RuntimeError('connectAttr: refused ' + destination)\n"
           "zyvo.cmds.connectAttr = refuse");
    testing::internal::CaptureStderr();
    EXPECT_FALSE(run("typeCreateText"));
    EXPECT_NE(testing::internal::GetCapturedStderr().find("refused typeExtrude1.inputMesh"),
              std::string::npos);
    python("del zyvo.cmds.connectAttr");
    for (const char* type : {"type", "typeExtrude", "shellDeformer", "vectorAdjust", "transform", "mesh"})
        EXPECT_THAT(texts(std::string("ls -type ") + type), ::testing::IsEmpty()) << type;
}

TEST_F(TypeScripts, GroupIdsAreAddedAfterTheExistingOnesWithIdsOfTheirOwn) {
    ASSERT_TRUE(run("createNode typeExtrude"));
    ASSERT_TRUE(run("createNode groupId -n taken1"));
    ASSERT_TRUE(run("setAttr taken1.groupId 7"));

    ASSERT_TRUE(run("createExtruderGroupIds(\"typeExtrude1\", 2)"));
    ASSERT_TRUE(run("createExtruderGroupIds(\"typeExtrude1\", 1)"));

    EXPECT_EQ(number("getAttr -size typeExtrude1.charGroupId"), 3);
    std::vector<int> ids;
    for (int index = 0; index < 3; ++index) {
        const auto sources = sourcesOf("typeExtrude1.charGroupId[" + std::to_string(index) + "]");
        ASSERT_EQ(sources.size(), 1u) << index;
        ids.push_back(number("getAttr " + sources[0]));
    }
    EXPECT_THAT(ids, ElementsAre(8, 9, 10));
}

TEST_F(TypeScripts, GroupIdsRefuseANodeThatIsNoExtruder) {
    ASSERT_TRUE(run("createNode type"));
    EXPECT_FALSE(run("createExtruderGroupIds(\"type1\", 2)"));
    EXPECT_FALSE(run("createExtruderGroupIds(\"nothing1\", 2)"));
    EXPECT_TRUE(texts("ls -type groupId").empty());
}

TEST_F(TypeScripts, ToolValuesDescribeTheSelectedText) {
    ASSERT_TRUE(run("typeCreateText"));
    ASSERT_TRUE(run("setAttr type1.manipulatorMode 2"));
    ASSERT_TRUE(run("setAttr type1.positionAdjust 1 2 3"));
    ASSERT_TRUE(run("select typeMesh1"));
    python("import zyvo.app.type.toolValues");
    EXPECT_EQ(python("zyvo.app.type.toolValues.typeTRSToolValues('TypeManipCtx')"),
              "[2, 0, 1.0, 2.0, 3.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0]");
    ASSERT_TRUE(run("select -cl"));
    EXPECT_EQ(python("zyvo.app.type.toolValues.typeTRSToolValues('TypeManipCtx')"), "[]");
}

// Rebuilding the manipulator goes through the selection, which it leaves as
// it found it.
TEST_F(TypeScripts, FlippingTheManipulatorKeepsTheSelection) {
    ASSERT_TRUE(run("typeCreateText"));
    ASSERT_TRUE(run("select typeMesh1"));
    python("import zyvo.app.type.typeUtilityScripts");
    python("zyvo.app.type.typeUtilityScripts.flipTypeManipulator()");
    EXPECT_THAT(texts("ls -sl"), ElementsAre("typeMesh1"));
}

} // namespace
} // namespace typetest
