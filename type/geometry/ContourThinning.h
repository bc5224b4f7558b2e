#pragma once

#include "geometry/Contour.h"

namespace type {

// Thresholds of the outline clean-up, as the node attributes give them.
struct ThinningSettings {
    bool removeColinear = false;
    double colinearAngle = 0.0; // degrees
    bool enableDistanceFilter = false;
    double pointDistanceFilter = 0.0; // scene units
};

// Removes, in place, points that sit on a nearly straight run or too close to
// their predecessor. The contour never drops below 3 points.
//
// The straightness test compares the angle threshold, in radians, with the
// sine of the turn at the point. Both agree closely for the small angles in
// use, and existing scenes were tuned against exactly this comparison, so it
// must not be "corrected".
void thinContour(Contour& contour, const ThinningSettings& settings);

} // namespace type
