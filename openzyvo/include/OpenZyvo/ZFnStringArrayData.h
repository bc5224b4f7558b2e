#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZFnData.h>
#include <OpenZyvo/ZStringArray.h>

// Function set of string-array data. array() refers into the data itself: edits through it change
// the data, and the reference stays valid while the function set or another handle keeps the
// object.
class OZ_API ZFnStringArrayData : public ZFnData {
public:
    ZFnStringArrayData() = default;
    explicit ZFnStringArrayData(const ZObject& object, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kStringArrayData; }

    // A new data object holding `values`; the function set attaches to it.
    ZObject create(ZStatus* status = nullptr);
    ZObject create(const ZStringArray& values, ZStatus* status = nullptr);

    unsigned int length(ZStatus* status = nullptr) const;
    // Without a compatible object: an empty array owned by the function set, and a failed status.
    ZStringArray& array(ZStatus* status = nullptr);
    ZStatus copyTo(ZStringArray& values) const;
    ZStatus set(const ZStringArray& values);

private:
    ZStringArray m_fallback;
};
