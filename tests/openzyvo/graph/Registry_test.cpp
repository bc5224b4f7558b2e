#include "TestNodes.h"
#include "graph/Graph.h"
#include "graph/NodeTypeRegistry.h"

#include <OpenZyvo/ZFnNumericAttribute.h>

using namespace graphtest;

namespace {

oz::NodeTypeInfo info(const char* name, unsigned int id) {
    oz::NodeTypeInfo type;
    type.name = name;
    type.id = ZTypeId(id);
    type.creator = [] {
        return new ZPxNode;
    };
    type.classification = "utility/test";
    type.pluginName = "graphTests";
    return type;
}

} // namespace

class Registry : public GraphTest {};

TEST_F(Registry, RegistersFindsAndRefusesDuplicates) {
    auto& registry = oz::NodeTypeRegistry::instance();
    ZString error;
    ASSERT_TRUE(registry.registerType(info("graphTestPlain", 0x7e100), &error)) << error;
    EXPECT_EQ(registry.find("graphTestPlain"), registry.find(ZTypeId(0x7e100)));
    EXPECT_EQ(ZFnDependencyNode::classification("graphTestPlain"), "utility/test");

    EXPECT_FALSE(registry.registerType(info("graphTestPlain", 0x7e101), &error));
    EXPECT_NE(error.asStdString().find("already registered"), std::string::npos);
    EXPECT_FALSE(registry.registerType(info("graphTestOther", 0x7e100), &error));
    EXPECT_FALSE(registry.registerType(info("bad name", 0x7e102), &error));
    oz::NodeTypeInfo noCreator = info("graphTestNoCreator", 0x7e103);
    noCreator.creator = nullptr;
    EXPECT_FALSE(registry.registerType(noCreator, &error));

    ZObject node = create("graphTestPlain");
    ZFnDependencyNode fn(node);
    EXPECT_EQ(fn.typeId().id(), 0x7e100u);
    EXPECT_EQ(fn.pluginName(), "graphTests");
    EXPECT_TRUE(fn.hasAttribute("message")) << "every node has the base attributes";
    EXPECT_TRUE(node.hasFn(ZFn::kPluginDependNode));

    EXPECT_EQ(registry.deregisterType(ZTypeId(0x7e100), &error).statusCode(), ZStatus::kFailure);
    EXPECT_NE(error.asStdString().find("exist"), std::string::npos) << error;
    oz::Graph::instance().deleteNode(*oz::nodeOf(node));
    EXPECT_TRUE(registry.deregisterType(ZTypeId(0x7e100), &error)) << error;
    EXPECT_EQ(registry.find("graphTestPlain"), nullptr);
    EXPECT_FALSE(node.hasFn(ZFn::kDependencyNode)) << "handles to a deleted node are dead";
}

TEST_F(Registry, InitialisersDeclareAttributesAndMayInherit) {
    auto& registry = oz::NodeTypeRegistry::instance();
    oz::NodeTypeInfo derived = info("graphTestDerived", 0x7e110);
    static ZObject extra;
    derived.initializer = [] {
        ZStatus status = ZPxNode::inheritAttributesFrom("graphTestAdder");
        if (!status)
            return status;
        ZFnNumericAttribute fn;
        extra = fn.create("extra", "ex", ZFnNumericData::kInt);
        status = ZPxNode::addAttribute(extra);
        if (!status)
            return status;
        return ZPxNode::attributeAffects(extra, Adder::output);
    };
    ZString error;
    ASSERT_TRUE(registry.registerType(derived, &error)) << error;
    ZObject node = create("graphTestDerived");
    EXPECT_TRUE(ZFnDependencyNode(node).hasAttribute("offset"));
    EXPECT_FALSE(plug(node, "output").isNull());

    oz::NodeTypeInfo clashing = info("graphTestClashing", 0x7e111);
    clashing.initializer = [] {
        ZFnNumericAttribute fn;
        ZPxNode::addAttribute(fn.create("value", "v", ZFnNumericData::kInt));
        return ZPxNode::addAttribute(fn.create("v", "vv", ZFnNumericData::kInt));
    };
    EXPECT_FALSE(registry.registerType(clashing, &error));
    EXPECT_EQ(registry.find("graphTestClashing"), nullptr);
    EXPECT_FALSE(ZPxNode::addAttribute(extra)) << "outside an initialiser";
}

TEST_F(Registry, NodesGetUniqueNamesAndCanBeRenamed) {
    ZFnDependencyNode first(create("graphTestAdder")), second(create("graphTestAdder"));
    EXPECT_EQ(first.name(), "graphTestAdder1");
    EXPECT_EQ(second.name(), "graphTestAdder2");
    ZFnDependencyNode named(create("graphTestAdder", "foo"));
    ZFnDependencyNode clash(create("graphTestAdder", "foo"));
    EXPECT_EQ(named.name(), "foo");
    EXPECT_EQ(clash.name(), "foo1");

    EXPECT_EQ(first.setName("foo"), "foo2");
    ZStatus status;
    first.setName("2bad", &status);
    EXPECT_FALSE(status);
    EXPECT_EQ(first.name(), "foo2");
    EXPECT_EQ(oz::Graph::instance().findNode("foo2"), oz::nodeOf(first.object()));

    ZFnDependencyNode fn;
    fn.create(ZString("graphTestAdder"), ZString("bad name"), &status);
    EXPECT_FALSE(status);
    fn.create(ZString("noSuchType"), &status);
    EXPECT_EQ(status.statusCode(), ZStatus::kNotFound);
}
