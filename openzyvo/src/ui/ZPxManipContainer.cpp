#include "ui/ManipContainerState.h"

#include <OpenZyvo/ZDGModifier.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvoUI/ZPxManipContainer.h>

using oz::ui::ManipContainerAccess;
using oz::ui::ManipContainerState;
using oz::ui::ManipKind;

ZPxManipContainer::ZPxManipContainer()
    : m_state(std::make_unique<ManipContainerState>(*this)) {}

ZPxManipContainer::~ZPxManipContainer() = default;

ZPxManipContainer* ZPxManipContainer::newManipulator(const ZString& manipName, ZObject& manipObject,
                                                     ZStatus* status) {
    const auto fail = [&](ZStatus why) -> ZPxManipContainer* {
        if (status)
            *status = why;
        manipObject = ZObject();
        return nullptr;
    };
    ZDGModifier modifier;
    ZStatus made;
    const ZObject node = modifier.createNode(manipName, &made);
    if (!made)
        return fail(made);
    if (const ZStatus done = modifier.doIt(); !done)
        return fail(done);
    ZFnDependencyNode fn(node);
    auto* container = dynamic_cast<ZPxManipContainer*>(fn.userNode());
    if (!container) {
        // Not a container type: take the node back.
        modifier.undoIt();
        return fail(ZStatus::kInvalidParameter);
    }
    if (const ZStatus children = container->createChildren(); !children) {
        modifier.undoIt();
        return fail(children);
    }
    manipObject = node;
    if (status)
        *status = ZStatus::kSuccess;
    return container;
}

ZStatus ZPxManipContainer::createChildren() {
    return ZStatus::kSuccess;
}

ZStatus ZPxManipContainer::connectToDependNode(const ZObject& node) {
    if (node.isNull())
        return ZStatus::kInvalidParameter;
    m_state->node = node;
    return ZStatus::kSuccess;
}

ZObject ZPxManipContainer::addFreePointTriadManip(const ZString& manipName, const ZString&) {
    return m_state->addChild(ManipKind::FreePointTriad, manipName);
}

ZObject ZPxManipContainer::addRotateManip(const ZString& manipName, const ZString&) {
    return m_state->addChild(ManipKind::Rotate, manipName);
}

ZObject ZPxManipContainer::addScaleManip(const ZString& manipName, const ZString&) {
    return m_state->addChild(ManipKind::Scale, manipName);
}

ZStatus ZPxManipContainer::addPlugToManipConversionCallback(ZManipIndex manipIndex,
                                                            plugToManipConversionCallback callback) {
    return m_state->addPlugToManip(manipIndex, callback);
}

ZManipIndex ZPxManipContainer::addManipToPlugConversionCallback(const ZPlug& plug,
                                                                manipToPlugConversionCallback callback,
                                                                ZStatus* status) {
    const bool usable = !plug.isNull() && callback;
    if (status)
        *status = usable ? ZStatus::kSuccess : ZStatus::kInvalidParameter;
    return usable ? m_state->addManipToPlug(plug, callback) : 0;
}

ZStatus ZPxManipContainer::finishAddingManips() {
    m_state->finished = true;
    return m_state->pullFromPlugs();
}

ZStatus ZPxManipContainer::getConverterManipValue(ZManipIndex manipIndex, ZPoint& point) const {
    const ManipContainerState::Value* value = m_state->value(manipIndex);
    if (!value)
        return ZStatus::kInvalidParameter;
    point = ZPoint(value->value[0], value->value[1], value->value[2]);
    return ZStatus::kSuccess;
}

ZStatus ZPxManipContainer::getConverterManipValue(ZManipIndex manipIndex, ZVector& vector) const {
    const ManipContainerState::Value* value = m_state->value(manipIndex);
    if (!value)
        return ZStatus::kInvalidParameter;
    vector = ZVector(value->value[0], value->value[1], value->value[2]);
    return ZStatus::kSuccess;
}

ZStatus ZPxManipContainer::getConverterManipValue(ZManipIndex manipIndex, double& number) const {
    const ManipContainerState::Value* value = m_state->value(manipIndex);
    if (!value)
        return ZStatus::kInvalidParameter;
    number = value->value[0];
    return ZStatus::kSuccess;
}

ZObject ZPxManipContainer::connectedNode() const {
    return m_state->node;
}
