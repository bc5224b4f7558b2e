#include "geometry/CurveFlattening.h"
#include "layout/GuiApplication.h"

#include <QFontDatabase>
#include <QRawFont>
#include <gtest/gtest.h>

namespace type {
namespace {

Point2 cubicAt(Point2 p0, Point2 p1, Point2 p2, Point2 p3, double t) {
    const double u = 1.0 - t;
    const double a = u * u * u, b = 3 * u * u * t, c = 3 * u * t * t, d = t * t * t;
    return {a * p0.x + b * p1.x + c * p2.x + d * p3.x, a * p0.y + b * p1.y + c * p2.y + d * p3.y};
}

struct ElementCounts {
    int moves = 0;
    int lines = 0;
    int curves = 0;
};

ElementCounts countElements(const QPainterPath& path) {
    ElementCounts counts;
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element e = path.elementAt(i);
        counts.moves += e.isMoveTo();
        counts.lines += e.isLineTo();
        counts.curves += e.isCurveTo();
    }
    return counts;
}

TEST(CurveFlattening, CubicPointsLieOnTheCurveAtEvenParameterSteps) {
    const Point2 p0{1, 2}, p1{4, 9}, p2{11, -3}, p3{14, 5};
    QPainterPath path(QPointF(p0.x, p0.y));
    path.cubicTo(p1.x, p1.y, p2.x, p2.y, p3.x, p3.y);
    path.lineTo(0, 0);

    const QPainterPath flat = flattenCurves(path, 4);
    ASSERT_EQ(flat.elementCount(), 6);
    for (int j = 1; j <= 4; ++j) {
        const Point2 expected = cubicAt(p0, p1, p2, p3, j / 4.0);
        EXPECT_NEAR(flat.elementAt(j).x, expected.x, 1e-12);
        EXPECT_NEAR(flat.elementAt(j).y, expected.y, 1e-12);
    }
    EXPECT_TRUE(flat.elementAt(5).isLineTo());
}

TEST(CurveFlattening, GlyphCurvesBecomeResolutionManySegments) {
    ASSERT_TRUE(ensureGuiApplication());
    const QRawFont font = QRawFont::fromFont(QFontDatabase().font("DejaVu Sans", "Book", 100));
    const QPainterPath glyph = font.pathForGlyph(font.glyphIndexesForString("O").value(0));
    const ElementCounts original = countElements(glyph);
    ASSERT_GT(original.curves, 4);

    for (const int resolution : {1, 4}) {
        const ElementCounts flat = countElements(flattenCurves(glyph, resolution));
        EXPECT_EQ(flat.curves, 0);
        EXPECT_EQ(flat.moves, original.moves);
        EXPECT_EQ(flat.lines, original.lines + resolution * original.curves);
    }
}

} // namespace
} // namespace type
