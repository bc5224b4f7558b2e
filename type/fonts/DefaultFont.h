#pragma once

#include <OpenZyvo/ZString.h>
#include <cstdint>

namespace type {

// The font the node falls back on when the chosen one is missing, so the scene
// still shows its text: a serif italic.
inline constexpr char kDefaultFontFamily[] = "Liberation Serif";
inline constexpr char kDefaultFontStyle[] = "Italic";

// The file of the default font as fontconfig finds it, or the closest match;
// empty when no font at all can be found.
ZString defaultFontPath();

constexpr std::uint32_t kDefaultFontFaceIndex = 0;

} // namespace type
