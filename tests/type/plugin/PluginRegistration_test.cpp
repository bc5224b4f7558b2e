#include "PluginTesting.h"
#include "plugin/TypeMessages.h"

#include <OpenZyvo/ZDagPath.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnVectorArrayData.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZSelectionList.h>
#include <OpenZyvo/ZStringResource.h>
#include <OpenZyvoRender/ZDrawRegistry.h>
#include <OpenZyvoRender/ZPxDrawOverride.h>
#include <memory>

namespace typetest {
namespace {

using ::testing::ElementsAre;

constexpr char kPointsClassification[] = "drawdb/geometry/displayPointsDrawManager";

struct NodeType {
    const char* name;
    unsigned int id;
    ZFn::Type apiType;
};

// Scenes store these ids; they can never change.
const NodeType kNodeTypes[] = {
    {"type", 0x11BE2E, ZFn::kPluginDependNode},
    {"shellDeformer", 0x11BE0D, ZFn::kPluginDeformerNode},
    {"vectorAdjust", 0x123C01, ZFn::kPluginDeformerNode},
    {"vectorExtrude", 0x11BE2C, ZFn::kPluginDependNode},
    {"typeExtrude", 0x123C25, ZFn::kPluginDependNode},
    {"svgToPoly", 0x123C11, ZFn::kPluginDependNode},
    {"typeManip", 0x11BE17, ZFn::kPluginManipContainer},
    {"displayPoints", 0x123C00, ZFn::kPluginLocatorNode},
    {"objectGrpToComp", 0x123C02, ZFn::kPluginDependNode},
};

using PluginRegistration = TypePluginTest;

TEST_F(PluginRegistration, RegistersTheNodeTypesInOrder) {
    EXPECT_THAT(texts("pluginInfo -q -dependNode Type"),
                ElementsAre("type", "shellDeformer", "vectorAdjust", "vectorExtrude", "typeExtrude",
                            "svgToPoly", "typeManip", "displayPoints", "objectGrpToComp"));
}

TEST_F(PluginRegistration, NodesGetTheirTypeIdsAndKinds) {
    for (const NodeType& type : kNodeTypes) {
        ZStatus status;
        ZFnDependencyNode fn;
        const ZObject node = fn.create(ZString(type.name), &status);
        ASSERT_TRUE(status) << type.name;
        EXPECT_EQ(fn.typeId().id(), type.id) << type.name;
        EXPECT_EQ(fn.pluginName(), "Type") << type.name;
        EXPECT_TRUE(node.hasFn(type.apiType)) << type.name;
    }
}

TEST_F(PluginRegistration, RegistersBothCommandsAndDescribesItself) {
    const auto commands = texts("pluginInfo -q -command Type");
    EXPECT_THAT(commands, ::testing::UnorderedElementsAre("typeManipContextCommand", "assignShaderToType"));
    EXPECT_EQ(text("pluginInfo -q -vendor Type"), "Type");
    EXPECT_EQ(text("pluginInfo -q -version Type"), "2.0a");
}

TEST_F(PluginRegistration, AssignShaderToTypeChecksItsFlags) {
    testing::internal::CaptureStderr();
    EXPECT_FALSE(run("assignShaderToType -bogus 1"));
    EXPECT_NE(testing::internal::GetCapturedStderr().find("bogus"), std::string::npos);
}

TEST_F(PluginRegistration, RegistersEveryMessageWithItsDefaultText) {
    for (const ZStringResourceId* id : type::messages::registeredMessages()) {
        EXPECT_TRUE(ZStringResource::isRegistered(*id)) << id->key();
        ZStatus status;
        EXPECT_EQ(ZStringResource::getString(*id, status), id->defaultText()) << id->key();
    }
}

TEST_F(PluginRegistration, RunsItsScriptsWhichRegisterTheirProcedures) {
    python("import zyvo.app.type.lifecycle");
    for (const char* procedure : {"typeCreateText", "createExtruderGroupIds", "typeTRSToolValues"})
        EXPECT_EQ(python("'" + std::string(procedure) + "' in zyvo.app.type.lifecycle.PROCEDURES"), "True");
    EXPECT_TRUE(run("typeCreateText"));
}

// The locator files itself under the classification its draw override
// serves, and the override reports the points the locator holds.
TEST_F(PluginRegistration, DisplayPointsAreDrawnByThePointsOverride) {
    EXPECT_EQ(ZFnDependencyNode::classification("displayPoints"), kPointsClassification);
    ASSERT_TRUE(ZHWRender::ZDrawRegistry::hasDrawOverride(kPointsClassification));

    ASSERT_TRUE(run("createNode displayPoints -n points1"));
    ZSelectionList list;
    ASSERT_TRUE(list.add("points1"));
    ZObject node;
    ASSERT_TRUE(list.getDependNode(0, node));
    ZVectorArray points;
    points.append(ZVector(-1.0, 0.0, 2.0));
    points.append(ZVector(3.0, 5.0, -4.0));
    ASSERT_TRUE(ZPlug(node, ZFnDependencyNode(node).attribute("inputPoints"))
                    .setValue(ZFnVectorArrayData().create(points)));

    const std::unique_ptr<ZHWRender::ZPxDrawOverride> drawOverride(
        ZHWRender::ZDrawRegistry::createDrawOverride(kPointsClassification, node));
    ASSERT_TRUE(drawOverride);
    ZDagPath path;
    ASSERT_TRUE(ZDagPath::getAPathTo(node, path));
    EXPECT_TRUE(drawOverride->isBounded(path));
    const ZBoundingBox box = drawOverride->boundingBox(path);
    EXPECT_EQ(box.min(), ZPoint(-1.0, 0.0, -4.0));
    EXPECT_EQ(box.max(), ZPoint(3.0, 5.0, 2.0));
    std::unique_ptr<ZHWRender::ZUserData> data(drawOverride->prepareForDraw(path, nullptr));
    EXPECT_TRUE(data);
}

} // namespace
} // namespace typetest
