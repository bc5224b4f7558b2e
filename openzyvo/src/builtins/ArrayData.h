#pragma once

#include <optional>

namespace oz {
class Attribute;
class Data;
} // namespace oz

namespace oz::builtins {

// Whether the attribute holds array data (doubleArray, stringArray...): one
// value that is a list, unlike a multi attribute, which has elements.
bool holdsArrayData(const Attribute& attribute);
// The number of items of array data; empty for other data.
std::optional<unsigned int> arrayDataLength(const Data& data);

} // namespace oz::builtins
