#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace oz::cmd {

// A value of the command language: what a literal spells, what a command
// returns and what travels to and from Python. Booleans inside arrays are
// stored as ints, as the host does.
using Value = std::variant<std::monostate, bool, int, double, std::string, std::vector<int>,
                           std::vector<double>, std::vector<std::string>>;

bool isEmpty(const Value& value);
bool isArray(const Value& value);

// The name of the value's type as messages show it ("int", "string array").
const char* typeName(const Value& value);

// The text a value reads as: numbers in their shortest exact form, arrays as
// their items separated by blanks.
std::string toText(const Value& value);
std::string formatDouble(double value);

// Conversions used when an argument must have a given type. Numbers convert
// among themselves only when nothing is lost; strings convert to booleans
// when they spell one ("true", "off", "yes", ...).
std::optional<bool> toBool(const Value& value);
std::optional<int> toInt(const Value& value);
std::optional<double> toDouble(const Value& value);
std::optional<std::string> toString(const Value& value);

// Arrays also accept a single scalar of a convertible type.
std::optional<std::vector<int>> toIntArray(const Value& value);
std::optional<std::vector<double>> toDoubleArray(const Value& value);
std::optional<std::vector<std::string>> toStringArray(const Value& value);

} // namespace oz::cmd
