#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZFnData.h>

// Function set of geometry data, for the object groups the data carries: subsets of the geometry
// under ids that shading and deformer sets refer to. Groups keep the order they were added in;
// objectGroup(index) reads their ids in that order.
//
// A group's component is a set of elements of the geometry; members must exist in it when they
// are set. Components go in and come out as copies: change one and set it again to change a group.
class OZ_API ZFnGeometryData : public ZFnData {
public:
    ZFnGeometryData() = default;
    explicit ZFnGeometryData(const ZObject& object, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kGeometryData; }

    unsigned int objectGroupCount(ZStatus* status = nullptr) const;
    unsigned int objectGroup(unsigned int index, ZStatus* status = nullptr) const;
    bool hasObjectGroup(unsigned int id, ZStatus* status = nullptr) const;
    // Adds a group without a component; fails when the id is taken.
    ZStatus addObjectGroup(unsigned int id);
    ZStatus removeObjectGroup(unsigned int id);

    // The null object while the group has no component.
    ZObject objectGroupComponent(unsigned int id, ZStatus* status = nullptr) const;
    // The kind of the group's component; kInvalid while it has none.
    ZFn::Type objectGroupType(unsigned int id, ZStatus* status = nullptr) const;
    ZStatus setObjectGroupComponent(unsigned int id, const ZObject& component);
    // Adds or removes members; the component must be of the kind the group already holds.
    ZStatus addObjectGroupComponent(unsigned int id, const ZObject& component);
    ZStatus removeObjectGroupComponent(unsigned int id, const ZObject& component);
};
