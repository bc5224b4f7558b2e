#pragma once

#include "geometry/Contour.h"

namespace type {

// Shoelace area of the implicitly closed contour: positive when the points run
// counter-clockwise in a y-up plane, negative when clockwise.
double signedArea(const Contour& contour);

// Zero area (and so an empty or degenerate contour) counts as counter-clockwise.
bool isCounterClockwise(const Contour& contour);

} // namespace type
