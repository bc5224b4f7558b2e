#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZFnData.h>
#include <OpenZyvo/ZString.h>

// Function set of string data.
class OZ_API ZFnStringData : public ZFnData {
public:
    ZFnStringData() = default;
    explicit ZFnStringData(const ZObject& object, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kStringData; }

    // A new data object holding `text`; the function set attaches to it.
    ZObject create(const ZString& text = ZString(), ZStatus* status = nullptr);

    ZString string(ZStatus* status = nullptr) const;
    ZStatus set(const ZString& text);
};
