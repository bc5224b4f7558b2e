#include "data/ComponentListData.h"
#include "data/ValueDataAccess.h"

#include <OpenZyvo/ZFnComponentListData.h>
#include <algorithm>

using oz::Component;
using oz::ComponentListData;

ZFnComponentListData::ZFnComponentListData(const ZObject& object, ZStatus* status) {
    oz::setStatus(status, setObject(object));
}

ZObject ZFnComponentListData::create(ZStatus* status) {
    m_object = oz::ObjectAccess::wrap(std::make_shared<ComponentListData>());
    oz::setStatus(status, ZStatus::kSuccess);
    return m_object;
}

ZStatus ZFnComponentListData::add(const ZObject& component) {
    auto* list = oz::ObjectAccess::as<ComponentListData>(m_object);
    const auto* added = oz::ObjectAccess::as<Component>(component);
    if (!list || !added)
        return ZStatus::kInvalidParameter;
    list->components.push_back(std::make_shared<const Component>(*added));
    return ZStatus::kSuccess;
}

unsigned int ZFnComponentListData::length(ZStatus* status) const {
    const auto* list = oz::ObjectAccess::as<ComponentListData>(m_object);
    oz::setStatus(status, list ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return list ? static_cast<unsigned int>(list->components.size()) : 0;
}

ZObject ZFnComponentListData::operator[](unsigned int index) const {
    const auto* list = oz::ObjectAccess::as<ComponentListData>(m_object);
    if (!list || index >= list->components.size())
        return ZObject();
    return oz::ObjectAccess::wrap(std::make_shared<Component>(*list->components[index]));
}

bool ZFnComponentListData::has(const ZObject& component, ZStatus* status) const {
    const auto* list = oz::ObjectAccess::as<ComponentListData>(m_object);
    const auto* wanted = oz::ObjectAccess::as<Component>(component);
    oz::setStatus(status, list && wanted ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return list && wanted &&
           std::any_of(list->components.begin(), list->components.end(),
                       [&](const auto& held) { return held->containsAll(*wanted); });
}

ZStatus ZFnComponentListData::remove(unsigned int index) {
    auto* list = oz::ObjectAccess::as<ComponentListData>(m_object);
    if (!list || index >= list->components.size())
        return ZStatus::kInvalidParameter;
    list->components.erase(list->components.begin() + index);
    return ZStatus::kSuccess;
}

ZStatus ZFnComponentListData::clear() {
    auto* list = oz::ObjectAccess::as<ComponentListData>(m_object);
    if (!list)
        return ZStatus::kInvalidParameter;
    list->components.clear();
    return ZStatus::kSuccess;
}
