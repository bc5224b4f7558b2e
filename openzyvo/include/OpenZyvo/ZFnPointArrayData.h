#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZFnData.h>
#include <OpenZyvo/ZPointArray.h>

// Function set of point-array data. array() refers into the data itself: edits through it change
// the data, and the reference stays valid while the function set or another handle keeps the
// object.
class OZ_API ZFnPointArrayData : public ZFnData {
public:
    ZFnPointArrayData() = default;
    explicit ZFnPointArrayData(const ZObject& object, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kPointArrayData; }

    // A new data object holding `values`; the function set attaches to it.
    ZObject create(ZStatus* status = nullptr);
    ZObject create(const ZPointArray& values, ZStatus* status = nullptr);

    unsigned int length(ZStatus* status = nullptr) const;
    // Without a compatible object: an empty array owned by the function set, and a failed status.
    ZPointArray& array(ZStatus* status = nullptr);
    ZStatus copyTo(ZPointArray& values) const;
    ZStatus set(const ZPointArray& values);

private:
    ZPointArray m_fallback;
};
