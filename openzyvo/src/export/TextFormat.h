#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace oz::exporter {

// Shortest text that reads back as the same float, independent of the process locale.
void appendNumber(std::string& out, float value);
void appendNumber(std::string& out, std::uint32_t value);

// Names usable as single tokens in line-based formats: whitespace becomes '_', an empty name becomes
// `fallback` followed by its position, and repeated names get a numeric suffix so that none is ambiguous.
std::vector<std::string> uniqueTokens(const std::vector<std::string_view>& names, std::string_view fallback);

} // namespace oz::exporter
