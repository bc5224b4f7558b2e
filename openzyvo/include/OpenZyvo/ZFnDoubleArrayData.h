#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZFnData.h>

// Function set of double-array data. array() refers into the data itself: edits through it change
// the data, and the reference stays valid while the function set or another handle keeps the
// object.
class OZ_API ZFnDoubleArrayData : public ZFnData {
public:
    ZFnDoubleArrayData() = default;
    explicit ZFnDoubleArrayData(const ZObject& object, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kDoubleArrayData; }

    // A new data object holding `values`; the function set attaches to it.
    ZObject create(ZStatus* status = nullptr);
    ZObject create(const ZDoubleArray& values, ZStatus* status = nullptr);

    unsigned int length(ZStatus* status = nullptr) const;
    // Without a compatible object: an empty array owned by the function set, and a failed status.
    ZDoubleArray& array(ZStatus* status = nullptr);
    ZStatus copyTo(ZDoubleArray& values) const;
    ZStatus set(const ZDoubleArray& values);

private:
    ZDoubleArray m_fallback;
};
