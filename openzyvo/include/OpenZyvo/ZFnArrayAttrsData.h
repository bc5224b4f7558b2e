#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZDoubleArray.h>
#include <OpenZyvo/ZFnData.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZString.h>
#include <OpenZyvo/ZStringArray.h>
#include <OpenZyvo/ZVectorArray.h>

// Function set of array-attributes data: arrays of vectors, doubles, ints or strings, each under
// a name that is unique across kinds.
class OZ_API ZFnArrayAttrsData : public ZFnData {
public:
    enum Type { kInvalidArray = 0, kVectorArray, kDoubleArray, kIntArray, kStringArray };

    ZFnArrayAttrsData() = default;
    explicit ZFnArrayAttrsData(const ZObject& object, ZStatus* status = nullptr);
    ZFn::Type type() const override { return ZFn::kArrayAttrsData; }

    // A new, empty data object; the function set attaches to it.
    ZObject create(ZStatus* status = nullptr);

    // The array of that name, added empty when missing. The reference is into the data and stays
    // valid while the array exists. An array of that name but of another kind is a failure: the
    // call then returns an empty array owned by the function set.
    ZVectorArray& vectorArray(const ZString& name, ZStatus* status = nullptr);
    ZDoubleArray& doubleArray(const ZString& name, ZStatus* status = nullptr);
    ZIntArray& intArray(const ZString& name, ZStatus* status = nullptr);
    ZStringArray& stringArray(const ZString& name, ZStatus* status = nullptr);

    // Copies of existing arrays; kNotFound when there is none of that name, kInvalidParameter
    // when it is of another kind.
    ZVectorArray getVectorData(const ZString& name, ZStatus* status = nullptr) const;
    ZDoubleArray getDoubleData(const ZString& name, ZStatus* status = nullptr) const;
    ZIntArray getIntData(const ZString& name, ZStatus* status = nullptr) const;
    ZStringArray getStringData(const ZString& name, ZStatus* status = nullptr) const;

    // Whether an array of that name exists, and of which kind (kInvalidArray when not).
    bool checkArrayExist(const ZString& name, Type& arrayType, ZStatus* status = nullptr) const;
    // Names of all arrays, in ascending order.
    ZStringArray list(ZStatus* status = nullptr) const;
    unsigned int count(ZStatus* status = nullptr) const;
    ZStatus removeArray(const ZString& name);
    ZStatus clear();

private:
    ZVectorArray m_vectorFallback;
    ZDoubleArray m_doubleFallback;
    ZIntArray m_intFallback;
    ZStringArray m_stringFallback;
};
