#pragma once

#include "geometry/Contour.h"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <vector>

namespace type {

// A closed contour of a glyph outline and whether it bounds a hole.
struct FlaggedContour {
    Contour points;
    // Holes run clockwise and outer boundaries counter-clockwise (y up),
    // whatever direction the font drew them in.
    bool clockwise = false;
};

// The contours of a FreeType outline in its own units (26.6 fixed point of the
// face's size, y up), every conic and cubic flattened into `curveResolution`
// segments (one straight segment below 2). Contours of fewer than 3 points are
// dropped.
//
// Whether a contour is a hole is decided by parity, not by the direction the
// font drew it in: a contour whose leftmost point lies inside an odd number of
// the glyph's other contours is a hole, and the contour is turned clockwise.
// TrueType and PostScript outlines, which wind opposite ways, thus come out
// alike.
std::vector<FlaggedContour> outlineContours(const FT_Outline& outline, int curveResolution);

} // namespace type
