#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZFnAttribute.h>

// Function set of message attributes: connection points without a value,
// used to link nodes to each other.
class OZ_API ZFnMessageAttribute : public ZFnAttribute {
public:
    ZFnMessageAttribute() = default;
    explicit ZFnMessageAttribute(const ZObject& attribute, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kMessageAttribute; }

    ZObject create(const ZString& longName, const ZString& shortName, ZStatus* status = nullptr);
};
