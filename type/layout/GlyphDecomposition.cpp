#include "layout/GlyphDecomposition.h"

#include "geometry/CurveFlattening.h"
#include "geometry/EvenOddNesting.h"

#include <QPolygonF>
#include <QTransform>

namespace type {

std::vector<Shape> decomposeGlyphPath(const QPainterPath& path, int curveResolution) {
    const QList<QPolygonF> polygons = flattenCurves(path, curveResolution).toSubpathPolygons(QTransform());
    std::vector<Contour> contours;
    contours.reserve(static_cast<std::size_t>(polygons.size()));
    for (const QPolygonF& polygon : polygons) {
        if (polygon.size() < 3)
            continue;
        Contour& contour = contours.emplace_back();
        contour.reserve(static_cast<std::size_t>(polygon.size()));
        for (const QPointF& p : polygon)
            contour.push_back({p.x(), p.y()});
    }
    return nestEvenOdd(contours);
}

} // namespace type
