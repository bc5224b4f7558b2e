#include "TestNodes.h"
#include "commands/MessageLog.h"
#include "graph/Graph.h"
#include "graph/NodeTypeRegistry.h"

#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <functional>
#include <utility>

using namespace graphtest;

namespace {

// output = input + 1; then runs, once, what a test gave it, as a node running
// a user's script from its compute would.
class Meddler : public ZPxNode {
public:
    static ZObject input, output;
    static std::function<void()> afterCompute;

    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override {
        if (plug != output)
            return ZStatus::kUnknownParameter;
        block.outputValue(output).set(block.inputValue(input).asDouble() + 1.0);
        block.setClean(plug);
        if (afterCompute)
            std::exchange(afterCompute, nullptr)();
        return ZStatus::kSuccess;
    }
};

ZObject Meddler::input, Meddler::output;
std::function<void()> Meddler::afterCompute;

void registerMeddler() {
    if (oz::NodeTypeRegistry::instance().find("graphTestMeddler"))
        return;
    oz::NodeTypeInfo info;
    info.name = "graphTestMeddler";
    info.id = ZTypeId(0x7e0ffu);
    info.creator = [] {
        return static_cast<ZPxNode*>(new Meddler);
    };
    info.initializer = [] {
        ZFnNumericAttribute fn;
        Meddler::input = fn.create("input", "in", ZFnNumericData::kDouble, 0.0);
        Meddler::output = fn.create("output", "out", ZFnNumericData::kDouble, 0.0);
        fn.setWritable(false);
        fn.setStorable(false);
        ZPxNode::addAttribute(Meddler::input);
        ZPxNode::addAttribute(Meddler::output);
        return ZPxNode::attributeAffects(Meddler::input, Meddler::output);
    };
    ZString error;
    ASSERT_TRUE(oz::NodeTypeRegistry::instance().registerType(std::move(info), &error)) << error;
}

oz::cmd::MessageLog& messages() {
    return oz::cmd::MessageLog::instance();
}

// "up" feeds "down"; whatever runs at the end of up's compute runs while
// down waits for that value.
class ReentrantEvaluation : public GraphTest {
protected:
    void SetUp() override {
        GraphTest::SetUp();
        registerMeddler();
        messages().setStreamOutput(false);
        messages().clear();
        m_up = create("graphTestMeddler", "up");
        m_down = create("graphTestMeddler", "down");
        ZDGModifier modifier;
        ASSERT_TRUE(modifier.connect(plug(m_up, "output"), plug(m_down, "input")));
        ASSERT_TRUE(modifier.doIt());
    }
    void TearDown() override {
        Meddler::afterCompute = nullptr;
        GraphTest::TearDown();
    }

    // Evaluates down.output with `meddle` run from up's compute; the value
    // must come out right and both nodes must still be there.
    void evaluateWhile(std::function<void()> meddle) {
        bool ran = false;
        Meddler::afterCompute = [&] {
            ran = true;
            meddle();
        };
        EXPECT_DOUBLE_EQ(plug(m_down, "output").asDouble(), 2.0);
        EXPECT_TRUE(ran);
        EXPECT_TRUE(oz::Graph::instance().findNode("up"));
        EXPECT_TRUE(oz::Graph::instance().findNode("down"));
    }

    static std::string lastError() {
        const auto errors = messages().texts(oz::cmd::MessageLog::Kind::Error);
        return errors.empty() ? std::string() : errors.back();
    }

    ZObject m_up, m_down;
};

const std::string kDeleting = "Cannot delete nodes while 'up' is being computed; run it after the evaluation "
                              "with evalDeferred";

TEST_F(ReentrantEvaluation, ComputeThatDeletesItsOwnNodeIsRefused) {
    evaluateWhile(
        [] { EXPECT_FALSE(oz::Graph::instance().deleteNode(*oz::Graph::instance().findNode("up"))); });
    EXPECT_EQ(lastError(), kDeleting);
}

TEST_F(ReentrantEvaluation, ComputeThatDeletesTheNodeDownstreamIsRefused) {
    evaluateWhile([&] {
        ZDGModifier modifier;
        ASSERT_TRUE(modifier.deleteNode(m_down));
        EXPECT_FALSE(modifier.doIt());
    });
    EXPECT_EQ(lastError(), kDeleting);
}

TEST_F(ReentrantEvaluation, ComputeThatClearsTheSceneIsRefused) {
    evaluateWhile([] { EXPECT_FALSE(oz::Graph::instance().clear()); });
    EXPECT_EQ(lastError(),
              "Cannot replace the scene while 'up' is being computed; run it after the evaluation "
              "with evalDeferred");
}

TEST_F(ReentrantEvaluation, ComputeThatRemovesAnAttributeIsRefused) {
    ZFnDependencyNode up(m_up);
    ZFnNumericAttribute fn;
    ASSERT_TRUE(up.addAttribute(fn.create("extra", "ex", ZFnNumericData::kDouble, 0.0)));
    evaluateWhile([&] { EXPECT_FALSE(up.removeAttribute(up.attribute("extra"))); });
    EXPECT_FALSE(up.attribute("extra").isNull());
    EXPECT_EQ(lastError(),
              "Cannot remove attributes while 'up' is being computed; run it after the evaluation "
              "with evalDeferred");
}

TEST_F(ReentrantEvaluation, DeletingAfterTheEvaluationWorks) {
    evaluateWhile([] {});
    EXPECT_TRUE(oz::Graph::instance().deleteNode(*oz::Graph::instance().findNode("up")));
    EXPECT_EQ(lastError(), "");
}

} // namespace
