#pragma once

#include <OpenZyvo/ZAngle.h>
#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZDistance.h>
#include <OpenZyvo/ZFnData.h>
#include <OpenZyvo/ZFnNumericData.h>
#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZString.h>
#include <OpenZyvo/ZTime.h>
#include <OpenZyvo/ZVector.h>
#include <array>

class ZPlug;

namespace oz {
struct Slot;
class Attribute;
struct HandleAccess;
} // namespace oz

// One value in a data block, for reading or writing during compute().
// Setting a data object stores that object (no copy); copy() clones.
class OZ_API ZDataHandle {
public:
    ZDataHandle() = default;

    bool isNumeric() const;
    ZFnData::Type type() const;
    ZFnNumericData::Type numericType() const;
    ZObject attribute() const;

    bool asBool() const;
    char asChar() const;
    short asShort() const;
    int asInt() const;
    float asFloat() const;
    double asDouble() const;
    std::array<short, 2> asShort2() const;
    std::array<int, 2> asInt2() const;
    std::array<int, 3> asInt3() const;
    std::array<float, 2> asFloat2() const;
    std::array<float, 3> asFloat3() const;
    std::array<double, 2> asDouble2() const;
    std::array<double, 3> asDouble3() const;
    ZVector asVector() const;
    ZString asString() const;
    ZTime asTime() const;
    ZDistance asDistance() const;
    ZAngle asAngle() const;
    // The data object of a typed value (null when there is none).
    ZObject data() const;
    ZObject asZObject() const { return data(); }
    ZObject asMesh() const;

    void set(bool value);
    void set(short value);
    void set(int value);
    void set(float value);
    void set(double value);
    void set(const ZString& value) { setString(value); }
    void set(const char* value) { setString(ZString(value)); }
    void set(const ZTime& value);
    void set(const ZDistance& value);
    void set(const ZAngle& value);
    void set(const ZVector& value);
    ZStatus set(const ZObject& value) { return setZObject(value); }
    void set2Short(short a, short b);
    void set2Int(int a, int b);
    void set3Int(int a, int b, int c);
    void set2Float(float a, float b);
    void set3Float(float a, float b, float c);
    void set2Double(double a, double b);
    void set3Double(double a, double b, double c);
    void setString(const ZString& value);
    // Stores `value` itself: later edits to it show in this plug.
    ZStatus setZObject(const ZObject& value);
    // Deep copy: data objects are cloned, numbers and children copied.
    ZStatus copy(const ZDataHandle& other);

    // Child of a compound value.
    ZDataHandle child(const ZObject& attribute) const;
    ZDataHandle child(const ZPlug& plug) const;

    void setClean();

private:
    friend struct oz::HandleAccess;
    oz::Slot* m_slot = nullptr;
    const oz::Attribute* m_attr = nullptr;
};
