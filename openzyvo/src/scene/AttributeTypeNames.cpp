#include "scene/AttributeTypeNames.h"

#include "graph/Attribute.h"

#include <array>
#include <utility>

namespace oz::scene {

namespace {

template <typename T, std::size_t N>
std::optional<T> lookup(const std::array<std::pair<T, const char*>, N>& table, std::string_view name) {
    for (const auto& [value, text] : table)
        if (name == text)
            return value;
    return std::nullopt;
}

template <typename T, std::size_t N>
const char* nameIn(const std::array<std::pair<T, const char*>, N>& table, T value) {
    for (const auto& [v, text] : table)
        if (v == value)
            return text;
    return "unknown";
}

constexpr std::array<std::pair<ZFnNumericData::Type, const char*>, 18> kNumeric{{
    {ZFnNumericData::kBoolean, "bool"},
    {ZFnNumericData::kByte, "byte"},
    {ZFnNumericData::kChar, "char"},
    {ZFnNumericData::kShort, "short"},
    {ZFnNumericData::k2Short, "short2"},
    {ZFnNumericData::k3Short, "short3"},
    {ZFnNumericData::kInt, "long"},
    {ZFnNumericData::k2Int, "long2"},
    {ZFnNumericData::k3Int, "long3"},
    {ZFnNumericData::kInt64, "int64"},
    {ZFnNumericData::kFloat, "float"},
    {ZFnNumericData::k2Float, "float2"},
    {ZFnNumericData::k3Float, "float3"},
    {ZFnNumericData::kDouble, "double"},
    {ZFnNumericData::k2Double, "double2"},
    {ZFnNumericData::k3Double, "double3"},
    {ZFnNumericData::k4Double, "double4"},
    {ZFnNumericData::kAddr, "addr"},
}};

constexpr std::array<std::pair<ZFnUnitAttribute::Type, const char*>, 3> kUnit{{
    {ZFnUnitAttribute::kAngle, "doubleAngle"},
    {ZFnUnitAttribute::kDistance, "doubleLinear"},
    {ZFnUnitAttribute::kTime, "time"},
}};

constexpr std::array<std::pair<ZFnData::Type, const char*>, 13> kData{{
    {ZFnData::kNumeric, "numeric"},
    {ZFnData::kString, "string"},
    {ZFnData::kMatrix, "matrix"},
    {ZFnData::kStringArray, "stringArray"},
    {ZFnData::kDoubleArray, "doubleArray"},
    {ZFnData::kFloatArray, "floatArray"},
    {ZFnData::kIntArray, "Int32Array"},
    {ZFnData::kPointArray, "pointArray"},
    {ZFnData::kVectorArray, "vectorArray"},
    {ZFnData::kComponentList, "componentList"},
    {ZFnData::kMesh, "mesh"},
    {ZFnData::kDynArrayAttrs, "arrayAttrs"},
    {ZFnData::kAny, "any"},
}};

} // namespace

const char* numericTypeName(ZFnNumericData::Type type) {
    return nameIn(kNumeric, type);
}

std::optional<ZFnNumericData::Type> numericTypeNamed(std::string_view name) {
    if (name == "int")
        return ZFnNumericData::kInt;
    return lookup(kNumeric, name);
}

const char* unitTypeName(ZFnUnitAttribute::Type type) {
    return nameIn(kUnit, type);
}

std::optional<ZFnUnitAttribute::Type> unitTypeNamed(std::string_view name) {
    return lookup(kUnit, name);
}

const char* dataTypeName(ZFnData::Type type) {
    return nameIn(kData, type);
}

std::optional<ZFnData::Type> dataTypeNamed(std::string_view name) {
    return lookup(kData, name);
}

std::string attributeTypeName(const Attribute& attribute) {
    switch (attribute.kind) {
    case Attribute::Kind::Numeric:
        return numericTypeName(attribute.numericType);
    case Attribute::Kind::Unit:
        return unitTypeName(attribute.unitType);
    case Attribute::Kind::Enum:
        return "enum";
    case Attribute::Kind::Typed:
        return dataTypeName(attribute.dataType);
    case Attribute::Kind::Compound:
        return "compound";
    case Attribute::Kind::Message:
        return "message";
    }
    return "unknown";
}

} // namespace oz::scene
