#include "svg/SvgColour.h"

#include "svg/SvgNumbers.h"

#include <array>
#include <string>
#include <utility>

namespace type {

namespace {

struct NamedColour {
    std::string_view name;
    int r, g, b;
};

constexpr std::array<NamedColour, 10> kNames{{{"red", 255, 0, 0},
                                              {"green", 0, 128, 0},
                                              {"blue", 0, 0, 255},
                                              {"yellow", 255, 255, 0},
                                              {"cyan", 0, 255, 255},
                                              {"magenta", 255, 0, 255},
                                              {"black", 0, 0, 0},
                                              {"grey", 128, 128, 128},
                                              {"white", 255, 255, 255},
                                              {"lime", 0, 255, 0}}};

Colour fromBytes(double r, double g, double b) {
    return {static_cast<float>(r) / 255.0f, static_cast<float>(g) / 255.0f, static_cast<float>(b) / 255.0f,
            1.0f};
}

int hexDigit(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

std::optional<Colour> hexColour(std::string_view digits) {
    std::array<int, 6> values{};
    if (digits.size() != 6 && digits.size() != 3)
        return std::nullopt;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        values[i] = hexDigit(digits[i]);
        if (values[i] < 0)
            return std::nullopt;
    }
    if (digits.size() == 3)
        return fromBytes(values[0] * 17, values[1] * 17, values[2] * 17);
    return fromBytes(values[0] * 16 + values[1], values[2] * 16 + values[3], values[4] * 16 + values[5]);
}

std::optional<Colour> rgbColour(std::string_view arguments) {
    std::string list;
    for (const char c : arguments) {
        if (c != '(' && c != ')')
            list += c;
    }
    std::array<double, 3> values{};
    std::size_t start = 0;
    for (double& value : values) {
        if (start > list.size())
            return std::nullopt;
        const auto comma = list.find(',', start);
        value = readAttributeNumber(std::string_view(list).substr(start, comma - start));
        start = comma == std::string::npos ? list.size() + 1 : comma + 1;
    }
    return fromBytes(values[0], values[1], values[2]);
}

} // namespace

std::optional<Colour> parseColour(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t'))
        text.remove_suffix(1);
    if (text.starts_with('#'))
        return hexColour(text.substr(1));
    if (text.starts_with("rgb"))
        return rgbColour(text.substr(3));
    for (const NamedColour& named : kNames) {
        if (named.name == text)
            return fromBytes(named.r, named.g, named.b);
    }
    return std::nullopt;
}

} // namespace type
