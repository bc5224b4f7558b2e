#pragma once

#include <OpenZyvo/ZString.h>
#include <cstdint>

namespace type {

// The file of the font the node falls back on when the chosen one is missing,
// so that the scene still shows its text: the face other platforms fall back
// on, Times New Roman Italic, or what fontconfig offers in its place (its
// metric-compatible stand-in, or the closest match); empty when no font at
// all can be found.
ZString defaultFontPath();

constexpr std::uint32_t kDefaultFontFaceIndex = 0;

} // namespace type
