#pragma once

#include "geometry/Contour.h"

#include <string_view>

namespace type {

// Drops a last point that repeats the first: outlines are implicitly closed.
void dropClosingRepeat(Contour& outline);

Contour rectOutline(double x, double y, double width, double height);

// Four cubic quarter arcs, each flattened at `resolution` points, starting
// at the rightmost point; a circle is an ellipse of equal radii.
Contour ellipseOutline(double cx, double cy, double rx, double ry, int resolution);

// The points of a "points" list (polygon, polyline) as one closed outline; a
// dangling last number is ignored.
Contour pointListOutline(std::string_view points);

} // namespace type
