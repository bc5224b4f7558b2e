#include "scene/DefaultNodes.h"

#include "anim/TimeNode.h"
#include "graph/Graph.h"

namespace oz::scene {

namespace {

// Made on demand, the default nodes keep their names from the start: a node
// made before them must not take one.
const bool reserved = [] {
    Graph::instance().reserveName(anim::TimeNode::kSceneNodeName, anim::TimeNode::kTypeName);
    return true;
}();

} // namespace

void ensureDefaultNodes() {
    if (!Graph::instance().findNode(anim::TimeNode::kSceneNodeName))
        anim::TimeNode::sceneNode();
}

bool isDefaultNode(const Node& node) {
    return isDefaultNodeName(node.name.view()) && node.type->name == anim::TimeNode::kTypeName;
}

bool isDefaultNodeName(std::string_view name) {
    return name == anim::TimeNode::kSceneNodeName;
}

} // namespace oz::scene
