#pragma once

#include "layout/LayoutResult.h"
#include "layout/TypeSettings.h"

#include <ft2build.h>
#include FT_FREETYPE_H

namespace type {

// The path of the oldest scenes, on FreeType alone: `face` (sized as FontFace
// loads it) gives the outlines, advances and kerning pairs, and lines break
// only at code 10. Outlines are taken unhinted, so they match the font's
// design at any size. The caps come as PlannedCaps: holes are told from outer
// boundaries by parity (see OutlineContours.h) and each hole is cut into every
// outer boundary whose box holds the hole's first point.
//
// Outlines are thinned and subdivided in the face's 26.6 units, before they
// are scaled to the scene, with pointDistanceFilter and maxEdgeLength taken
// 11.52 x fontSize times: the factor older scenes were tuned with.
//
// Tracking widens every advance by `tracking` percent, as the Qt paths' letter
// spacing does. A character missing from the face takes no room; the result
// then carries kTypeMissingGlyphs, or kTypeMissingAllGlyphs when no character
// but spaces and line breaks was found. A glyph that fails to load is skipped
// and reported once as kTypeErrorFTLoadGlyph; a face without a line height
// gives only kTypeErrorFTSetChar. A failing kerning lookup prints "Error
// getting kerning." on standard output and counts as no kerning.
LayoutResult decomposeLegacy(const TypeSettings& settings, FT_Face face);

} // namespace type
