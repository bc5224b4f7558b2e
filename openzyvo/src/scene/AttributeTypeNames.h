#pragma once

#include <OpenZyvo/ZFnData.h>
#include <OpenZyvo/ZFnNumericData.h>
#include <OpenZyvo/ZFnUnitAttribute.h>
#include <optional>
#include <string>
#include <string_view>

namespace oz {
class Attribute;
}

namespace oz::scene {

// The names commands and scene files give attribute and data types:
// "double", "long", "bool", "double3", "doubleAngle", "doubleLinear", "time",
// "enum", "message", "compound"; data "string", "doubleArray",
// "Int32Array", "vectorArray", "stringArray", "mesh"...

const char* numericTypeName(ZFnNumericData::Type type);
std::optional<ZFnNumericData::Type> numericTypeNamed(std::string_view name);

const char* unitTypeName(ZFnUnitAttribute::Type type);
std::optional<ZFnUnitAttribute::Type> unitTypeNamed(std::string_view name);

const char* dataTypeName(ZFnData::Type type);
std::optional<ZFnData::Type> dataTypeNamed(std::string_view name);

// The type of the attribute as getAttr -type reports it.
std::string attributeTypeName(const Attribute& attribute);

} // namespace oz::scene
