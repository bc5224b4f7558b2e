#include "SceneTest.h"

namespace {

const std::string kAfterwards = " is being computed; run it after the evaluation with evalDeferred";

// "a.output" feeds "b.input"; a script run at the end of a's compute runs
// while b, downstream, waits for that value.
class ReentrantCommands : public SceneTest {
protected:
    void SetUp() override {
        SceneTest::SetUp();
        run("createNode sceneTestNode -n a; createNode sceneTestNode -n b; connectAttr a.output b.input");
    }
    void TearDown() override {
        SceneTestNode::scriptAfterCompute.clear();
        SceneTest::TearDown();
    }

    // Reads b.output, from a new input, with `script` run from a's compute;
    // the evaluation must finish with the right value, the script must fail,
    // and its first error is returned.
    std::string refusedInCompute(const std::string& script) {
        const double input = ++m_input;
        run("setAttr a.input " + std::to_string(input));
        SceneTestNode::scriptAfterCompute = script;
        SceneTestNode::scriptStatus = ZStatus::kSuccess;
        log().clear();
        EXPECT_DOUBLE_EQ(number("getAttr b.output"), 4.0 * input) << script;
        EXPECT_FALSE(SceneTestNode::scriptStatus) << script;
        EXPECT_EQ(strings("ls -type sceneTestNode"), (std::vector<std::string>{"a", "b"})) << script;
        return errors().empty() ? std::string() : errors().front();
    }

private:
    int m_input = 2;
};

TEST_F(ReentrantCommands, DeletingTheNodeBeingComputedIsRefused) {
    EXPECT_EQ(refusedInCompute("delete a"), "Cannot delete nodes while 'a'" + kAfterwards);
}

TEST_F(ReentrantCommands, DeletingTheNodeDownstreamIsRefused) {
    EXPECT_EQ(refusedInCompute("delete b"), "Cannot delete nodes while 'a'" + kAfterwards);
}

TEST_F(ReentrantCommands, ReplacingTheSceneFromAComputeIsRefused) {
    save("other.zya");
    EXPECT_EQ(refusedInCompute("file -new -f"), "Cannot replace the scene while 'a'" + kAfterwards);
    EXPECT_EQ(refusedInCompute("file -open -f \"" + path("other.zya") + "\""),
              "Cannot replace the scene while 'a'" + kAfterwards);
}

TEST_F(ReentrantCommands, UndoFromAComputeIsRefused) {
    EXPECT_EQ(refusedInCompute("undo"), "Cannot undo while 'a'" + kAfterwards);
}

TEST_F(ReentrantCommands, DeletionDeferredFromAComputeRunsAfterIt) {
    run("setAttr a.input 2");
    SceneTestNode::scriptAfterCompute = "evalDeferred \"delete b\"";
    EXPECT_DOUBLE_EQ(number("getAttr b.output"), 8.0);
    EXPECT_TRUE(SceneTestNode::scriptStatus);
    EXPECT_EQ(strings("ls -type sceneTestNode"), std::vector<std::string>{"a"});
    EXPECT_TRUE(errors().empty()) << errors().front();
}

} // namespace
