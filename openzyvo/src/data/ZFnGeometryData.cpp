#include "data/GeometryData.h"
#include "data/ValueDataAccess.h"

#include <OpenZyvo/ZFnGeometryData.h>
#include <algorithm>

using oz::Component;
using oz::GeometryData;
using oz::ObjectGroup;

namespace {

// A component that may go into a group of `data`: of a mesh element kind, with every member an
// element of the geometry.
const Component* groupable(const GeometryData& data, const ZObject& object) {
    const auto* component = oz::ObjectAccess::as<Component>(object);
    if (!component || component->elements().empty())
        return component;
    return component->elements().back() < data.elementCount(component->apiType()) ? component : nullptr;
}

// Object group `id` of the geometry data `object`, and the status a lookup of it answers with:
// kInvalidParameter without geometry data, kNotFound without that group.
struct GroupLookup {
    GeometryData* data = nullptr;
    ObjectGroup* group = nullptr;
    ZStatus status;
};

GroupLookup lookUpGroup(const ZObject& object, unsigned int id) {
    GroupLookup found;
    found.data = oz::ObjectAccess::as<GeometryData>(object);
    found.group = found.data ? found.data->findObjectGroup(id) : nullptr;
    found.status =
        found.group ? ZStatus::kSuccess : (found.data ? ZStatus::kNotFound : ZStatus::kInvalidParameter);
    return found;
}

} // namespace

ZFnGeometryData::ZFnGeometryData(const ZObject& object, ZStatus* status) {
    oz::setStatus(status, setObject(object));
}

unsigned int ZFnGeometryData::objectGroupCount(ZStatus* status) const {
    const auto* data = oz::ObjectAccess::as<GeometryData>(m_object);
    oz::setStatus(status, data ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return data ? static_cast<unsigned int>(data->objectGroups.size()) : 0;
}

unsigned int ZFnGeometryData::objectGroup(unsigned int index, ZStatus* status) const {
    const auto* data = oz::ObjectAccess::as<GeometryData>(m_object);
    if (!data || index >= data->objectGroups.size()) {
        oz::setStatus(status, ZStatus::kInvalidParameter);
        return 0;
    }
    oz::setStatus(status, ZStatus::kSuccess);
    return data->objectGroups[index].id;
}

bool ZFnGeometryData::hasObjectGroup(unsigned int id, ZStatus* status) const {
    auto* data = oz::ObjectAccess::as<GeometryData>(m_object);
    oz::setStatus(status, data ? ZStatus::kSuccess : ZStatus::kInvalidParameter);
    return data && data->findObjectGroup(id);
}

ZStatus ZFnGeometryData::addObjectGroup(unsigned int id) {
    auto* data = oz::ObjectAccess::as<GeometryData>(m_object);
    if (!data || data->findObjectGroup(id))
        return ZStatus::kInvalidParameter;
    data->objectGroups.push_back(ObjectGroup{id, nullptr});
    return ZStatus::kSuccess;
}

ZStatus ZFnGeometryData::removeObjectGroup(unsigned int id) {
    auto* data = oz::ObjectAccess::as<GeometryData>(m_object);
    if (!data)
        return ZStatus::kInvalidParameter;
    const auto removed =
        std::erase_if(data->objectGroups, [id](const ObjectGroup& group) { return group.id == id; });
    return removed ? ZStatus::kSuccess : ZStatus::kNotFound;
}

ZObject ZFnGeometryData::objectGroupComponent(unsigned int id, ZStatus* status) const {
    const GroupLookup found = lookUpGroup(m_object, id);
    const ObjectGroup* group = found.group;
    oz::setStatus(status, found.status);
    if (!group || !group->component)
        return ZObject();
    return oz::ObjectAccess::wrap(std::make_shared<Component>(*group->component));
}

ZFn::Type ZFnGeometryData::objectGroupType(unsigned int id, ZStatus* status) const {
    const GroupLookup found = lookUpGroup(m_object, id);
    const ObjectGroup* group = found.group;
    oz::setStatus(status, found.status);
    return group && group->component ? group->component->apiType() : ZFn::kInvalid;
}

ZStatus ZFnGeometryData::setObjectGroupComponent(unsigned int id, const ZObject& component) {
    const GroupLookup found = lookUpGroup(m_object, id);
    if (!found.group)
        return found.status;
    ObjectGroup* group = found.group;
    const Component* members = groupable(*found.data, component);
    if (!members)
        return ZStatus::kInvalidParameter;
    group->component = std::make_shared<const Component>(*members);
    return ZStatus::kSuccess;
}

ZStatus ZFnGeometryData::addObjectGroupComponent(unsigned int id, const ZObject& component) {
    const GroupLookup found = lookUpGroup(m_object, id);
    if (!found.group)
        return found.status;
    ObjectGroup* group = found.group;
    const Component* members = groupable(*found.data, component);
    if (!members || (group->component && group->component->apiType() != members->apiType()))
        return ZStatus::kInvalidParameter;
    if (!group->component) {
        group->component = std::make_shared<const Component>(*members);
        return ZStatus::kSuccess;
    }
    auto merged = std::make_shared<Component>(*group->component);
    merged->add(members->elements());
    group->component = std::move(merged);
    return ZStatus::kSuccess;
}

ZStatus ZFnGeometryData::removeObjectGroupComponent(unsigned int id, const ZObject& component) {
    const GroupLookup found = lookUpGroup(m_object, id);
    if (!found.group)
        return found.status;
    ObjectGroup* group = found.group;
    const auto* members = oz::ObjectAccess::as<Component>(component);
    if (!members || (group->component && group->component->apiType() != members->apiType()))
        return ZStatus::kInvalidParameter;
    if (group->component) {
        auto remaining = std::make_shared<Component>(*group->component);
        remaining->remove(members->elements());
        group->component = std::move(remaining);
    }
    return ZStatus::kSuccess;
}
