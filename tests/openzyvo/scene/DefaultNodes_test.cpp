#include "SceneTest.h"
#include "graph/Graph.h"

namespace {

class DefaultNodes : public SceneTest {
protected:
    void SetUp() override {
        SceneTest::SetUp();
        // A scene whose default nodes are not made yet.
        ASSERT_TRUE(oz::Graph::instance().clear());
    }
};

TEST_F(DefaultNodes, DefaultNodeNameIsNotTakenBeforeItsNodeExists) {
    EXPECT_NE(run("createNode transform -n time1"), "time1");
    EXPECT_NE(run("createNode time"), "time1") << "named automatically, even a node of its type";
    run("createNode transform -n t");
    EXPECT_NE(run("rename t time1"), "time1");
    EXPECT_DOUBLE_EQ(number("getAttr time1.outTime"), 0.0) << "the clock is still there to be wired";
}

} // namespace
