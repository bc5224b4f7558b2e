#include "data/Component.h"
#include "data/ValueDataAccess.h"

#include <OpenZyvo/ZFnComponent.h>

using oz::Component;

ZFnComponent::ZFnComponent(const ZObject& object, ZStatus* status) {
    oz::setStatus(status, setObject(object));
}

int ZFnComponent::elementCount(ZStatus* status) const {
    const auto* component = oz::ObjectAccess::as<Component>(m_object);
    oz::setStatus(status, component ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return component ? static_cast<int>(component->elements().size()) : 0;
}

bool ZFnComponent::isEmpty(ZStatus* status) const {
    return elementCount(status) == 0;
}

ZFn::Type ZFnComponent::componentType(ZStatus* status) const {
    const auto* component = oz::ObjectAccess::as<Component>(m_object);
    oz::setStatus(status, component ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return component ? component->apiType() : ZFn::kInvalid;
}

bool ZFnComponent::isEqual(const ZObject& other, ZStatus* status) const {
    const auto* component = oz::ObjectAccess::as<Component>(m_object);
    const auto* otherComponent = oz::ObjectAccess::as<Component>(other);
    oz::setStatus(status, component && otherComponent ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return component && otherComponent && *component == *otherComponent;
}
