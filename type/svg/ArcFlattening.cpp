#include "svg/ArcFlattening.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace type {

namespace {

double angleBetween(double ux, double uy, double vx, double vy) {
    return std::atan2(ux * vy - uy * vx, ux * vx + uy * vy);
}

} // namespace

void appendArc(Contour& contour, Point2 start, const EndpointArc& arc, int resolution) {
    const Point2 end = arc.end;
    if (start == end)
        return;
    double rx = std::abs(arc.rx);
    double ry = std::abs(arc.ry);
    if (rx == 0.0 || ry == 0.0) {
        contour.push_back(end);
        return;
    }
    // The rotation is held in single precision, as scenes made with it were.
    const double phi = static_cast<float>(arc.rotationDegrees) * std::numbers::pi / 180.0;
    const double cosPhi = std::cos(phi);
    const double sinPhi = std::sin(phi);

    // The start point in the ellipse's own frame, centred on the chord.
    const double dx = (start.x - end.x) / 2.0;
    const double dy = (start.y - end.y) / 2.0;
    const double x1 = cosPhi * dx + sinPhi * dy;
    const double y1 = -sinPhi * dx + cosPhi * dy;

    const double reach = (x1 * x1) / (rx * rx) + (y1 * y1) / (ry * ry);
    if (reach > 1.0) {
        rx *= std::sqrt(reach);
        ry *= std::sqrt(reach);
    }
    const double numerator = rx * rx * ry * ry - rx * rx * y1 * y1 - ry * ry * x1 * x1;
    const double denominator = rx * rx * y1 * y1 + ry * ry * x1 * x1;
    double factor = denominator > 0.0 ? std::sqrt(std::max(0.0, numerator / denominator)) : 0.0;
    if (arc.largeArc == arc.sweep)
        factor = -factor;
    const double cx1 = factor * rx * y1 / ry;
    const double cy1 = -factor * ry * x1 / rx;
    const double cx = cosPhi * cx1 - sinPhi * cy1 + (start.x + end.x) / 2.0;
    const double cy = sinPhi * cx1 + cosPhi * cy1 + (start.y + end.y) / 2.0;

    const double theta = angleBetween(1.0, 0.0, (x1 - cx1) / rx, (y1 - cy1) / ry);
    double delta = angleBetween((x1 - cx1) / rx, (y1 - cy1) / ry, (-x1 - cx1) / rx, (-y1 - cy1) / ry);
    if (!arc.sweep && delta > 0.0)
        delta -= 2.0 * std::numbers::pi;
    else if (arc.sweep && delta < 0.0)
        delta += 2.0 * std::numbers::pi;

    for (int j = 1; j < resolution; ++j) {
        const double angle = theta + delta * j / resolution;
        const double ex = rx * std::cos(angle);
        const double ey = ry * std::sin(angle);
        contour.push_back({cosPhi * ex - sinPhi * ey + cx, sinPhi * ex + cosPhi * ey + cy});
    }
    contour.push_back(end);
}

} // namespace type
