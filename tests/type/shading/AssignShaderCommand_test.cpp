#include "ExportedMaterials.h"
#include "plugin/TypeMessages.h"

#include <OpenZyvo/ZFnGeometryData.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZFnMeshData.h>
#include <OpenZyvo/ZFnSingleIndexedComponent.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPointArray.h>
#include <OpenZyvo/ZSelectionList.h>
#include <OpenZyvoHost/ZHostExport.h>
#include <OpenZyvoHost/ZHostMessages.h>
#include <fstream>
#include <map>
#include <sstream>

namespace typetest {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::string> sourcesOf(const std::string& plug) {
    return texts("listConnections -s 1 -d 0 -p 1 " + plug);
}

// A call the user could undo, as typed at the host's command line.
ZStatus runUndoable(const std::string& command) {
    return ZGlobal::executeCommand(ZString(command), false, true);
}

std::string messageText(const ZStringResourceId& id) {
    return type::messages::text(id).asStdString();
}

// A groupId node, a shading engine and a mesh shape under a transform.
class AssignShaderToType : public TypePluginTest {
protected:
    void SetUp() override {
        TypePluginTest::SetUp();
        ASSERT_TRUE(run("createNode groupId -n part"));
        ASSERT_TRUE(run("createNode shadingEngine -n partSG"));
        ASSERT_TRUE(run("createNode transform -n letter"));
        ASSERT_TRUE(run("createNode mesh -n letterShape -p letter"));
    }

    static constexpr const char* kAssign = "assignShaderToType -gr part -sg partSG -me letterShape";

    // Runs a call that must fail and returns the errors it reported.
    static std::vector<std::string> errorsOf(const std::string& command) {
        const std::size_t before = ZHost::errorCount();
        testing::internal::CaptureStderr();
        EXPECT_FALSE(run(command)) << command;
        testing::internal::GetCapturedStderr();
        return ZHost::errorsSince(before);
    }

    // The four connections of one binding: object group k of the mesh,
    // member m and group node n of the shading group.
    static void expectBound(int k, int m, int n) {
        const std::string group = "letterShape.instObjGroups[0].objectGroups[" + std::to_string(k) + "]";
        EXPECT_THAT(sourcesOf(group + ".objectGroupId"), ElementsAre("part.groupId"));
        EXPECT_THAT(sourcesOf(group + ".objectGrpColor"), ElementsAre("partSG.memberWireframeColor"));
        EXPECT_THAT(sourcesOf("partSG.dagSetMembers[" + std::to_string(m) + "]"), ElementsAre(group));
        EXPECT_THAT(sourcesOf("partSG.groupNodes[" + std::to_string(n) + "]"), ElementsAre("part.message"));
    }

    static void expectNothingConnected() {
        EXPECT_THAT(texts("listConnections -p 1 partSG"), IsEmpty());
        EXPECT_THAT(texts("listConnections -p 1 letterShape"), IsEmpty());
    }
};

TEST_F(AssignShaderToType, WiresTheGroupTheWayAFaceAssignmentIsWired) {
    ASSERT_TRUE(run(kAssign));
    expectBound(0, 0, 0);
}

TEST_F(AssignShaderToType, LongFlagsWork) {
    ASSERT_TRUE(run("assignShaderToType -groupIdNode part -shaderGroup partSG -meshNode letterShape"));
    EXPECT_THAT(sourcesOf("partSG.groupNodes[0]"), ElementsAre("part.message"));
}

// Object groups 0 and 2 taken: the new one fills the gap.
TEST_F(AssignShaderToType, NewObjectGroupGoesToTheFirstGapInTheIndices) {
    ASSERT_TRUE(run("createNode groupId -n other"));
    ASSERT_TRUE(run("connectAttr other.groupId letterShape.instObjGroups[0].objectGroups[0].objectGroupId"));
    ASSERT_TRUE(run("connectAttr other.groupId letterShape.instObjGroups[0].objectGroups[2].objectGroupId"));
    ASSERT_TRUE(run(kAssign));
    EXPECT_THAT(sourcesOf("letterShape.instObjGroups[0].objectGroups[1].objectGroupId"),
                ElementsAre("part.groupId"));
    EXPECT_THAT(sourcesOf("partSG.dagSetMembers[0]"),
                ElementsAre("letterShape.instObjGroups[0].objectGroups[1]"));
}

// An element whose connection was broken still exists: the members look for a
// gap in the indices and pass over it, the group nodes take it again.
TEST_F(AssignShaderToType, GroupNodesReuseAnUnconnectedElementWhereMembersDoNot) {
    ASSERT_TRUE(run("createNode groupId -n old"));
    ASSERT_TRUE(run("createNode transform -n other"));
    ASSERT_TRUE(run("createNode mesh -n otherShape -p other"));
    for (int index : {0, 1}) {
        const std::string i = std::to_string(index);
        ASSERT_TRUE(run("connectAttr otherShape.instObjGroups[0].objectGroups[" + i +
                        "] partSG.dagSetMembers[" + i + "]"));
        ASSERT_TRUE(run("connectAttr old.message partSG.groupNodes[" + i + "]"));
    }
    ASSERT_TRUE(run("disconnectAttr otherShape.instObjGroups[0].objectGroups[0] partSG.dagSetMembers[0]"));
    ASSERT_TRUE(run("disconnectAttr old.message partSG.groupNodes[0]"));

    ASSERT_TRUE(run(kAssign));
    EXPECT_THAT(sourcesOf("partSG.dagSetMembers[2]"),
                ElementsAre("letterShape.instObjGroups[0].objectGroups[0]"));
    EXPECT_THAT(sourcesOf("partSG.groupNodes[0]"), ElementsAre("part.message"));
}

TEST_F(AssignShaderToType, RunningTwiceAddsASecondGroupAndMember) {
    ASSERT_TRUE(run(kAssign));
    ASSERT_TRUE(run(kAssign));
    expectBound(0, 0, 0);
    expectBound(1, 1, 1);
}

TEST_F(AssignShaderToType, UndoTakesAllFourConnectionsBackAndRedoMakesThemAgain) {
    ASSERT_TRUE(runUndoable(kAssign));
    ASSERT_TRUE(run("undo"));
    expectNothingConnected();
    ASSERT_TRUE(run("redo"));
    expectBound(0, 0, 0);
}

struct Refusal {
    const char* call;
    const ZStringResourceId* message;
};

// Each refused call shows its one message (after the parser's own report for a
// list that does not fit) and connects nothing; a check that fails stops the
// ones after it.
TEST_F(AssignShaderToType, RefusedCallsShowTheirMessageAndConnectNothing) {
    ASSERT_TRUE(run("createNode lambert -n paint"));
    const Refusal refusals[] = {
        {"assignShaderToType -gr part -sg partSG -me letterShape -bogus 1", &type::messages::kTypeParseError},
        {"assignShaderToType -gr part -sg partSG letterShape", &type::messages::kTypeParseError},
        {"assignShaderToType -gr part -sg partSG", &type::messages::kTypeMissingFlagsError},
        {"assignShaderToType", &type::messages::kTypeMissingFlagsError},
        {"assignShaderToType -gr partSG -sg part -me letter", &type::messages::kGroupIDArgsError},
        {"assignShaderToType -gr nowhere -sg partSG -me letterShape", &type::messages::kGroupIDArgsError},
        {"assignShaderToType -gr part -sg paint -me letter", &type::messages::kShaderGroupArgsError},
        {"assignShaderToType -gr part -sg part -me letterShape", &type::messages::kShaderGroupArgsError},
        {"assignShaderToType -gr part -sg partSG -me letter", &type::messages::kMeshArgsError},
        {"assignShaderToType -gr part -sg partSG -me \"letter*\"", &type::messages::kMeshArgsError},
    };
    for (const Refusal& refusal : refusals) {
        const std::vector<std::string> errors = errorsOf(refusal.call);
        ASSERT_FALSE(errors.empty()) << refusal.call;
        EXPECT_EQ(errors.back(), messageText(*refusal.message)) << refusal.call;
        if (refusal.message != &type::messages::kTypeParseError) {
            EXPECT_EQ(errors.size(), 1u) << refusal.call;
        }
        expectNothingConnected();
    }
}

TEST_F(AssignShaderToType, RefusedCallLeavesNothingToUndo) {
    ASSERT_TRUE(runUndoable(kAssign));
    const std::size_t before = ZHost::errorCount();
    testing::internal::CaptureStderr();
    EXPECT_FALSE(runUndoable("assignShaderToType -gr part -sg partSG"));
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(ZHost::errorsSince(before).size(), 1u);
    ASSERT_TRUE(run("undo"));
    expectNothingConnected();
}

// A mesh whose data holds object groups 7 and 9; the command binds each to an
// engine with a Lambert shader of its own colour.
class AssignShaderExport : public AssignShaderToType {
protected:
    void SetUp() override {
        AssignShaderToType::SetUp();
        // Three quads in a row; group 7 holds the outer two, group 9 the middle one.
        const ZPointArray points{{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0},
                                 {0, 1, 0}, {1, 1, 0}, {2, 1, 0}, {3, 1, 0}};
        const ZObject data = ZFnMeshData().create();
        ZStatus status;
        ZFnMesh().create(8, 3, points, ZIntArray{4, 4, 4}, ZIntArray{0, 1, 5, 4, 1, 2, 6, 5, 2, 3, 7, 6},
                         data, &status);
        ASSERT_TRUE(status);
        ZFnGeometryData geometry(data);
        addGroup(geometry, 7, ZIntArray{0, 2});
        addGroup(geometry, 9, ZIntArray{1});

        ZSelectionList list;
        ASSERT_TRUE(list.add("letterShape.inMesh"));
        ZPlug inMesh;
        ASSERT_TRUE(list.getPlug(0, inMesh));
        ASSERT_TRUE(inMesh.setValue(data));

        ASSERT_TRUE(run("setAttr part.groupId 7"));
        ASSERT_TRUE(run("createNode groupId -n middle"));
        ASSERT_TRUE(run("setAttr middle.groupId 9"));
        ASSERT_TRUE(run("createNode shadingEngine -n middleSG"));
        for (const auto& [engine, colour] : {std::pair{"partSG", "1 0 0"}, std::pair{"middleSG", "0 0 1"}}) {
            const std::string shader = std::string(engine) + "Paint";
            ASSERT_TRUE(run("createNode lambert -n " + shader));
            ASSERT_TRUE(run("setAttr " + shader + ".color " + colour));
            ASSERT_TRUE(run("connectAttr " + shader + ".outColor " + engine + ".surfaceShader"));
        }
    }

    static void addGroup(ZFnGeometryData& geometry, unsigned int id, const ZIntArray& faces) {
        ZFnSingleIndexedComponent component;
        const ZObject object = component.create(ZFn::kMeshPolygonComponent);
        ASSERT_TRUE(component.addElements(faces));
        ASSERT_TRUE(geometry.addObjectGroup(id));
        ASSERT_TRUE(geometry.setObjectGroupComponent(id, object));
    }
};

TEST_F(AssignShaderExport, ExportWritesEachGroupsFacesWithItsEngine) {
    ASSERT_TRUE(run(kAssign));
    ASSERT_TRUE(run("assignShaderToType -gr middle -sg middleSG -me letterShape"));
    const std::map<std::string, int> triangles = exportedTriangles("letter");
    EXPECT_EQ(triangles.at("partSG"), 4);
    EXPECT_EQ(triangles.at("middleSG"), 2);
}

TEST_F(AssignShaderExport, UndoneAssignmentNoLongerBindsTheFaces) {
    ASSERT_TRUE(run(kAssign));
    ASSERT_TRUE(runUndoable("assignShaderToType -gr middle -sg middleSG -me letterShape"));
    ASSERT_TRUE(run("undo"));
    const std::map<std::string, int> triangles = exportedTriangles("letter");
    EXPECT_EQ(triangles.count("middleSG"), 0u);
    EXPECT_EQ(triangles.at("partSG"), 4);
}

} // namespace
} // namespace typetest
