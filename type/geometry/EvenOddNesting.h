#pragma once

#include "geometry/Contour.h"

#include <vector>

namespace type {

// Resolves the overlaps of one glyph's flattened sub-paths by the even-odd rule
// and groups the result into outer boundaries with their holes.
//
// Coordinates pass through a fixed-point grid of 1/1000 unit (truncated toward
// zero), so results are exact to that grid. When the glyph's first outer
// boundary comes out counter-clockwise, every outer and hole of the glyph is
// reversed. Holes come back shrunk by 0.5 % about their own box centre so that
// they stay strictly inside an outer boundary they touched in the font.
//
// Polygons with a non-finite coordinate, or one too large for the fixed-point
// grid, cannot be represented and are left out, like degenerate ones.
//
// Safe to call concurrently: every call owns its clipping state.
std::vector<Shape> nestEvenOdd(const std::vector<Contour>& polygons);

} // namespace type
