#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZFnBase.h>
#include <OpenZyvo/ZFnData.h>
#include <OpenZyvo/ZString.h>

// Function set of attributes: names and flags common to every kind.
//
// Flags are shared by every node that carries the attribute. Defaults:
// readable, writable, connectable, storable, cached; not keyable, hidden,
// array or dynamic. The array flag is fixed once the attribute is added to a
// node type or a node.
class OZ_API ZFnAttribute : public ZFnBase {
public:
    ZFnAttribute() = default;
    explicit ZFnAttribute(const ZObject& attribute, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kAttribute; }

    ZString name(ZStatus* status = nullptr) const;
    ZString shortName(ZStatus* status = nullptr) const;
    // "parent.child" path of long (or short) names from the top-level attribute.
    ZString pathName(bool longName = true, ZStatus* status = nullptr) const;
    ZObject parent(ZStatus* status = nullptr) const;

    bool isReadable(ZStatus* status = nullptr) const;
    bool isWritable(ZStatus* status = nullptr) const;
    bool isConnectable(ZStatus* status = nullptr) const;
    bool isStorable(ZStatus* status = nullptr) const;
    bool isCached(ZStatus* status = nullptr) const;
    bool isKeyable(ZStatus* status = nullptr) const;
    bool isHidden(ZStatus* status = nullptr) const;
    bool isArray(ZStatus* status = nullptr) const;
    bool indexMatters(ZStatus* status = nullptr) const;
    bool usesArrayDataBuilder(ZStatus* status = nullptr) const;
    bool isChannelBoxFlagSet(ZStatus* status = nullptr) const;
    bool isUsedAsColor(ZStatus* status = nullptr) const;
    // True for attributes added to one node with ZFnDependencyNode::addAttribute.
    bool isDynamic(ZStatus* status = nullptr) const;
    // Whether the attribute takes data of `type` (typed attributes only).
    bool accepts(ZFnData::Type type, ZStatus* status = nullptr) const;

    ZStatus setReadable(bool state);
    ZStatus setWritable(bool state);
    ZStatus setConnectable(bool state);
    ZStatus setStorable(bool state);
    ZStatus setCached(bool state);
    ZStatus setKeyable(bool state);
    ZStatus setHidden(bool state);
    ZStatus setArray(bool state);
    ZStatus setIndexMatters(bool state);
    ZStatus setUsesArrayDataBuilder(bool state);
    ZStatus setChannelBox(bool state);
    ZStatus setUsedAsColor(bool state);
};
