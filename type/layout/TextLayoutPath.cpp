#include "layout/TextLayoutPath.h"

#include "geometry/BoundingBox.h"
#include "layout/GlyphDecomposition.h"
#include "layout/GuiApplication.h"
#include "layout/LayoutGrouping.h"
#include "layout/ParallelTasks.h"
#include "layout/TextLines.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QRawFont>
#include <QTextLayout>
#include <cmath>
#include <map>

namespace type {

namespace {

constexpr int kOutlinePixelSize = 100;
constexpr qreal kTrackingBase = 100.0;

struct GlyphPlacement {
    int pathIndex = -1; // into the evaluation's distinct outlines; -1 for a blank
    double x = 0.0;
    double y = 0.0;
};

// A distinct glyph outline of this evaluation: cached shapes, or the path to
// decompose into them.
struct OutlineSlot {
    GlyphOutlineKey key;
    QPainterPath path;
    GlyphShapes shapes;
};

QFont outlineFont(const TypeSettings& settings) {
    const QString style = QString::fromStdString(settings.style);
    QFont font = QFontDatabase().font(QString::fromStdString(settings.family), style, kOutlinePixelSize);
    font.setPixelSize(kOutlinePixelSize);
    font.setStyleName(style);
    font.setLetterSpacing(QFont::PercentageSpacing, settings.tracking + kTrackingBase);
    return font;
}

// Lays the lines out and collects each distinct glyph once.
class LineLayout {
public:
    LineLayout(const TypeSettings& settings, const QFont& font, double lineHeight, GlyphOutlineCache& cache)
        : m_settings(settings)
        , m_font(font)
        , m_lineAdvance(lineHeight * settings.leadingScale)
        , m_cache(cache) {}

    void layOut(const QString& text) {
        std::vector<GlyphPlacement>& line = m_lines.emplace_back();
        if (!text.isEmpty()) {
            QTextLayout layout(text, m_font);
            layout.beginLayout();
            layout.createLine();
            layout.endLayout();
            for (const QGlyphRun& run : layout.glyphRuns(-1, -1))
                placeRun(run, line);
        }
        m_lineY -= m_lineAdvance;
    }

    std::vector<OutlineSlot>& outlines() { return m_outlines; }
    const std::vector<std::vector<GlyphPlacement>>& lines() const { return m_lines; }

private:
    void placeRun(const QGlyphRun& run, std::vector<GlyphPlacement>& line) {
        const QRawFont font = run.rawFont();
        GlyphOutlineKey key{font.familyName(), font.styleName(), font.pixelSize(), 0,
                            m_settings.curveResolution};
        const QVector<quint32> glyphs = run.glyphIndexes();
        const QVector<QPointF> positions = run.positions();
        for (int i = 0; i < glyphs.size(); ++i) {
            key.glyphIndex = glyphs[i];
            const int pathIndex = outlineIndex(key, font);
            if (pathIndex < 0) {
                if (i + 1 < glyphs.size())
                    m_extraX +=
                        (m_settings.spaceWidthScale - 1.0) * (positions[i + 1].x() - positions[i].x());
                line.push_back({});
                continue;
            }
            line.push_back({pathIndex, m_settings.kerningScale * (m_extraX + positions[i].x()), m_lineY});
        }
    }

    int outlineIndex(const GlyphOutlineKey& key, const QRawFont& font) {
        if (const auto known = m_keyToOutline.find(key); known != m_keyToOutline.end())
            return known->second;
        OutlineSlot slot{key, {}, nullptr};
        if (const std::optional<GlyphShapes> cached = m_cache.find(key)) {
            if (!*cached)
                return m_keyToOutline[key] = -1;
            slot.shapes = *cached;
        } else {
            slot.path = font.pathForGlyph(key.glyphIndex);
            if (slot.path.elementCount() < 1) {
                m_cache.storeBlank(key);
                return m_keyToOutline[key] = -1;
            }
        }
        m_outlines.push_back(std::move(slot));
        return m_keyToOutline[key] = static_cast<int>(m_outlines.size() - 1);
    }

    const TypeSettings& m_settings;
    const QFont& m_font;
    double m_lineAdvance;
    GlyphOutlineCache& m_cache;
    std::map<GlyphOutlineKey, int> m_keyToOutline;
    std::vector<OutlineSlot> m_outlines;
    std::vector<std::vector<GlyphPlacement>> m_lines;
    double m_lineY = 0.0;
    double m_extraX = 0.0;
};

// One task per glyph outline not in the cache; each writes only its own slot.
void decomposeNewOutlines(std::vector<OutlineSlot>& outlines, int curveResolution, GlyphOutlineCache& cache) {
    std::vector<std::vector<Shape>> decomposed(outlines.size());
    runInParallel(outlines.size(), [&](std::size_t i) {
        if (!outlines[i].shapes)
            decomposed[i] = decomposeGlyphPath(outlines[i].path, curveResolution);
    });
    for (std::size_t i = 0; i < outlines.size(); ++i) {
        if (!outlines[i].shapes)
            outlines[i].shapes = cache.storeDecomposed(outlines[i].key, std::move(decomposed[i]));
    }
}

// Scene coordinates snapped to a power-of-two step some four billion times finer than the font
// size. A glyph's points and its pen position are snapped apart, so each point is their exact
// sum: every copy of a glyph in the text is then an exact translate of the others, which lets
// the mesh cut one copy and reuse its triangles for the rest. Pen positions are snapped up to a
// quarter of a million font sizes from the origin; further out copies are merely not exact.
class SceneGrid {
public:
    explicit SceneGrid(double fontSize) {
        constexpr int kStepsPerFontSizeLog2 = 32;
        const double size = std::abs(fontSize);
        if (!std::isfinite(size) || !(size > 0.0))
            return;
        const double step = std::ldexp(1.0, std::ilogb(size) - kStepsPerFontSizeLog2);
        if (std::isnormal(step) && std::isnormal(1.0 / step)) {
            m_step = step;
            m_inverse = 1.0 / step;
        }
    }

    double snap(double v) const {
        // Adding and taking away 1.5 * 2^52 rounds to a whole number of steps; multiples too
        // large for that (or not finite) stay as they are.
        constexpr double kRounder = 0x1.8p52;
        const double steps = v * m_inverse;
        if (m_step == 0.0 || !(std::abs(steps) < 0x1p51))
            return v;
        return ((steps + kRounder) - kRounder) * m_step;
    }

private:
    double m_step = 0.0;
    double m_inverse = 0.0;
};

// A distinct outline in scene units, snapped to the grid, y up (Qt's outlines run y down).
std::vector<Shape> scaleShapes(const std::vector<Shape>& shapes, double unitScale, const SceneGrid& grid) {
    auto scaleContour = [&](const Contour& contour) {
        Contour scaled;
        scaled.reserve(contour.size());
        for (const Point2& p : contour)
            scaled.push_back({grid.snap(p.x * unitScale), grid.snap(-p.y * unitScale)});
        return scaled;
    };
    std::vector<Shape> scaled;
    scaled.reserve(shapes.size());
    for (const Shape& shape : shapes) {
        Shape& copy = scaled.emplace_back();
        copy.outer = scaleContour(shape.outer);
        copy.holes.reserve(shape.holes.size());
        for (const Contour& hole : shape.holes)
            copy.holes.push_back(scaleContour(hole));
    }
    return scaled;
}

std::vector<Shape> placeShapes(const std::vector<Shape>& scaled, Point2 pen, BoundingBox& box) {
    auto placeContour = [&](const Contour& contour) {
        Contour placed;
        placed.reserve(contour.size());
        for (const Point2& p : contour) {
            placed.push_back({pen.x + p.x, pen.y + p.y});
            box.extend(placed.back());
        }
        return placed;
    };
    std::vector<Shape> placed;
    placed.reserve(scaled.size());
    for (const Shape& shape : scaled) {
        Shape& copy = placed.emplace_back();
        copy.outer = placeContour(shape.outer);
        copy.holes.reserve(shape.holes.size());
        for (const Contour& hole : shape.holes)
            copy.holes.push_back(placeContour(hole));
    }
    return placed;
}

} // namespace

LayoutResult decomposeTextLayout(const TypeSettings& settings, GlyphOutlineCache& cache) {
    LayoutResult result;
    result.caps = ShapeCaps{};
    if (!ensureGuiApplication()) {
        result.messages.push_back({fontMessages::kTypeErrorInitFont, {}});
        return result;
    }

    const QFont font = outlineFont(settings);
    const double lineHeight = QFontMetricsF(font).height();
    if (!(lineHeight > 0.0)) {
        result.messages.push_back({fontMessages::kTypeNoLoadFont, {}});
        return result;
    }
    result.unitScale = settings.fontSize / lineHeight;

    LineLayout layout(settings, font, lineHeight, cache);
    for (const QString& line : textLines(settings.text))
        layout.layOut(line);
    decomposeNewOutlines(layout.outlines(), settings.curveResolution, cache);
    cache.endEvaluation();

    const SceneGrid grid(settings.fontSize);
    std::vector<std::vector<Shape>> scaled;
    scaled.reserve(layout.outlines().size());
    for (const OutlineSlot& outline : layout.outlines())
        scaled.push_back(scaleShapes(*outline.shapes, result.unitScale, grid));
    LayoutGrouping grouping(result, settings.alignment);
    for (const std::vector<GlyphPlacement>& line : layout.lines()) {
        for (const GlyphPlacement& glyph : line) {
            if (glyph.pathIndex < 0) {
                grouping.addBlank();
                continue;
            }
            BoundingBox box;
            const Point2 pen{grid.snap(glyph.x * result.unitScale), grid.snap(glyph.y * result.unitScale)};
            std::vector<Shape> shapes =
                placeShapes(scaled[static_cast<std::size_t>(glyph.pathIndex)], pen, box);
            grouping.addCharacter(std::move(shapes), box);
        }
        grouping.endLine();
    }
    return result;
}

} // namespace type
