#pragma once

#include "geometry/Contour.h"

#include <QPainterPath>

namespace type {

// Appends the points of a Bézier curve at t = j / n, j = 1 ... n, with n the
// resolution: n segments per curve, the last point being the end point itself.
// A resolution below 2 gives one straight segment. The start point is not
// appended; it is the contour's current last point.
void appendQuadratic(Contour& contour, Point2 p0, Point2 p1, Point2 p2, int resolution);
void appendCubic(Contour& contour, Point2 p0, Point2 p1, Point2 p2, Point2 p3, int resolution);

// The path rebuilt from straight segments only, every cubic split into
// `resolution` segments. Rebuilding stops at a cubic whose data elements are
// missing, so a truncated path keeps what came before it.
QPainterPath flattenCurves(const QPainterPath& path, int resolution);

} // namespace type
