#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZFnAttribute.h>

// Function set of compound attributes: a group of child attributes that
// connect, save and dirty as one.
class OZ_API ZFnCompoundAttribute : public ZFnAttribute {
public:
    ZFnCompoundAttribute() = default;
    explicit ZFnCompoundAttribute(const ZObject& attribute, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kCompoundAttribute; }

    ZObject create(const ZString& longName, const ZString& shortName, ZStatus* status = nullptr);

    // Children can be added or removed until the compound is added to a node
    // type or a node; a child belongs to one compound only.
    ZStatus addChild(const ZObject& child);
    ZStatus removeChild(const ZObject& child);
    unsigned int numChildren(ZStatus* status = nullptr) const;
    ZObject child(unsigned int index, ZStatus* status = nullptr) const;
};
