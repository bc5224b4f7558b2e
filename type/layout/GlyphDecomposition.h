#pragma once

#include "geometry/Contour.h"

#include <QPainterPath>
#include <vector>

namespace type {

// One glyph outline of the text-layout path turned into shapes, in the glyph's
// own outline units (y down): curves flattened at `curveResolution`, sub-paths
// of fewer than 3 points dropped, overlaps resolved and holes nested by the
// even-odd rule. Safe to call concurrently for different paths.
std::vector<Shape> decomposeGlyphPath(const QPainterPath& path, int curveResolution);

} // namespace type
