#include "scene/DefaultNodes.h"

#include "anim/TimeNode.h"
#include "graph/Graph.h"

namespace oz::scene {

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
