#pragma once

#include <optional>
#include <string_view>

namespace type {

// A fill colour as a vertex takes it, each component from 0 to 1.
struct Colour {
    float r = 0.0f;
    float g = 0.0f;
    float b = 0.0f;
    float a = 1.0f;

    friend bool operator==(const Colour&, const Colour&) = default;
};

// Reads "#rrggbb", "#rgb", "rgb(r, g, b)" on the 0-255 scale, or one of the
// ten colour names the reader knows; nothing for anything else.
std::optional<Colour> parseColour(std::string_view text);

} // namespace type
