#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZFnAttribute.h>

class ZStringArray;
class ZIntArray;

// Function set of enumerations: named fields with short values, which need
// not start at 0 or be contiguous. Setting a plug to a value that is no field
// fails with kInvalidParameter and leaves the plug as it was.
class OZ_API ZFnEnumAttribute : public ZFnAttribute {
public:
    ZFnEnumAttribute() = default;
    explicit ZFnEnumAttribute(const ZObject& attribute, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kEnumAttribute; }

    ZObject create(const ZString& longName, const ZString& shortName, short defaultValue = 0,
                   ZStatus* status = nullptr);

    // Fails when the name or the value is already a field.
    ZStatus addField(const ZString& fieldName, short value);
    ZString fieldName(short value, ZStatus* status = nullptr) const;
    short fieldValue(const ZString& fieldName, ZStatus* status = nullptr) const;
    bool hasField(short value, ZStatus* status = nullptr) const;
    ZStatus getFields(ZStringArray& names, ZIntArray& values) const;
    ZStatus getMin(short& value) const;
    ZStatus getMax(short& value) const;

    ZStatus setDefault(short value);
    ZStatus setDefault(const ZString& fieldName);
    short defaultValue(ZStatus* status = nullptr) const;
};
