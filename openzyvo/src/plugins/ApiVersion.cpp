#include "plugins/ApiVersion.h"

#include <OpenZyvo/ZApiVersion.h>
#include <charconv>
#include <optional>

namespace oz::plugins {

namespace {

int majorOf(int version) {
    return version / 10000;
}

std::optional<int> parseNumber(std::string_view text) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || value < 0)
        return std::nullopt;
    return value;
}

// "20000", "2", "2.1" or "2.1.3".
std::optional<int> parseVersion(const std::string& text) {
    if (text.find('.') == std::string::npos) {
        const auto number = parseNumber(text);
        if (!number)
            return std::nullopt;
        return *number < 100 ? *number * 10000 : *number;
    }
    int version = 0;
    int scale = 10000;
    std::string_view rest = text;
    while (scale > 0) {
        const std::size_t dot = rest.find('.');
        const auto part = parseNumber(rest.substr(0, dot));
        if (!part || *part > 99)
            return std::nullopt;
        version += *part * scale;
        scale /= 100;
        if (dot == std::string_view::npos)
            return version;
        rest.remove_prefix(dot + 1);
    }
    return std::nullopt;
}

} // namespace

std::string formatApiVersion(int version) {
    return std::to_string(version / 10000) + "." + std::to_string(version / 100 % 100) + "." +
           std::to_string(version % 100);
}

std::string apiIncompatibility(int version) {
    const std::string built = "it was built for API " + formatApiVersion(version) + ", this host provides " +
                              formatApiVersion(OPENZYVO_API_VERSION);
    if (version <= 0)
        return "its API version marker is invalid (" + std::to_string(version) + ")";
    if (majorOf(version) != majorOf(OPENZYVO_API_VERSION) || version > OPENZYVO_API_VERSION)
        return built;
    return {};
}

bool meetsRequiredApi(const std::string& required) {
    if (required.empty() || required == "Any")
        return true;
    const auto version = parseVersion(required);
    return version && *version <= OPENZYVO_API_VERSION;
}

} // namespace oz::plugins
