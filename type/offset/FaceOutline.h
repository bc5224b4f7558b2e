#pragma once

#include "geometry/Contour.h"

#include <vector>

namespace type {

// One face of the flat text in its own plane: the outer loop, then each hole
// loop, as one point list. Loop i runs over the next loopSizes[i] points and
// is implicitly closed. The offset builders and the solid's rings index
// points the same way, so ring k's point j always stands above outline point j.
struct FaceOutline {
    std::vector<Point2> points;
    std::vector<int> loopSizes;
};

} // namespace type
