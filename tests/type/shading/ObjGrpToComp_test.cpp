#include "../AffectedAttributes.h"
#include "../GoldenTable.h"
#include "../plugin/PluginTesting.h"

#include <OpenZyvo/ZFnAttribute.h>
#include <OpenZyvo/ZFnComponentListData.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnGeometryData.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZFnMeshData.h>
#include <OpenZyvo/ZFnSingleIndexedComponent.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZObjectArray.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPointArray.h>
#include <OpenZyvo/ZSelectionList.h>
#include <algorithm>
#include <utility>

// The objectGrpToComp node as a host meets it: a mesh with object groups in,
// the same mesh and one face list per group out.
namespace typetest {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

using Members = std::vector<int>;

ZObject nodeNamed(const std::string& name) {
    ZSelectionList list;
    ZObject node;
    EXPECT_TRUE(list.add(ZString(name)));
    EXPECT_TRUE(list.getDependNode(0, node));
    return node;
}

ZPlug plugNamed(const std::string& node, const std::string& attribute) {
    ZStatus status;
    const ZPlug plug = ZFnDependencyNode(nodeNamed(node)).findPlug(ZString(attribute), true, &status);
    EXPECT_TRUE(status) << node << "." << attribute;
    return plug;
}

ZObject meshOf(const std::string& node) {
    ZObject data;
    EXPECT_TRUE(plugNamed(node, "outputMesh").getValue(data)) << node;
    return data;
}

Members membersOf(const ZObject& component) {
    ZIntArray elements;
    EXPECT_TRUE(ZFnSingleIndexedComponent(component).getElements(elements));
    return Members(elements.begin(), elements.end());
}

// The faces of one component list, and whether every component in it holds faces.
std::pair<Members, bool> faceList(const ZPlug& plug) {
    ZObject data;
    EXPECT_TRUE(plug.getValue(data)) << plug.name().asStdString();
    std::pair<Members, bool> out{{}, true};
    const ZFnComponentListData list(data);
    for (unsigned int i = 0; i < list.length(); ++i) {
        out.second = out.second && ZFnComponent(list[i]).componentType() == ZFn::kMeshPolygonComponent;
        const Members members = membersOf(list[i]);
        out.first.insert(out.first.end(), members.begin(), members.end());
    }
    return out;
}

// outComponents of the node as it stands, without pulling the mesh.
std::vector<Members> componentLists(const std::string& node = "objectGrpToComp1") {
    const ZPlug lists = plugNamed(node, "outComponents");
    std::vector<Members> out;
    const unsigned int count = lists.evaluateNumElements();
    for (unsigned int i = 0; i < count; ++i) {
        const ZPlug element = lists.elementByPhysicalIndex(i);
        EXPECT_EQ(element.logicalIndex(), i) << "one element per group, from 0";
        const auto [faces, allFaces] = faceList(element);
        EXPECT_TRUE(allFaces) << "element " << i;
        out.push_back(faces);
    }
    return out;
}

ZObject component(ZFn::Type kind, const ZIntArray& ids) {
    ZFnSingleIndexedComponent fn;
    const ZObject made = fn.create(kind);
    EXPECT_TRUE(fn.addElements(ids));
    return made;
}

// A unit cube: 8 vertices, 6 faces.
ZObject cube() {
    const ZPointArray points{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},
                             {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}};
    const ZIntArray counts{4, 4, 4, 4, 4, 4};
    const ZIntArray connects{0, 3, 2, 1, 4, 5, 6, 7, 0, 1, 5, 4, 1, 2, 6, 5, 2, 3, 7, 6, 3, 0, 4, 7};
    ZObject data = ZFnMeshData().create();
    ZFnMesh().create(8, 6, points, counts, connects, data);
    return data;
}

void addGroup(const ZObject& data, unsigned int id, const ZObject& members = ZObject()) {
    ZFnGeometryData geometry(data);
    ASSERT_TRUE(geometry.addObjectGroup(id));
    if (!members.isNull()) {
        ASSERT_TRUE(geometry.setObjectGroupComponent(id, members));
    }
}

std::vector<ZPoint> pointsOf(const ZObject& data) {
    ZPointArray points;
    ZFnMesh(data).getPoints(points);
    return points.asVector();
}

class ObjGrpToComp : public TypePluginTest {
protected:
    void SetUp() override {
        TypePluginTest::SetUp();
        ASSERT_EQ(text("createNode objectGrpToComp"), "objectGrpToComp1");
    }

    static void feed(const ZObject& data) {
        ASSERT_TRUE(plugNamed("objectGrpToComp1", "inputMesh").setValue(data));
    }
};

TEST_F(ObjGrpToComp, HasItsAttributesInOrderWithTheirFlagsAndWhatTheyDirty) {
    const ZFnDependencyNode node(nodeNamed("objectGrpToComp1"));
    std::vector<std::string> created;
    for (unsigned int i = 0; i < node.attributeCount(); ++i) {
        const ZFnAttribute fn(node.attribute(i));
        if (!fn.parent().isNull() || fn.name() == "message")
            continue;
        const std::string dirties = affectedNames(node, node.attribute(i));
        std::string flags;
        for (const auto& [set, flag] : {std::pair{fn.isArray(), "array"}, std::pair{fn.isHidden(), "hidden"},
                                        std::pair{fn.isStorable(), "storable"}})
            if (set)
                flags += std::string(flags.empty() ? "" : ",") + flag;
        created.push_back(fn.name().asStdString() + " " + fn.shortName().asStdString() + " " +
                          (dirties.empty() ? "-" : dirties) + " " + (flags.empty() ? "-" : flags));
    }
    std::vector<std::string> expected;
    for (const GoldenRow& row : readGoldenTable("objectgrptocomp_attributes.tsv", 4))
        expected.push_back(row[0] + " " + row[1] + " " + row[2] + " " + row[3]);
    EXPECT_THAT(created, ElementsAreArray(expected));
    EXPECT_EQ(number("getAttr objectGrpToComp1.generatePlanarUVs"), 1);
}

// Without an input there is nothing to pass on, and that is no error.
TEST_F(ObjGrpToComp, WithoutAnInputMeshTheOutputsStayEmpty) {
    ZObject data;
    EXPECT_TRUE(plugNamed("objectGrpToComp1", "outputMesh").getValue(data));
    EXPECT_TRUE(data.isNull());
    EXPECT_THAT(componentLists(), IsEmpty());
}

TEST_F(ObjGrpToComp, AMeshWithoutGroupsPassesThroughWithNoComponentLists) {
    const ZObject input = cube();
    feed(input);
    const ZObject output = meshOf("objectGrpToComp1");
    ASSERT_FALSE(output.isNull());
    EXPECT_EQ(ZFnMesh(output).numPolygons(), 6);
    EXPECT_EQ(pointsOf(output), pointsOf(input));
    EXPECT_EQ(ZFnGeometryData(output).objectGroupCount(), 0u);
    EXPECT_THAT(componentLists(), IsEmpty());
    EXPECT_EQ(number("getAttr -size objectGrpToComp1.outComponents"), 0);
}

// Every group keeps its place: a group without members, or with members of
// another kind, still has its element, and the mesh keeps its groups.
TEST_F(ObjGrpToComp, EachGroupHasItsListAtItsIndexEvenWithoutFaceMembers) {
    const ZObject input = cube();
    addGroup(input, 40, component(ZFn::kMeshPolygonComponent, ZIntArray{5, 0, 2}));
    addGroup(input, 7);
    addGroup(input, 12, component(ZFn::kMeshVertComponent, ZIntArray{1, 3}));
    feed(input);
    const ZObject output = meshOf("objectGrpToComp1");
    const ZFnGeometryData groups(output);
    ASSERT_EQ(groups.objectGroupCount(), 3u);
    EXPECT_EQ(groups.objectGroup(0), 40u);
    EXPECT_EQ(membersOf(groups.objectGroupComponent(40)), (Members{0, 2, 5}));
    EXPECT_THAT(componentLists(), ElementsAre(Members{0, 2, 5}, IsEmpty(), Members{1, 3}));
}

// The lists come with the mesh: asked for alone they keep what the last
// evaluation of the mesh wrote.
TEST_F(ObjGrpToComp, ComponentListsAreWrittenOnlyWhenTheMeshIsPulled) {
    const ZObject twoGroups = cube();
    addGroup(twoGroups, 1, component(ZFn::kMeshPolygonComponent, ZIntArray{0}));
    addGroup(twoGroups, 2, component(ZFn::kMeshPolygonComponent, ZIntArray{1, 4}));
    feed(twoGroups);
    EXPECT_THAT(componentLists(), IsEmpty());
    EXPECT_EQ(number("getAttr -size objectGrpToComp1.outComponents"), 0);

    meshOf("objectGrpToComp1");
    EXPECT_THAT(componentLists(), ElementsAre(Members{0}, Members{1, 4}));

    const ZObject oneGroup = cube();
    addGroup(oneGroup, 9, component(ZFn::kMeshPolygonComponent, ZIntArray{3}));
    feed(oneGroup);
    EXPECT_THAT(componentLists(), ElementsAre(Members{0}, Members{1, 4}));
    meshOf("objectGrpToComp1");
    EXPECT_THAT(componentLists(), ElementsAre(Members{3})) << "no list is left over from a larger mesh";
}

// The node's purpose: the cap, bevel and extrusion faces of an extruded text
// reached by index, the per-character groups after them.
TEST_F(ObjGrpToComp, ListsTheCapBevelAndExtrusionFacesOfAnExtrudedText) {
    ASSERT_EQ(text("createNode type"), "type1");
    ASSERT_TRUE(run("setAttr -type \"string\" type1.currentFont \"DejaVu Sans\""));
    ASSERT_TRUE(run("setAttr -type \"string\" type1.currentStyle \"Book\""));
    ASSERT_EQ(text("createNode typeExtrude"), "typeExtrude1");
    ASSERT_TRUE(run("connectAttr type1.outputMesh typeExtrude1.inputMesh"));
    ASSERT_TRUE(run("connectAttr type1.vertsPerChar typeExtrude1.vertsPerChar"));
    ASSERT_TRUE(run("setAttr typeExtrude1.enableFrontBevel 1"));
    ASSERT_TRUE(run("setAttr typeExtrude1.bevelStyle 2"));
    ASSERT_TRUE(run("setAttr typeExtrude1.capGroupId 101"));
    ASSERT_TRUE(run("setAttr typeExtrude1.bevelGroupId 102"));
    ASSERT_TRUE(run("setAttr typeExtrude1.extrudeGroupId 103"));
    ASSERT_TRUE(run("connectAttr typeExtrude1.outputMesh objectGrpToComp1.inputMesh"));
    // The per-character groups join the extruded mesh when their ids are asked for.
    ASSERT_TRUE(run("getAttr typeExtrude1.vertexGroupIds"));

    const ZObject output = meshOf("objectGrpToComp1");
    const ZObject extruded = meshOf("typeExtrude1");
    EXPECT_EQ(ZFnMesh(output).numPolygons(), ZFnMesh(extruded).numPolygons());
    EXPECT_EQ(pointsOf(output), pointsOf(extruded));

    const std::vector<Members> lists = componentLists();
    const ZFnGeometryData groups(extruded);
    ASSERT_EQ(lists.size(), groups.objectGroupCount());
    ASSERT_GT(lists.size(), 3u) << "the per-character groups follow the three parts";
    int part = 0;
    for (const char* name : {"capComponents", "bevelComponents", "extrusionComponents"}) {
        const Members faces = faceList(plugNamed("typeExtrude1", name)).first;
        EXPECT_FALSE(faces.empty()) << name;
        EXPECT_EQ(lists[part++], faces) << name;
    }
    for (unsigned int i = 3; i < lists.size(); ++i)
        EXPECT_EQ(lists[i], membersOf(groups.objectGroupComponent(groups.objectGroup(i)))) << i;
}

} // namespace
} // namespace typetest
