#include "nodes/DagHierarchy.h"

#include "data/MatrixData.h"
#include "graph/Graph.h"
#include "graph/PlugRef.h"
#include "nodes/DagNode.h"
#include "nodes/TransformNode.h"

#include <OpenZyvo/ZPlug.h>
#include <algorithm>

namespace oz::nodes {

namespace {

// The matrix held by a matrix plug of `node`, evaluated; the identity when it holds none.
ZMatrix readMatrix(Node& node, const ZObject& attribute, int element) {
    Path path;
    if (!node.pathTo(attributeOf(attribute), path))
        return ZMatrix();
    if (element >= 0)
        path.back().index = element;
    const ZObject value = PlugAccess::make(node, std::move(path)).asZObject();
    const auto* data = ObjectAccess::as<MatrixData>(value);
    return data ? data->value : ZMatrix();
}

bool keepsWorldMatrix(const Node& node) {
    return node.hasAttribute(attributeOf(DagNode::worldMatrix));
}

} // namespace

bool isDagNode(const Node& node) {
    return node.type->dag;
}

bool isTransform(const Node& node) {
    return node.type->dag && node.type->kind == ZPxNode::kTransformNode;
}

bool isShape(const Node& node) {
    return node.type->dag && node.type->kind != ZPxNode::kTransformNode;
}

std::vector<Node*> ancestry(Node& node) {
    std::vector<Node*> nodes;
    for (Node* n = &node; n; n = n->dagParent)
        nodes.push_back(n);
    std::reverse(nodes.begin(), nodes.end());
    return nodes;
}

ZString fullPathName(Node& node) {
    ZString path;
    for (Node* n : ancestry(node))
        path = path + "|" + n->name;
    return path;
}

Node* findByFullPath(const ZString& path) {
    const std::string& text = path.asStdString();
    if (text.size() < 2 || text.front() != '|')
        return nullptr;
    const std::size_t last = text.rfind('|');
    Node* node = Graph::instance().findNode(ZString(text.substr(last + 1)));
    return node && isDagNode(*node) && fullPathName(*node) == path ? node : nullptr;
}

ZMatrix localMatrix(Node& node) {
    if (!isTransform(node) || !node.hasAttribute(attributeOf(TransformNode::matrix)))
        return ZMatrix();
    return readMatrix(node, TransformNode::matrix, -1);
}

ZMatrix parentWorldMatrix(Node& node) {
    return node.dagParent ? worldMatrixOf(*node.dagParent) : ZMatrix();
}

ZMatrix worldMatrixOf(Node& node) {
    if (keepsWorldMatrix(node))
        return readMatrix(node, DagNode::worldMatrix, 0);
    return localMatrix(node) * parentWorldMatrix(node);
}

void dirtyWorldMatrix(Node& node) {
    if (!node.usable())
        return;
    Path path;
    if (keepsWorldMatrix(node) && node.pathTo(attributeOf(DagNode::worldMatrix), path)) {
        Graph::instance().dirty(node, path, true);
        return;
    }
    for (Node* child : std::vector<Node*>(node.dagChildren))
        dirtyWorldMatrix(*child);
}

ZStatus reparent(Node& child, Node* parent) {
    if (child.dagParent == parent)
        return child.usable() && isDagNode(child) ? ZStatus::kSuccess : ZStatus::kInvalidParameter;
    const ZStatus status = Graph::instance().setParent(child, parent);
    if (status)
        dirtyWorldMatrix(child);
    return status;
}

std::size_t siblingIndex(const Node& node) {
    if (!node.dagParent)
        return 0;
    const auto& siblings = node.dagParent->dagChildren;
    return static_cast<std::size_t>(std::find(siblings.begin(), siblings.end(), &node) - siblings.begin());
}

void moveAmongSiblings(Node& node, std::size_t index) {
    if (!node.dagParent)
        return;
    auto& siblings = node.dagParent->dagChildren;
    const auto from = std::find(siblings.begin(), siblings.end(), &node);
    if (from == siblings.end())
        return;
    siblings.erase(from);
    siblings.insert(siblings.begin() + static_cast<std::ptrdiff_t>(std::min(index, siblings.size())), &node);
    Graph::instance().touch(true);
}

} // namespace oz::nodes
