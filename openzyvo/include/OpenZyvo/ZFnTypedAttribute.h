#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZFnAttribute.h>

// Function set of attributes holding a data object (string, mesh, arrays,
// component lists...). Every node gets its own clone of the default object;
// without one the value starts null.
class OZ_API ZFnTypedAttribute : public ZFnAttribute {
public:
    ZFnTypedAttribute() = default;
    explicit ZFnTypedAttribute(const ZObject& attribute, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kTypedAttribute; }

    // kAny accepts data of every kind.
    ZObject create(const ZString& longName, const ZString& shortName, ZFnData::Type dataType,
                   const ZObject& defaultData = ZObject::kNullObj, ZStatus* status = nullptr);

    ZFnData::Type attrType(ZStatus* status = nullptr) const;
    ZStatus setDefault(const ZObject& defaultData);
    ZStatus getDefault(ZObject& defaultData) const;
};
