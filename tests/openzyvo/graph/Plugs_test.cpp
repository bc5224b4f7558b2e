#include "TestNodes.h"
#include "graph/Graph.h"

#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvo/ZIntArray.h>

using namespace graphtest;

class Plugs : public GraphTest {};

TEST_F(Plugs, NamesAndPartialNamesDescribeTheirPath) {
    ZObject node = create("graphTestSummer", "sum");
    ZPlug id = plug(node, "groups[0].members[2].id");
    EXPECT_EQ(id.name(), "sum.groups[0].members[2].id");
    EXPECT_EQ(id.partialName(), "grp[0].mem[2].id");
    EXPECT_EQ(id.partialName(true), "sum.grp[0].mem[2].id");
    EXPECT_EQ(id.partialName(false, false, false, false, false, true), "groups[0].members[2].id");

    ZPlug y = plug(node, "pos.posy");
    EXPECT_EQ(y.name(), "sum.positionY");
    EXPECT_EQ(y.partialName(false, false, false, false, true), "pos.posy");
    EXPECT_EQ(y.info(), "sum.position.positionY");
}

TEST_F(Plugs, FindByLongShortOrChildNamesAndRejectBadOnes) {
    ZObject node = create("graphTestSummer");
    ZFnDependencyNode fn(node);
    EXPECT_EQ(plug(node, "grp[1].mem[3].id"), plug(node, "groups[1].members[3].id"));
    EXPECT_EQ(plug(node, "positionX"), ZPlug(node, Summer::position).child(0));

    ZPlug loose = plug(node, "weight");
    EXPECT_FALSE(loose.isFullySpecified()) << "its array ancestor has no element chosen";
    ZStatus status;
    loose.asDouble(&status);
    EXPECT_FALSE(status);
    EXPECT_TRUE(loose.selectAncestorLogicalIndex(4));
    EXPECT_EQ(loose.name(), plug(node, "groups[4].weight").name());

    for (const char* bad :
         {"nothing", "values[", "values[x]", "values[-1]", "sum[2]", "groups[0].nothing", ""}) {
        fn.findPlug(bad, true, &status);
        EXPECT_FALSE(status) << bad;
    }
    ZPlug viaGraph;
    EXPECT_TRUE(oz::Graph::instance().findPlug(fn.name() + ".grp[0].w", viaGraph));
    EXPECT_EQ(viaGraph, plug(node, "groups[0].weight"));
}

TEST_F(Plugs, WalkChildrenElementsParentsAndArrays) {
    ZObject node = create("graphTestSummer");
    ZPlug groups(node, Summer::groups);
    EXPECT_TRUE(groups.isArray() && groups.isCompound());
    EXPECT_EQ(groups.numElements(), 0u);

    ZPlug element = groups.elementByLogicalIndex(5);
    groups.elementByLogicalIndex(2);
    EXPECT_TRUE(element.isElement());
    EXPECT_EQ(element.logicalIndex(), 5u);
    EXPECT_EQ(groups.numElements(), 2u);
    EXPECT_EQ(groups.elementByPhysicalIndex(0).logicalIndex(), 2u);
    ZIntArray indices;
    EXPECT_EQ(groups.getExistingArrayAttributeIndices(indices), 2);
    EXPECT_EQ(indices, (ZIntArray{2, 5}));

    ZPlug weight = element.child(Summer::weight);
    EXPECT_TRUE(weight.isChild());
    EXPECT_EQ(weight.parent(), element);
    EXPECT_EQ(element.array(), groups);
    EXPECT_EQ(element.numChildren(), 2u);
    EXPECT_TRUE(weight == Summer::weight);
    EXPECT_TRUE(groups.parent().isNull());
    EXPECT_TRUE(groups.elementByPhysicalIndex(9).isNull());
}

TEST_F(Plugs, ConnectionQueries) {
    ZObject a = create("graphTestAdder"), b = create("graphTestAdder"), s = create("graphTestSummer");
    ZDGModifier modifier;
    ASSERT_TRUE(modifier.connect(plug(a, "output"), plug(b, "input")));
    ASSERT_TRUE(modifier.connect(plug(a, "output"), plug(s, "values[1]")));
    ASSERT_TRUE(modifier.connect(plug(b, "output"), plug(s, "groups[3].weight")));
    ASSERT_TRUE(modifier.doIt());

    ZPlug out = plug(a, "output");
    EXPECT_TRUE(out.isSource() && out.isConnected() && !out.isDestination());
    ZPlugArray plugs;
    EXPECT_TRUE(out.destinations(plugs));
    EXPECT_EQ(plugs.length(), 2u);
    EXPECT_EQ(plug(b, "input").source(), out);
    EXPECT_TRUE(plug(b, "input").connectedTo(plugs, true, false));
    EXPECT_EQ(plugs[0], out);
    EXPECT_EQ(ZPlug(s, Summer::values).numConnectedElements(), 1u);
    EXPECT_EQ(plug(s, "groups[3]").numConnectedChildren(), 1u);
    EXPECT_TRUE(ZFnDependencyNode(s).getConnections(plugs));
    EXPECT_EQ(plugs.length(), 2u);
}

TEST_F(Plugs, ConnectRefusesMismatchesAndTakenDestinations) {
    ZObject a = create("graphTestAdder"), b = create("graphTestAdder"), s = create("graphTestSummer");
    ZObject settings = create("graphTestSettings");
    testing::internal::CaptureStderr();
    ZDGModifier modifier;
    EXPECT_FALSE(modifier.connect(plug(a, "output"), plug(s, "position"))) << "one number to three";
    EXPECT_FALSE(modifier.connect(plug(a, "output"), plug(s, "values"))) << "element to whole array";
    EXPECT_FALSE(modifier.connect(plug(a, "output"), plug(settings, "label"))) << "number to string";
    EXPECT_FALSE(modifier.connect(plug(a, "input"), plug(b, "output"))) << "outputs are not writable";
    EXPECT_FALSE(modifier.connect(plug(a, "output"), plug(a, "output")));
    EXPECT_FALSE(modifier.connect(plug(settings, "link"), plug(a, "input")));
    EXPECT_TRUE(modifier.connect(plug(a, "output"), plug(b, "input")));
    EXPECT_FALSE(modifier.connect(plug(b, "output"), plug(b, "input")))
        << "already taken by a queued connect";
    ASSERT_TRUE(modifier.doIt());
    ZDGModifier again;
    EXPECT_FALSE(again.connect(plug(s, "sum"), plug(b, "input")));
    const std::string report = testing::internal::GetCapturedStderr();
    EXPECT_NE(report.find("already has an incoming connection"), std::string::npos) << report;
}

TEST_F(Plugs, GetValueFillsTheVariableOnlyWhenTheReadSucceeds) {
    ZObject node = create("graphTestSummer");
    ZPlug weight = plug(node, "groups[1].weight");
    ASSERT_TRUE(weight.setValue(2.5));
    double number = -1.0;
    ASSERT_TRUE(weight.getValue(number));
    EXPECT_EQ(number, 2.5);
    float single = -1.0f;
    ASSERT_TRUE(weight.getValue(single));
    EXPECT_EQ(single, 2.5f);

    ZPlug loose = plug(node, "weight");
    number = -1.0;
    EXPECT_FALSE(loose.getValue(number));
    EXPECT_EQ(number, -1.0);
    int whole = 7;
    EXPECT_FALSE(ZPlug().getValue(whole));
    EXPECT_EQ(whole, 7);
    ZString text("kept");
    EXPECT_FALSE(ZPlug().getValue(text));
    EXPECT_EQ(text, "kept");
}
