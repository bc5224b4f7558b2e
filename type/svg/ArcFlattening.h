#pragma once

#include "geometry/Contour.h"

namespace type {

// An elliptical arc as path data states it: from the current point to `end`
// on an ellipse with radii rx, ry turned by `rotationDegrees`, choosing the
// large or small and the clockwise or counter-clockwise of the four
// candidate arcs by the two flags.
struct EndpointArc {
    double rx = 0.0;
    double ry = 0.0;
    double rotationDegrees = 0.0;
    bool largeArc = false;
    bool sweep = false;
    Point2 end;
};

// Appends the arc's points at `resolution` equal angle steps, the last being
// the end point itself; the start point is not appended. Radii too small to
// reach the end are scaled up until they do; a zero radius makes a straight
// line, and an arc that ends where it starts adds nothing.
void appendArc(Contour& contour, Point2 start, const EndpointArc& arc, int resolution);

} // namespace type
