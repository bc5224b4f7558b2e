#pragma once

#include <OpenZyvo/ZString.h>
#include <cstdint>

namespace type {

// One family/style of the font catalogue and where to load it from. Names are
// UTF-8; the path is the file system's own bytes.
struct FontEntry {
    ZString family;
    ZString style;
    ZString path;
    std::uint32_t faceIndex = 0;

    friend bool operator==(const FontEntry&, const FontEntry&) = default;
};

} // namespace type
