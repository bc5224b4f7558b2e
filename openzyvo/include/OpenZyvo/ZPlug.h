#pragma once

#include <OpenZyvo/ZAngle.h>
#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZDistance.h>
#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>
#include <OpenZyvo/ZString.h>
#include <OpenZyvo/ZTime.h>
#include <memory>

class ZPlugArray;
class ZIntArray;

namespace oz {
struct PlugRef;
struct PlugAccess;
} // namespace oz

// Names one attribute of one node, through compound children and array
// elements at any depth: "mesh1.instObjGroups[0].objectGroups[2].objectGroupId".
// A plug is a light handle; copies name the same place.
//
// Getters evaluate: a dirty plug is computed (or read from its source) first,
// in the current evaluation context. Setters store the value, dirty what
// depends on it and notify attribute-changed callbacks; they fail on a plug
// that is driven by a connection.
class OZ_API ZPlug {
public:
    ZPlug() = default;
    ZPlug(const ZObject& node, const ZObject& attribute);

    bool isNull(ZStatus* status = nullptr) const;
    ZObject node(ZStatus* status = nullptr) const;
    ZObject attribute(ZStatus* status = nullptr) const;

    // "node.attribute[index]..." with long attribute names; ancestors appear
    // when they carry an array index.
    ZString name(ZStatus* status = nullptr) const;
    ZString partialName(bool includeNodeName = false, bool includeNonMandatoryIndices = false,
                        bool includeInstancedIndices = false, bool useAlias = false,
                        bool useFullAttributePath = false, bool useLongNames = false,
                        ZStatus* status = nullptr) const;
    // The full path with long names, for messages.
    ZString info(ZStatus* status = nullptr) const;

    // Structure.
    bool isArray(ZStatus* status = nullptr) const;
    bool isElement(ZStatus* status = nullptr) const;
    bool isCompound(ZStatus* status = nullptr) const;
    bool isChild(ZStatus* status = nullptr) const;
    bool isDynamic(ZStatus* status = nullptr) const;
    bool isKeyable(ZStatus* status = nullptr) const;
    bool isReadable(ZStatus* status = nullptr) const;
    bool isWritable(ZStatus* status = nullptr) const;
    bool isNetworked(ZStatus* status = nullptr) const;
    // False while an array ancestor has no element index chosen.
    bool isFullySpecified(ZStatus* status = nullptr) const;

    unsigned int numChildren(ZStatus* status = nullptr) const;
    ZPlug child(unsigned int index, ZStatus* status = nullptr) const;
    ZPlug child(const ZObject& attribute, ZStatus* status = nullptr) const;
    ZPlug parent(ZStatus* status = nullptr) const;
    ZPlug array(ZStatus* status = nullptr) const;

    // Array plugs. Elements are sparse; logical indices name them, physical
    // indices count the existing ones in ascending logical order.
    unsigned int numElements(ZStatus* status = nullptr) const;
    unsigned int evaluateNumElements(ZStatus* status = nullptr) const;
    // Creates the element when it does not exist yet.
    ZPlug elementByLogicalIndex(unsigned int logicalIndex, ZStatus* status = nullptr) const;
    ZPlug elementByPhysicalIndex(unsigned int physicalIndex, ZStatus* status = nullptr) const;
    ZPlug operator[](unsigned int logicalIndex) const { return elementByLogicalIndex(logicalIndex); }
    unsigned int logicalIndex(ZStatus* status = nullptr) const;
    int getExistingArrayAttributeIndices(ZIntArray& indices, ZStatus* status = nullptr) const;
    // Chooses the element of the array ancestor `attribute` (or of the
    // nearest array ancestor when it is null).
    ZStatus selectAncestorLogicalIndex(unsigned int index, const ZObject& attribute = ZObject::kNullObj);

    // Connections.
    bool isConnected(ZStatus* status = nullptr) const;
    bool isSource(ZStatus* status = nullptr) const;
    bool isDestination(ZStatus* status = nullptr) const;
    unsigned int numConnectedElements(ZStatus* status = nullptr) const;
    unsigned int numConnectedChildren(ZStatus* status = nullptr) const;
    bool connectedTo(ZPlugArray& plugs, bool asDst, bool asSrc, ZStatus* status = nullptr) const;
    ZPlug source(ZStatus* status = nullptr) const;
    bool destinations(ZPlugArray& plugs, ZStatus* status = nullptr) const;

    // Values.
    bool asBool(ZStatus* status = nullptr) const;
    short asShort(ZStatus* status = nullptr) const;
    int asInt(ZStatus* status = nullptr) const;
    float asFloat(ZStatus* status = nullptr) const;
    double asDouble(ZStatus* status = nullptr) const;
    ZString asString(ZStatus* status = nullptr) const;
    ZObject asZObject(ZStatus* status = nullptr) const;
    ZTime asTime(ZStatus* status = nullptr) const;
    ZDistance asDistance(ZStatus* status = nullptr) const;
    ZAngle asAngle(ZStatus* status = nullptr) const;

    ZStatus getValue(bool& value) const;
    ZStatus getValue(short& value) const;
    ZStatus getValue(int& value) const;
    ZStatus getValue(float& value) const;
    ZStatus getValue(double& value) const;
    ZStatus getValue(ZString& value) const;
    ZStatus getValue(ZObject& value) const;
    ZStatus getValue(ZTime& value) const;
    ZStatus getValue(ZDistance& value) const;
    ZStatus getValue(ZAngle& value) const;

    ZStatus setValue(bool value);
    ZStatus setValue(short value);
    ZStatus setValue(int value);
    ZStatus setValue(float value);
    ZStatus setValue(double value);
    ZStatus setValue(const ZString& value);
    ZStatus setValue(const char* value);
    ZStatus setValue(const ZObject& value);
    ZStatus setValue(const ZTime& value);
    ZStatus setValue(const ZDistance& value);
    ZStatus setValue(const ZAngle& value);

    ZStatus setBool(bool value) { return setValue(value); }
    ZStatus setShort(short value) { return setValue(value); }
    ZStatus setInt(int value) { return setValue(value); }
    ZStatus setFloat(float value) { return setValue(value); }
    ZStatus setDouble(double value) { return setValue(value); }
    ZStatus setString(const ZString& value) { return setValue(value); }
    ZStatus setZObject(const ZObject& value) { return setValue(value); }
    ZStatus setTime(const ZTime& value) { return setValue(value); }
    ZStatus setDistance(const ZDistance& value) { return setValue(value); }
    ZStatus setAngle(const ZAngle& value) { return setValue(value); }

    friend bool operator==(const ZPlug& a, const ZPlug& b);
    // A plug equals an attribute object when it names that attribute (of any
    // node, at any index), as node code compares in compute().
    friend bool operator==(const ZPlug& plug, const ZObject& attribute);

private:
    friend struct oz::PlugAccess;
    std::shared_ptr<const oz::PlugRef> m_ref;
};
