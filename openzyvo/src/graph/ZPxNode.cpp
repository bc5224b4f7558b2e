#include "graph/Node.h"
#include "graph/NodeAccess.h"
#include "graph/NodeTypeRegistry.h"

#include <OpenZyvo/ZPxNode.h>

ZPxNode::ZPxNode() = default;
ZPxNode::~ZPxNode() = default;

void ZPxNode::postConstructor() {}

ZStatus ZPxNode::compute(const ZPlug&, ZDataBlock&) {
    return ZStatus::kUnknownParameter;
}

ZStatus ZPxNode::setDependentsDirty(const ZPlug&, ZPlugArray&) {
    return ZStatus::kSuccess;
}

ZStatus ZPxNode::preEvaluation(const ZDGContext&, const ZEvaluationNode&) {
    return ZStatus::kSuccess;
}

ZStatus ZPxNode::connectionMade(const ZPlug&, const ZPlug&, bool) {
    return ZStatus::kUnknownParameter;
}

ZStatus ZPxNode::connectionBroken(const ZPlug&, const ZPlug&, bool) {
    return ZStatus::kUnknownParameter;
}

ZPxNode::SchedulingType ZPxNode::schedulingType() const {
    return kParallel;
}

ZPxNode::Type ZPxNode::type() const {
    return m_node ? m_node->type->kind : kDependNode;
}

ZObject ZPxNode::thisZObject() const {
    return m_node ? oz::wrapNode(*m_node) : ZObject();
}

ZString ZPxNode::name() const {
    return m_node ? m_node->name : ZString();
}

ZString ZPxNode::typeName() const {
    return m_node ? m_node->type->name : ZString();
}

ZTypeId ZPxNode::typeId() const {
    return m_node ? m_node->type->id : ZTypeId();
}

ZStatus ZPxNode::addAttribute(const ZObject& attribute) {
    oz::NodeType* type = oz::NodeTypeRegistry::instance().initialising();
    auto a = oz::sharedAttributeOf(attribute);
    if (!type || !a)
        return ZStatus::kInvalidParameter;
    if (a->parent)
        // Children come with their compound; adding one again is harmless.
        return type->hasAttribute(a.get()) ? ZStatus::kSuccess : ZStatus::kInvalidParameter;
    return type->addRoot(a);
}

ZStatus ZPxNode::attributeAffects(const ZObject& whenChanges, const ZObject& isAffected) {
    oz::NodeType* type = oz::NodeTypeRegistry::instance().initialising();
    if (!type)
        return ZStatus::kInvalidParameter;
    return type->addAffects(oz::attributeOf(whenChanges), oz::attributeOf(isAffected));
}

ZStatus ZPxNode::inheritAttributesFrom(const ZString& parentTypeName) {
    oz::NodeType* type = oz::NodeTypeRegistry::instance().initialising();
    auto parent = oz::NodeTypeRegistry::instance().find(parentTypeName);
    if (!type)
        return ZStatus::kInvalidParameter;
    if (!parent)
        return ZStatus::kNotFound;
    return type->inherit(*parent);
}
