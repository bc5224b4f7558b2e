#include "data/Component.h"
#include "data/ValueDataAccess.h"

#include <OpenZyvo/ZFnSingleIndexedComponent.h>
#include <algorithm>

using oz::Component;

ZFnSingleIndexedComponent::ZFnSingleIndexedComponent(const ZObject& object, ZStatus* status) {
    oz::setStatus(status, setObject(object));
}

ZObject ZFnSingleIndexedComponent::create(ZFn::Type componentType, ZStatus* status) {
    if (!Component::isMeshElementKind(componentType)) {
        oz::setStatus(status, ZStatus::kInvalidParameter);
        return ZObject();
    }
    m_object = oz::ObjectAccess::wrap(std::make_shared<Component>(componentType));
    oz::setStatus(status, ZStatus::kSuccess);
    return m_object;
}

ZStatus ZFnSingleIndexedComponent::addElement(int element) {
    auto* component = oz::ObjectAccess::as<Component>(m_object);
    if (!component || element < 0)
        return ZStatus::kInvalidParameter;
    component->add(element);
    return ZStatus::kSuccess;
}

ZStatus ZFnSingleIndexedComponent::addElements(const ZIntArray& elements) {
    auto* component = oz::ObjectAccess::as<Component>(m_object);
    if (!component || std::any_of(elements.begin(), elements.end(), [](int e) { return e < 0; }))
        return ZStatus::kInvalidParameter;
    component->add(elements.asVector());
    return ZStatus::kSuccess;
}

int ZFnSingleIndexedComponent::element(int index, ZStatus* status) const {
    const auto* component = oz::ObjectAccess::as<Component>(m_object);
    if (!component || index < 0 || static_cast<size_t>(index) >= component->elements().size()) {
        oz::setStatus(status, ZStatus::kInvalidParameter);
        return -1;
    }
    oz::setStatus(status, ZStatus::kSuccess);
    return component->elements()[static_cast<size_t>(index)];
}

ZStatus ZFnSingleIndexedComponent::getElements(ZIntArray& elements) const {
    const auto* component = oz::ObjectAccess::as<Component>(m_object);
    if (!component)
        return ZStatus::kInvalidParameter;
    elements.asVector().assign(component->elements().begin(), component->elements().end());
    return ZStatus::kSuccess;
}
