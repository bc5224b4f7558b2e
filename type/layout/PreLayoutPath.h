#pragma once

#include "layout/LayoutResult.h"
#include "layout/TypeSettings.h"

namespace type {

// The path of scenes made before the text-layout path: each character is
// outlined on its own by Qt and placed by measuring the word before it, so
// kerning and tracking within a word come from Qt's measurement. The font's
// point size grows with the square of the curve resolution, which makes Qt
// flatten curves more finely; unitScale brings the outlines back to scene
// size before they are thinned and nested (by parity) into PlannedCaps.
//
// Only a space (U+0020) separates words here. A word starts where the words
// and spaces before it on its line end: each space moves the pen by the
// kerning-scaled width of the word it closes plus the scaled space width.
//
// When Qt cannot start, the result holds only kTypeErrorInitFont, and when the
// font has no line height only kTypeNoLoadFont.
LayoutResult decomposePreLayout(const TypeSettings& settings);

} // namespace type
