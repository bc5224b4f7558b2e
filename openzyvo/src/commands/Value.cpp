#include "commands/Value.h"

#include "core/Overloaded.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace oz::cmd {

namespace {

std::string lowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::optional<bool> spelledBool(const std::string& text) {
    const std::string word = lowerCase(text);
    if (word == "true" || word == "on" || word == "yes" || word == "1")
        return true;
    if (word == "false" || word == "off" || word == "no" || word == "0")
        return false;
    return std::nullopt;
}

template <typename T> std::string joined(const std::vector<T>& items) {
    std::string text;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i)
            text += ' ';
        if constexpr (std::is_same_v<T, double>)
            text += formatDouble(items[i]);
        else if constexpr (std::is_same_v<T, int>)
            text += std::to_string(items[i]);
        else
            text += items[i];
    }
    return text;
}

template <typename T, typename Convert>
std::optional<std::vector<T>> arrayOf(const Value& value, Convert convert) {
    auto convertAll = [&](const auto& items) -> std::optional<std::vector<T>> {
        std::vector<T> out;
        out.reserve(items.size());
        for (const auto& item : items) {
            auto converted = convert(Value(item));
            if (!converted)
                return std::nullopt;
            out.push_back(*converted);
        }
        return out;
    };
    return std::visit(Overloaded{
                          [](std::monostate) -> std::optional<std::vector<T>> { return std::vector<T>(); },
                          [&](const std::vector<int>& items) { return convertAll(items); },
                          [&](const std::vector<double>& items) { return convertAll(items); },
                          [&](const std::vector<std::string>& items) { return convertAll(items); },
                          [&](const auto& scalar) -> std::optional<std::vector<T>> {
                              auto converted = convert(Value(scalar));
                              if (!converted)
                                  return std::nullopt;
                              return std::vector<T>{*converted};
                          },
                      },
                      value);
}

} // namespace

bool isEmpty(const Value& value) {
    return std::holds_alternative<std::monostate>(value);
}

bool isArray(const Value& value) {
    return std::holds_alternative<std::vector<int>>(value) ||
           std::holds_alternative<std::vector<double>>(value) ||
           std::holds_alternative<std::vector<std::string>>(value);
}

const char* typeName(const Value& value) {
    return std::visit(Overloaded{
                          [](std::monostate) { return "nothing"; },
                          [](bool) { return "boolean"; },
                          [](int) { return "int"; },
                          [](double) { return "float"; },
                          [](const std::string&) { return "string"; },
                          [](const std::vector<int>&) { return "int array"; },
                          [](const std::vector<double>&) { return "float array"; },
                          [](const std::vector<std::string>&) { return "string array"; },
                      },
                      value);
}

std::string formatDouble(double value) {
    if (std::isnan(value))
        return "nan";
    if (std::isinf(value))
        return value > 0 ? "inf" : "-inf";
    char buffer[64];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    return std::string(buffer, end);
}

std::string toText(const Value& value) {
    return std::visit(Overloaded{
                          [](std::monostate) { return std::string(); },
                          [](bool b) { return std::string(b ? "true" : "false"); },
                          [](int i) { return std::to_string(i); },
                          [](double d) { return formatDouble(d); },
                          [](const std::string& s) { return s; },
                          [](const auto& items) { return joined(items); },
                      },
                      value);
}

std::optional<bool> toBool(const Value& value) {
    return std::visit(Overloaded{
                          [](bool b) -> std::optional<bool> { return b; },
                          [](int i) -> std::optional<bool> { return i != 0; },
                          [](double d) -> std::optional<bool> { return d != 0.0; },
                          [](const std::string& s) { return spelledBool(s); },
                          [](const auto&) -> std::optional<bool> { return std::nullopt; },
                      },
                      value);
}

std::optional<int> toInt(const Value& value) {
    return std::visit(Overloaded{
                          [](bool b) -> std::optional<int> { return b ? 1 : 0; },
                          [](int i) -> std::optional<int> { return i; },
                          [](double d) -> std::optional<int> {
                              if (d != std::trunc(d) || d < std::numeric_limits<int>::min() ||
                                  d > std::numeric_limits<int>::max())
                                  return std::nullopt;
                              return static_cast<int>(d);
                          },
                          [](const auto&) -> std::optional<int> { return std::nullopt; },
                      },
                      value);
}

std::optional<double> toDouble(const Value& value) {
    return std::visit(Overloaded{
                          [](bool b) -> std::optional<double> { return b ? 1.0 : 0.0; },
                          [](int i) -> std::optional<double> { return i; },
                          [](double d) -> std::optional<double> { return d; },
                          [](const auto&) -> std::optional<double> { return std::nullopt; },
                      },
                      value);
}

std::optional<std::string> toString(const Value& value) {
    if (isArray(value))
        return std::nullopt;
    return toText(value);
}

std::optional<std::vector<int>> toIntArray(const Value& value) {
    return arrayOf<int>(value, [](const Value& v) { return toInt(v); });
}

std::optional<std::vector<double>> toDoubleArray(const Value& value) {
    return arrayOf<double>(value, [](const Value& v) { return toDouble(v); });
}

std::optional<std::vector<std::string>> toStringArray(const Value& value) {
    return arrayOf<std::string>(value, [](const Value& v) { return toString(v); });
}

} // namespace oz::cmd
