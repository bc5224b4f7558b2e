#pragma once

#include "text/GlyphOutlineCache.h"
#include "text/LayoutResult.h"
#include "text/TypeSettings.h"

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
// font has no line height only kTypeNoLoadFont. A character
// that no face has a glyph for is drawn as the font's missing-glyph shape and
// reported as kTypeMissingGlyphs, or kTypeMissingAllGlyphs when no character
// of the text was found.
LayoutResult decomposeTextLayout(const TypeSettings& settings, GlyphOutlineCache& cache);

} // namespace type
