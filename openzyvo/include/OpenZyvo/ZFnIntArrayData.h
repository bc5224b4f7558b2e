#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZFnData.h>
#include <OpenZyvo/ZIntArray.h>

// Function set of int-array data. array() refers into the data itself: edits through it change
// the data, and the reference stays valid while the function set or another handle keeps the
// object.
class OZ_API ZFnIntArrayData : public ZFnData {
public:
    ZFnIntArrayData() = default;
    explicit ZFnIntArrayData(const ZObject& object, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kIntArrayData; }

    // A new data object holding `values`; the function set attaches to it.
    ZObject create(ZStatus* status = nullptr);
    ZObject create(const ZIntArray& values, ZStatus* status = nullptr);

    unsigned int length(ZStatus* status = nullptr) const;
    // Without a compatible object: an empty array owned by the function set, and a failed status.
    ZIntArray& array(ZStatus* status = nullptr);
    ZStatus copyTo(ZIntArray& values) const;
    ZStatus set(const ZIntArray& values);

private:
    ZIntArray m_fallback;
};
