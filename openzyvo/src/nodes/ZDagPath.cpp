#include "core/StatusOut.h"
#include "graph/Node.h"
#include "nodes/DagHierarchy.h"

#include <OpenZyvo/ZDagPath.h>

using oz::Node;
using oz::setStatus;

namespace {

Node* liveNode(const ZObject& object) {
    Node* node = oz::nodeOf(object);
    return node && node->state == Node::State::Live ? node : nullptr;
}

// The last node of a valid path, or null.
Node* lastNode(const std::vector<ZObject>& nodes, ZStatus* status) {
    Node* previous = nullptr;
    for (const ZObject& object : nodes) {
        Node* node = liveNode(object);
        if (!node || node->dagParent != previous) {
            previous = nullptr;
            break;
        }
        previous = node;
    }
    setStatus(status, previous ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return previous;
}

std::vector<ZObject> pathTo(Node& node) {
    std::vector<ZObject> nodes;
    for (Node* n : oz::nodes::ancestry(node))
        nodes.push_back(oz::wrapNode(*n));
    return nodes;
}

// Children of `node` that are shapes, for extendToShape.
std::vector<Node*> shapesBelow(const Node& node) {
    std::vector<Node*> shapes;
    for (Node* child : node.dagChildren)
        if (oz::nodes::isShape(*child))
            shapes.push_back(child);
    return shapes;
}

} // namespace

ZStatus ZDagPath::getAPathTo(const ZObject& object, ZDagPath& path) {
    Node* node = liveNode(object);
    if (!node || !oz::nodes::isDagNode(*node))
        return ZStatus::kInvalidParameter;
    path.m_nodes = pathTo(*node);
    return ZStatus::kSuccess;
}

bool ZDagPath::isValid(ZStatus* status) const {
    setStatus(status, ZStatus::kSuccess);
    return lastNode(m_nodes, nullptr) != nullptr;
}

unsigned int ZDagPath::length(ZStatus* status) const {
    setStatus(status, ZStatus::kSuccess);
    return static_cast<unsigned int>(m_nodes.size());
}

ZObject ZDagPath::node(ZStatus* status) const {
    Node* node = lastNode(m_nodes, status);
    return node ? oz::wrapNode(*node) : ZObject();
}

ZObject ZDagPath::transform(ZStatus* status) const {
    Node* node = lastNode(m_nodes, status);
    while (node && !oz::nodes::isTransform(*node))
        node = node->dagParent;
    setStatus(status, node ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return node ? oz::wrapNode(*node) : ZObject();
}

ZFn::Type ZDagPath::apiType(ZStatus* status) const {
    Node* node = lastNode(m_nodes, status);
    return node ? node->apiType() : ZFn::kInvalid;
}

bool ZDagPath::hasFn(ZFn::Type type, ZStatus* status) const {
    Node* node = lastNode(m_nodes, status);
    return node && node->hasFn(type);
}

ZStatus ZDagPath::extendToShape() {
    ZStatus status;
    Node* node = lastNode(m_nodes, &status);
    if (!node)
        return status;
    if (oz::nodes::isShape(*node))
        return ZStatus::kSuccess;
    const std::vector<Node*> shapes = shapesBelow(*node);
    if (shapes.size() != 1)
        return ZStatus::kInvalidParameter;
    m_nodes.push_back(oz::wrapNode(*shapes.front()));
    return ZStatus::kSuccess;
}

ZStatus ZDagPath::push(const ZObject& child) {
    Node* node = liveNode(child);
    if (!node || !oz::nodes::isDagNode(*node))
        return ZStatus::kInvalidParameter;
    Node* parent = m_nodes.empty() ? nullptr : lastNode(m_nodes, nullptr);
    if (node->dagParent != parent || (!parent && !m_nodes.empty()))
        return ZStatus::kInvalidParameter;
    m_nodes.push_back(child);
    return ZStatus::kSuccess;
}

ZStatus ZDagPath::pop(unsigned int count) {
    if (count > m_nodes.size())
        return ZStatus::kInvalidParameter;
    m_nodes.resize(m_nodes.size() - count);
    return ZStatus::kSuccess;
}

unsigned int ZDagPath::childCount(ZStatus* status) const {
    Node* node = lastNode(m_nodes, status);
    return node ? static_cast<unsigned int>(node->dagChildren.size()) : 0;
}

ZObject ZDagPath::child(unsigned int index, ZStatus* status) const {
    Node* node = lastNode(m_nodes, status);
    if (!node || index >= node->dagChildren.size()) {
        setStatus(status, ZStatus::kInvalidParameter);
        return ZObject();
    }
    return oz::wrapNode(*node->dagChildren[index]);
}

ZString ZDagPath::fullPathName(ZStatus* status) const {
    Node* node = lastNode(m_nodes, status);
    return node ? oz::nodes::fullPathName(*node) : ZString();
}

ZString ZDagPath::partialPathName(ZStatus* status) const {
    Node* node = lastNode(m_nodes, status);
    return node ? node->name : ZString();
}

ZMatrix ZDagPath::inclusiveMatrix(ZStatus* status) const {
    Node* node = lastNode(m_nodes, status);
    return node ? oz::nodes::worldMatrixOf(*node) : ZMatrix();
}

ZMatrix ZDagPath::inclusiveMatrixInverse(ZStatus* status) const {
    return inclusiveMatrix(status).inverse();
}

ZMatrix ZDagPath::exclusiveMatrix(ZStatus* status) const {
    Node* node = lastNode(m_nodes, status);
    return node ? oz::nodes::parentWorldMatrix(*node) : ZMatrix();
}

ZMatrix ZDagPath::exclusiveMatrixInverse(ZStatus* status) const {
    return exclusiveMatrix(status).inverse();
}
