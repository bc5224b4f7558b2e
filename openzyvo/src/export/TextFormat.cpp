#include "export/TextFormat.h"

#include <cctype>
#include <charconv>
#include <set>

namespace oz::exporter {

void appendNumber(std::string& out, float value) {
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof(buffer), value);
    out.append(buffer, result.ptr);
}

void appendNumber(std::string& out, std::uint32_t value) {
    char buffer[16];
    const auto result = std::to_chars(buffer, buffer + sizeof(buffer), value);
    out.append(buffer, result.ptr);
}

std::vector<std::string> uniqueTokens(const std::vector<std::string_view>& names, std::string_view fallback) {
    std::vector<std::string> tokens;
    std::set<std::string> taken;
    for (std::size_t i = 0; i < names.size(); ++i) {
        std::string token;
        for (char c : names[i])
            token += std::isspace(static_cast<unsigned char>(c)) ? '_' : c;
        if (token.empty())
            token = std::string(fallback) + std::to_string(i + 1);
        const std::string base = token;
        for (int suffix = 2; taken.contains(token); ++suffix)
            token = base + "_" + std::to_string(suffix);
        taken.insert(token);
        tokens.push_back(std::move(token));
    }
    return tokens;
}

} // namespace oz::exporter
