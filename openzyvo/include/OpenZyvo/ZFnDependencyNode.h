#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZFnBase.h>
#include <OpenZyvo/ZString.h>
#include <OpenZyvo/ZTypeId.h>

class ZPlug;
class ZPlugArray;
class ZPxNode;
class ZObjectArray;

// Function set of dependency nodes: creation, names, attributes and plugs.
class OZ_API ZFnDependencyNode : public ZFnBase {
public:
    ZFnDependencyNode() = default;
    explicit ZFnDependencyNode(const ZObject& node, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kDependencyNode; }

    // Creates a node of a registered type and attaches the function set to it.
    // Without a name the node is called after its type ("type1", "type2", ...);
    // a name already in use gets a number added or raised.
    ZObject create(const ZTypeId& typeId, ZStatus* status = nullptr);
    ZObject create(const ZTypeId& typeId, const ZString& name, ZStatus* status = nullptr);
    ZObject create(const ZString& typeName, ZStatus* status = nullptr);
    ZObject create(const ZString& typeName, const ZString& name, ZStatus* status = nullptr);

    ZString name(ZStatus* status = nullptr) const;
    // Renames the node and returns the name it got (made unique if needed).
    ZString setName(const ZString& name, ZStatus* status = nullptr);
    ZString typeName(ZStatus* status = nullptr) const;
    ZTypeId typeId(ZStatus* status = nullptr) const;
    ZString pluginName(ZStatus* status = nullptr) const;
    static ZString classification(const ZString& typeName);

    ZPlug findPlug(const ZString& name, bool wantNetworkedPlug, ZStatus* status = nullptr) const;
    ZPlug findPlug(const ZObject& attribute, bool wantNetworkedPlug, ZStatus* status = nullptr) const;

    // Attributes of the node: static ones of its type, then dynamic ones;
    // children of compounds count too.
    unsigned int attributeCount(ZStatus* status = nullptr) const;
    ZObject attribute(unsigned int index, ZStatus* status = nullptr) const;
    ZObject attribute(const ZString& name, ZStatus* status = nullptr) const;
    bool hasAttribute(const ZString& name, ZStatus* status = nullptr) const;
    ZStatus getAffectedAttributes(const ZObject& attribute, ZObjectArray& affected) const;
    ZStatus getAffectingAttributes(const ZObject& attribute, ZObjectArray& affecting) const;

    // Dynamic attributes belong to this node alone.
    ZStatus addAttribute(const ZObject& attribute);
    ZStatus removeAttribute(const ZObject& attribute);

    ZPxNode* userNode(ZStatus* status = nullptr) const;

    // Every connected plug of the node, as source or destination.
    ZStatus getConnections(ZPlugArray& plugs) const;
};
