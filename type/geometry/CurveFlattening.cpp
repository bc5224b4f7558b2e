#include "geometry/CurveFlattening.h"

#include <array>

namespace type {

namespace {

Point2 lerp(Point2 a, Point2 b, double t) {
    return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t};
}

// Repeated linear interpolation stays on the curve's convex hull for every t,
// which the power form does not guarantee in floating point.
template <std::size_t N> Point2 deCasteljau(std::array<Point2, N> points, double t) {
    for (std::size_t level = N - 1; level > 0; --level) {
        for (std::size_t i = 0; i < level; ++i)
            points[i] = lerp(points[i], points[i + 1], t);
    }
    return points[0];
}

template <std::size_t N>
void appendCurve(Contour& contour, const std::array<Point2, N>& points, int resolution) {
    for (int j = 1; j < resolution; ++j)
        contour.push_back(deCasteljau(points, static_cast<double>(j) / resolution));
    contour.push_back(points[N - 1]);
}

Point2 toPoint(const QPointF& p) {
    return {p.x(), p.y()};
}

} // namespace

void appendQuadratic(Contour& contour, Point2 p0, Point2 p1, Point2 p2, int resolution) {
    appendCurve<3>(contour, {p0, p1, p2}, resolution);
}

void appendCubic(Contour& contour, Point2 p0, Point2 p1, Point2 p2, Point2 p3, int resolution) {
    appendCurve<4>(contour, {p0, p1, p2, p3}, resolution);
}

QPainterPath flattenCurves(const QPainterPath& path, int resolution) {
    QPainterPath flattened;
    Contour curve;
    const int count = path.elementCount();
    for (int k = 0; k < count; ++k) {
        const QPainterPath::Element element = path.elementAt(k);
        if (element.isMoveTo()) {
            flattened.moveTo(element);
        } else if (element.isLineTo()) {
            flattened.lineTo(element);
        } else if (element.isCurveTo()) {
            if (k + 2 >= count)
                break;
            curve.clear();
            appendCubic(curve, toPoint(flattened.currentPosition()), toPoint(element),
                        toPoint(path.elementAt(k + 1)), toPoint(path.elementAt(k + 2)), resolution);
            for (const Point2& p : curve)
                flattened.lineTo(p.x, p.y);
            k += 2;
        }
    }
    return flattened;
}

} // namespace type
