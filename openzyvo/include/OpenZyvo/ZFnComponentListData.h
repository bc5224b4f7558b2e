#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZFnData.h>

// Function set of component-list data: an ordered list of components. The list stores copies:
// changing a component after adding it, or one read back with operator[], leaves the list as it
// was.
class OZ_API ZFnComponentListData : public ZFnData {
public:
    ZFnComponentListData() = default;
    explicit ZFnComponentListData(const ZObject& object, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kComponentListData; }

    // A new, empty list; the function set attaches to it.
    ZObject create(ZStatus* status = nullptr);

    ZStatus add(const ZObject& component);
    unsigned int length(ZStatus* status = nullptr) const;
    // A copy of the index-th component; the null object for an index past the end.
    ZObject operator[](unsigned int index) const;
    // Whether one component of the list holds every member of `component` (same element kind).
    bool has(const ZObject& component, ZStatus* status = nullptr) const;
    ZStatus remove(unsigned int index);
    ZStatus clear();
};
