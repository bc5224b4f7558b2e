#include "TestNodes.h"
#include "graph/Graph.h"
#include "graph/SceneMessages.h"

#include <OpenZyvo/ZCallbackIdArray.h>
#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <OpenZyvo/ZNodeMessage.h>
#include <OpenZyvo/ZSceneMessage.h>
#include <string>
#include <vector>

using namespace graphtest;

namespace {

struct Seen {
    std::vector<std::string> events;
};

void onAttribute(ZNodeMessage::AttributeMessage message, ZPlug& plug, ZPlug& other, void* data) {
    std::string event;
    if (message & ZNodeMessage::kAttributeSet)
        event = "set ";
    if (message & ZNodeMessage::kConnectionMade)
        event = "made ";
    if (message & ZNodeMessage::kConnectionBroken)
        event = "broken ";
    if (message & ZNodeMessage::kAttributeAdded)
        event = "added ";
    if (message & ZNodeMessage::kAttributeRemoved)
        event = "removed ";
    if (message & ZNodeMessage::kAttributeEval)
        event = "eval ";
    if (event.empty())
        return;
    event += plug.partialName().asStdString();
    if (message & ZNodeMessage::kIncomingDirection)
        event += " <- " + other.name().asStdString();
    static_cast<Seen*>(data)->events.push_back(event);
}

void onDirty(ZObject&, ZPlug& plug, void* data) {
    static_cast<Seen*>(data)->events.push_back("dirty " + plug.partialName().asStdString());
}

void onRemoval(ZObject& node, void* data) {
    static_cast<Seen*>(data)->events.push_back("removing " + ZFnDependencyNode(node).name().asStdString());
}

void onScene(void* data) {
    static_cast<Seen*>(data)->events.push_back("scene");
}

bool has(const Seen& seen, const std::string& event) {
    return std::find(seen.events.begin(), seen.events.end(), event) != seen.events.end();
}

} // namespace

class Callbacks : public GraphTest {};

TEST_F(Callbacks, AttributeChangesReportTheirPlugs) {
    ZObject a = create("graphTestAdder", "a"), b = create("graphTestAdder", "b");
    Seen seen;
    ZStatus status;
    ZMessage::removeCallback(0);
    ZCallbackId id = ZNodeMessage::addAttributeChangedCallback(b, onAttribute, &seen, &status);
    ASSERT_TRUE(status);

    plug(b, "offset").setValue(2.0);
    ZDGModifier modifier;
    modifier.connect(plug(a, "output"), plug(b, "input"));
    modifier.doIt();
    plug(b, "output").asDouble();
    modifier.undoIt();
    EXPECT_EQ(seen.events, (std::vector<std::string>{"set off", "made in <- a.output", "eval out",
                                                     "broken in <- a.output"}));

    ZFnNumericAttribute fn;
    ZObject dynamic = fn.create("note", "nt", ZFnNumericData::kInt);
    ZFnDependencyNode(b).addAttribute(dynamic);
    ZFnDependencyNode(b).removeAttribute(dynamic);
    EXPECT_TRUE(has(seen, "added nt") && has(seen, "removed nt"));

    seen.events.clear();
    EXPECT_TRUE(ZMessage::removeCallback(id));
    plug(b, "offset").setValue(3.0);
    EXPECT_TRUE(seen.events.empty());
    EXPECT_EQ(ZMessage::removeCallback(id).statusCode(), ZStatus::kNotFound);
}

TEST_F(Callbacks, DirtyPlugCallbacksSeeEachNewlyDirtyPlug) {
    ZObject a = create("graphTestAdder", "a"), b = create("graphTestAdder", "b");
    ZDGModifier modifier;
    modifier.connect(plug(a, "output"), plug(b, "input"));
    modifier.doIt();
    plug(b, "output").asDouble();
    Seen seen;
    ZNodeMessage::addNodeDirtyPlugCallback(b, onDirty, &seen);
    plug(a, "input").setValue(1.0);
    EXPECT_EQ(seen.events, (std::vector<std::string>{"dirty in", "dirty out"}));
    seen.events.clear();
    plug(a, "input").setValue(2.0);
    EXPECT_TRUE(seen.events.empty()) << "already dirty and not read since";
}

TEST_F(Callbacks, DeletingANodeRunsAndRemovesItsCallbacks) {
    ZObject node = create("graphTestAdder", "doomed");
    Seen seen;
    ZCallbackIdArray ids;
    ids.append(ZNodeMessage::addNodePreRemovalCallback(node, onRemoval, &seen));
    ids.append(ZNodeMessage::addAttributeChangedCallback(node, onAttribute, &seen));
    ZCallbackIdArray installed;
    ZMessage::nodeCallbacks(node, installed);
    EXPECT_EQ(installed, ids);

    ZDGModifier* modifier = new ZDGModifier;
    modifier->deleteNode(node);
    modifier->doIt();
    EXPECT_TRUE(has(seen, "removing doomed"));
    delete modifier;
    EXPECT_EQ(ZMessage::removeCallback(ids[0]).statusCode(), ZStatus::kNotFound);
    EXPECT_EQ(ZMessage::removeCallbacks(ids).statusCode(), ZStatus::kNotFound);
}

TEST_F(Callbacks, SceneMessagesReachTheirOwnCallbacksOnly) {
    Seen before, after;
    ZStatus status;
    ZCallbackId first = ZSceneMessage::addCallback(ZSceneMessage::kBeforeFileRead, onScene, &before, &status);
    ASSERT_TRUE(status);
    ZCallbackId second = ZSceneMessage::addCallback(ZSceneMessage::kAfterFileRead, onScene, &after);
    EXPECT_EQ(ZSceneMessage::kBeforeFileRead, 7);
    EXPECT_EQ(ZSceneMessage::kAfterFileRead, 8);
    oz::notifySceneMessage(ZSceneMessage::kBeforeFileRead);
    EXPECT_EQ(before.events.size(), 1u);
    EXPECT_TRUE(after.events.empty());
    ZCallbackIdArray ids;
    ids.append(first);
    ids.append(second);
    EXPECT_TRUE(ZMessage::removeCallbacks(ids));
    oz::notifySceneMessage(ZSceneMessage::kBeforeFileRead);
    EXPECT_EQ(before.events.size(), 1u);
    ZSceneMessage::addCallback(ZSceneMessage::kLast, onScene, &before, &status);
    EXPECT_FALSE(status);
}
