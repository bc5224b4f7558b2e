#pragma once

namespace oz::mesh {

struct Color {
    float r = 0.0f;
    float g = 0.0f;
    float b = 0.0f;
    float a = 1.0f;

    friend constexpr bool operator==(Color, Color) = default;
};

} // namespace oz::mesh
