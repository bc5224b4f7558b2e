#pragma once

#include <OpenZyvo/ZString.h>
#include <cstdint>

namespace type {

// The font the node falls back on when the chosen one is missing, so the scene
// still shows its text: a serif italic (Liberation Serif Italic, found through
// fontconfig). Empty when no font at all can be found.
ZString defaultFontPath();

constexpr std::uint32_t kDefaultFontFaceIndex = 0;

} // namespace type
