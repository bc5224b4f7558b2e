#include "TestNodes.h"
#include "graph/Graph.h"

#include <OpenZyvo/ZDGModifier.h>

using namespace graphtest;

class Modifier : public GraphTest {};

TEST_F(Modifier, UndoReversesEveryEditAndRedoReplaysThem) {
    ZObject a = create("graphTestAdder", "a");
    ZDGModifier modifier;
    ZObject b = modifier.createNode("graphTestAdder");
    ASSERT_FALSE(b.isNull());
    ASSERT_TRUE(modifier.renameNode(b, "b"));
    ASSERT_TRUE(modifier.connect(ZPlug(a, Adder::output), ZPlug(b, Adder::input)));
    ASSERT_TRUE(modifier.newPlugValueDouble(ZPlug(a, Adder::input), 3.0));
    ASSERT_TRUE(modifier.newPlugValueDouble(ZPlug(b, Adder::offset), 1.0));
    EXPECT_EQ(oz::Graph::instance().findNode("b"), nullptr) << "nothing happens before doIt";

    ASSERT_TRUE(modifier.doIt());
    EXPECT_DOUBLE_EQ(plug(b, "output").asDouble(), 4.0);
    EXPECT_EQ(ZFnDependencyNode(b).name(), "b");

    ASSERT_TRUE(modifier.undoIt());
    EXPECT_EQ(oz::Graph::instance().findNode("b"), nullptr);
    EXPECT_FALSE(plug(a, "output").isSource());
    EXPECT_DOUBLE_EQ(plug(a, "input").asDouble(), 0.0);
    EXPECT_EQ(oz::Graph::instance().nodes().size(), 1u);

    ASSERT_TRUE(modifier.doIt());
    EXPECT_EQ(ZFnDependencyNode(b).name(), "b");
    EXPECT_DOUBLE_EQ(plug(b, "output").asDouble(), 4.0);
}

TEST_F(Modifier, DeletingAndUndoingRestoresConnectionsAndValues) {
    ZObject a = create("graphTestAdder", "a"), b = create("graphTestAdder", "b"),
            c = create("graphTestAdder", "c");
    {
        ZDGModifier wiring;
        wiring.connect(plug(a, "output"), plug(b, "input"));
        wiring.connect(plug(b, "output"), plug(c, "input"));
        wiring.doIt();
    }
    plug(a, "input").setValue(1.0);
    plug(b, "offset").setValue(5.0);
    EXPECT_DOUBLE_EQ(plug(c, "output").asDouble(), 6.0);

    ZDGModifier modifier;
    ASSERT_TRUE(modifier.deleteNode(b));
    ASSERT_TRUE(modifier.doIt());
    EXPECT_TRUE(plug(c, "input").source().isNull());
    EXPECT_EQ(oz::Graph::instance().findNode("b"), nullptr);
    ASSERT_TRUE(modifier.undoIt());
    EXPECT_EQ(plug(c, "input").source(), plug(b, "output"));
    plug(a, "input").setValue(2.0);
    EXPECT_DOUBLE_EQ(plug(c, "output").asDouble(), 7.0);
}

TEST_F(Modifier, ADestinationMustBeFreedBeforeItIsReconnected) {
    ZObject a = create("graphTestAdder", "a"), b = create("graphTestAdder", "b"),
            c = create("graphTestAdder", "c");
    ZDGModifier first;
    first.connect(plug(a, "output"), plug(c, "input"));
    first.doIt();

    testing::internal::CaptureStderr();
    ZDGModifier refused;
    EXPECT_EQ(refused.connect(plug(b, "output"), plug(c, "input")).statusCode(), ZStatus::kInvalidParameter);
    testing::internal::GetCapturedStderr();

    ZDGModifier swap;
    ASSERT_TRUE(swap.disconnect(plug(a, "output"), plug(c, "input")));
    ASSERT_TRUE(swap.connect(plug(b, "output"), plug(c, "input")));
    ASSERT_TRUE(swap.doIt());
    EXPECT_EQ(plug(c, "input").source(), plug(b, "output"));
    ASSERT_TRUE(swap.undoIt());
    EXPECT_EQ(plug(c, "input").source(), plug(a, "output"));
}

TEST_F(Modifier, AFailingEditRollsBackTheOnesBeforeIt) {
    ZObject a = create("graphTestAdder", "a"), b = create("graphTestAdder", "b"),
            c = create("graphTestAdder", "c");
    ZDGModifier modifier;
    ASSERT_TRUE(modifier.newPlugValueDouble(ZPlug(a, Adder::offset), 9.0));
    ASSERT_TRUE(modifier.connect(plug(a, "output"), plug(c, "input")));
    // Someone else takes the destination before doIt.
    ZDGModifier other;
    other.connect(plug(b, "output"), plug(c, "input"));
    other.doIt();

    testing::internal::CaptureStderr();
    EXPECT_FALSE(modifier.doIt());
    testing::internal::GetCapturedStderr();
    EXPECT_DOUBLE_EQ(plug(a, "offset").asDouble(), 0.0);
    EXPECT_EQ(plug(c, "input").source(), plug(b, "output"));
}
