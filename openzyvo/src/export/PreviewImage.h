#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace oz::exporter {

// 8-bit RGB pixels, rows from the top.
struct PreviewImage {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> rgb;

    const std::uint8_t* pixel(int x, int y) const {
        return rgb.data() +
               (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)) *
                   3;
    }
};

} // namespace oz::exporter
