#pragma once

#include "geometry/Contour.h"

#include <cstdint>

namespace type {

struct EdgeSubdivisionSettings {
    std::int32_t maxDivisions = 20;
    double maxEdgeLength = 5.0;
};

// Splits every edge of the implicitly closed contour, the closing edge
// included, into m equal segments, m = min(trunc(length / maxEdgeLength),
// maxDivisions); edges that would get fewer than two segments stay whole.
// The result is again implicitly closed; an empty contour gives an empty one.
Contour subdivideEdges(const Contour& contour, const EdgeSubdivisionSettings& settings);

} // namespace type
