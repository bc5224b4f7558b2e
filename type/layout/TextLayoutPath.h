#pragma once

#include "layout/GlyphOutlineCache.h"
#include "layout/LayoutResult.h"
#include "layout/TypeSettings.h"

namespace type {

// The default path: Qt lays out each line (kerning pairs, ligatures, fallback
// faces, complex scripts) with a 100-pixel font, and every distinct glyph is
// decomposed once, in parallel, through `cache`. The caps come as ShapeCaps.
//
// A glyph with an empty outline is a blank: it ends a word and widens the gap
// after it by (spaceWidthScale - 1) times its advance. That widening is carried
// on to all later lines, which older scenes were laid out with.
//
// When Qt cannot start, the result holds only kTypeErrorInitFont, and when the
// font has no line height only kTypeNoLoadFont. A character the font lacks is
// left to Qt's font fallback, which draws it from another face or, when no
// face has it, as the missing-glyph shape; neither is an error here.
LayoutResult decomposeTextLayout(const TypeSettings& settings, GlyphOutlineCache& cache);

} // namespace type
