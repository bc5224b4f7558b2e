#include "core/StatusOut.h"
#include "graph/Graph.h"
#include "graph/NodeTypeRegistry.h"
#include "nodes/DagHierarchy.h"
#include "nodes/TransformNode.h"

#include <OpenZyvo/ZFnDagNode.h>
#include <algorithm>

using oz::Node;
using oz::setStatus;

namespace {

Node* dagNodeOf(const ZObject& object, ZStatus* status) {
    Node* node = oz::nodeOf(object);
    const bool ok = node && node->state == Node::State::Live && oz::nodes::isDagNode(*node);
    setStatus(status, ok ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return ok ? node : nullptr;
}

} // namespace

ZFnDagNode::ZFnDagNode(const ZObject& node, ZStatus* status) {
    setStatus(status, setObject(node));
}

ZFnDagNode::ZFnDagNode(const ZDagPath& path, ZStatus* status) {
    setStatus(status, setObject(path));
}

ZStatus ZFnDagNode::setObject(const ZDagPath& path) {
    ZStatus status;
    const ZObject node = path.node(&status);
    if (!status) {
        m_object = ZObject();
        return status;
    }
    return setObject(node);
}

ZObject ZFnDagNode::create(const ZString& typeName, const ZString& name, const ZObject& parent,
                           ZStatus* status) {
    const auto type = oz::NodeTypeRegistry::instance().find(typeName);
    if (!type) {
        setStatus(status, ZStatus::kNotFound);
        return ZObject();
    }
    return create(type->id, name, parent, status);
}

ZObject ZFnDagNode::create(const ZTypeId& typeId, const ZString& name, const ZObject& parent,
                           ZStatus* status) {
    const auto type = oz::NodeTypeRegistry::instance().find(typeId);
    Node* parentNode = parent.isNull() ? nullptr : dagNodeOf(parent, nullptr);
    if (!type || !type->dag || type->abstract || (!parent.isNull() && !parentNode)) {
        setStatus(status, type ? ZStatus::kInvalidParameter : ZStatus::kNotFound);
        return ZObject();
    }
    oz::Graph& graph = oz::Graph::instance();
    std::shared_ptr<Node> madeParent;
    if (!parentNode && type->kind != ZPxNode::kTransformNode) {
        const ZStatus made = graph.createNode(oz::nodes::TransformNode::kTypeName, ZString(), madeParent);
        if (!made) {
            setStatus(status, made);
            return ZObject();
        }
        parentNode = madeParent.get();
    }
    std::shared_ptr<Node> node;
    ZStatus result = graph.createNode(type, name, node);
    if (result && parentNode)
        result = oz::nodes::reparent(*node, parentNode);
    if (!result) {
        if (node)
            graph.deleteNode(*node);
        if (madeParent)
            graph.deleteNode(*madeParent);
        setStatus(status, result);
        return ZObject();
    }
    m_object = oz::wrapNode(*node);
    setStatus(status, ZStatus::kSuccess);
    return m_object;
}

unsigned int ZFnDagNode::parentCount(ZStatus* status) const {
    Node* node = dagNodeOf(m_object, status);
    return node && node->dagParent ? 1 : 0;
}

ZObject ZFnDagNode::parent(unsigned int index, ZStatus* status) const {
    Node* node = dagNodeOf(m_object, status);
    if (!node || index != 0 || !node->dagParent) {
        setStatus(status, ZStatus::kInvalidParameter);
        return ZObject();
    }
    return oz::wrapNode(*node->dagParent);
}

unsigned int ZFnDagNode::childCount(ZStatus* status) const {
    Node* node = dagNodeOf(m_object, status);
    return node ? static_cast<unsigned int>(node->dagChildren.size()) : 0;
}

ZObject ZFnDagNode::child(unsigned int index, ZStatus* status) const {
    Node* node = dagNodeOf(m_object, status);
    if (!node || index >= node->dagChildren.size()) {
        setStatus(status, ZStatus::kInvalidParameter);
        return ZObject();
    }
    return oz::wrapNode(*node->dagChildren[index]);
}

bool ZFnDagNode::isChildOf(const ZObject& other, ZStatus* status) const {
    Node* node = dagNodeOf(m_object, status);
    return node && node->dagParent && node->dagParent == oz::nodeOf(other);
}

bool ZFnDagNode::isParentOf(const ZObject& other, ZStatus* status) const {
    Node* node = dagNodeOf(m_object, status);
    Node* child = oz::nodeOf(other);
    return node && child && child->dagParent == node;
}

ZStatus ZFnDagNode::addChild(const ZObject& child) {
    ZStatus status;
    Node* node = dagNodeOf(m_object, &status);
    Node* childNode = dagNodeOf(child, nullptr);
    if (!node || !childNode)
        return ZStatus::kInvalidParameter;
    return oz::nodes::reparent(*childNode, node);
}

ZStatus ZFnDagNode::removeChild(const ZObject& child) {
    Node* node = dagNodeOf(m_object, nullptr);
    Node* childNode = dagNodeOf(child, nullptr);
    if (!node || !childNode || childNode->dagParent != node)
        return ZStatus::kInvalidParameter;
    return oz::nodes::reparent(*childNode, nullptr);
}

ZStatus ZFnDagNode::getPath(ZDagPath& path) const {
    return ZDagPath::getAPathTo(m_object, path);
}

ZDagPath ZFnDagNode::dagPath(ZStatus* status) const {
    ZDagPath path;
    setStatus(status, getPath(path));
    return path;
}

ZString ZFnDagNode::fullPathName(ZStatus* status) const {
    Node* node = dagNodeOf(m_object, status);
    return node ? oz::nodes::fullPathName(*node) : ZString();
}

ZString ZFnDagNode::partialPathName(ZStatus* status) const {
    Node* node = dagNodeOf(m_object, status);
    return node ? node->name : ZString();
}

ZMatrix ZFnDagNode::transformationMatrix(ZStatus* status) const {
    Node* node = dagNodeOf(m_object, status);
    return node ? oz::nodes::localMatrix(*node) : ZMatrix();
}

ZMatrix ZFnDagNode::inclusiveMatrix(ZStatus* status) const {
    Node* node = dagNodeOf(m_object, status);
    return node ? oz::nodes::worldMatrixOf(*node) : ZMatrix();
}
