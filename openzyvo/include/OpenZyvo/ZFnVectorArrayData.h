#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZFnData.h>
#include <OpenZyvo/ZVectorArray.h>

// Function set of vector-array data. array() refers into the data itself: edits through it change
// the data, and the reference stays valid while the function set or another handle keeps the
// object.
class OZ_API ZFnVectorArrayData : public ZFnData {
public:
    ZFnVectorArrayData() = default;
    explicit ZFnVectorArrayData(const ZObject& object, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kVectorArrayData; }

    // A new data object holding `values`; the function set attaches to it.
    ZObject create(ZStatus* status = nullptr);
    ZObject create(const ZVectorArray& values, ZStatus* status = nullptr);

    unsigned int length(ZStatus* status = nullptr) const;
    // Without a compatible object: an empty array owned by the function set, and a failed status.
    ZVectorArray& array(ZStatus* status = nullptr);
    ZStatus copyTo(ZVectorArray& values) const;
    ZStatus set(const ZVectorArray& values);

private:
    ZVectorArray m_fallback;
};
