#include "layout/LegacyPath.h"

#include "geometry/BoundingBox.h"
#include "geometry/Orientation.h"
#include "layout/LayoutGrouping.h"
#include "layout/OutlineContours.h"
#include "textsource/HexText.h"

#include <algorithm>
#include <cstdio>
#include <optional>

namespace type {

namespace {

constexpr double kThresholdFactorPerFontSize = 11.52;
constexpr FT_Int32 kLoadFlags = FT_LOAD_NO_BITMAP | FT_LOAD_NO_HINTING;
constexpr char16_t kLineBreak = 10;
constexpr char16_t kSpace = 32;
constexpr double kTrackingBase = 100.0;

// Outer boundaries become faces in order; each hole is cut into every face
// whose box holds its first point, and dropped when no box does.
CapFacePlan planFaces(std::vector<FlaggedContour> contours, const ThinningSettings& thinning,
                      const std::optional<EdgeSubdivisionSettings>& subdivision) {
    CapFacePlan plan;
    for (FlaggedContour& contour : contours) {
        if (contour.clockwise)
            continue;
        thinContour(contour.points, thinning);
        plan.faceBounds.push_back(BoundingBox::of(contour.points));
        plan.faces.push_back(contour.points);
    }
    if (!plan.faces.empty())
        plan.reversed = !isCounterClockwise(plan.faces.front());
    for (FlaggedContour& contour : contours) {
        if (!contour.clockwise)
            continue;
        for (std::size_t face = 0; face < plan.faces.size(); ++face) {
            if (!plan.faceBounds[face].contains(contour.points.front()))
                continue;
            thinContour(contour.points, thinning);
            plan.holes.push_back({face, contour.points});
        }
    }
    if (subdivision) {
        for (Contour& face : plan.faces)
            face = subdivideEdges(face, *subdivision);
        for (PlannedHole& hole : plan.holes)
            hole.points = subdivideEdges(hole.points, *subdivision);
    }
    return plan;
}

void scale(Contour& contour, double factor) {
    for (Point2& p : contour)
        p = {p.x * factor, p.y * factor};
}

void scale(CapFacePlan& plan, double factor) {
    plan.bounds = {};
    for (std::size_t i = 0; i < plan.faces.size(); ++i) {
        scale(plan.faces[i], factor);
        plan.faceBounds[i] = BoundingBox::of(plan.faces[i]);
        plan.bounds.extend(plan.faceBounds[i]);
    }
    for (PlannedHole& hole : plan.holes)
        scale(hole.points, factor);
}

class LegacyLayout {
public:
    LegacyLayout(const TypeSettings& settings, FT_Face face, LayoutResult& result)
        : m_settings(settings)
        , m_face(face)
        , m_result(result)
        , m_lineAdvance(static_cast<double>(face->size->metrics.height) * settings.leadingScale)
        , m_advanceScale(settings.kerningScale * (settings.tracking + kTrackingBase) / kTrackingBase)
        , m_thinning(settings.thinning)
        , m_grouping(result, settings.alignment) {
        const double factor = kThresholdFactorPerFontSize * settings.fontSize;
        m_thinning.pointDistanceFilter *= factor;
        if (settings.subdivideEdges) {
            m_subdivision = settings.subdivision;
            m_subdivision->maxEdgeLength *= factor;
        }
    }

    void layOut(const QString& text) {
        for (const QChar character : text) {
            if (character.unicode() == kLineBreak) {
                endLine();
                continue;
            }
            const FT_UInt glyph = FT_Get_Char_Index(m_face, character.unicode());
            kern(glyph);
            if (character.unicode() == kSpace)
                addSpace(glyph);
            else if (glyph == 0)
                ++m_missing;
            else
                addGlyph(glyph);
        }
        m_grouping.endLine();
        reportMessages();
    }

private:
    void endLine() {
        m_grouping.endLine();
        m_pen = {0.0, m_pen.y - m_lineAdvance};
        m_previous.reset();
    }

    void kern(FT_UInt glyph) {
        if (m_previous) {
            FT_Vector delta{0, 0};
            if (FT_Get_Kerning(m_face, *m_previous, glyph, FT_KERNING_DEFAULT, &delta) != 0)
                std::printf("Error getting kerning.\n");
            else
                m_pen.x += static_cast<double>(delta.x);
        }
        m_previous = glyph;
    }

    bool load(FT_UInt glyph) {
        if (FT_Load_Glyph(m_face, glyph, kLoadFlags) == 0)
            return true;
        m_loadFailed = true;
        return false;
    }

    void addSpace(FT_UInt glyph) {
        m_grouping.addBlank();
        if (load(glyph))
            m_pen.x += advance() * m_settings.spaceWidthScale;
    }

    void addGlyph(FT_UInt glyph) {
        if (!load(glyph))
            return;
        ++m_found;
        const FT_GlyphSlot slot = m_face->glyph;
        std::vector<FlaggedContour> contours;
        if (slot->format == FT_GLYPH_FORMAT_OUTLINE)
            contours = outlineContours(slot->outline, m_settings.curveResolution);
        BoundingBox box;
        for (FlaggedContour& contour : contours) {
            for (Point2& p : contour.points) {
                p = {m_pen.x + p.x, m_pen.y + p.y};
                box.extend(Point2{p.x * m_result.unitScale, p.y * m_result.unitScale});
            }
        }
        CapFacePlan plan = planFaces(std::move(contours), m_thinning, m_subdivision);
        scale(plan, m_result.unitScale);
        m_grouping.addCharacter(std::move(plan), box);
        m_pen.x += advance();
    }

    double advance() const { return static_cast<double>(m_face->glyph->advance.x) * m_advanceScale; }

    void reportMessages() {
        if (m_loadFailed)
            m_result.messages.push_back({fontMessages::kTypeErrorFTLoadGlyph, {}});
        if (m_missing > 0) {
            m_result.messages.push_back(
                {m_found > 0 ? fontMessages::kTypeMissingGlyphs : fontMessages::kTypeMissingAllGlyphs, {}});
        }
    }

    const TypeSettings& m_settings;
    FT_Face m_face;
    LayoutResult& m_result;
    double m_lineAdvance;
    double m_advanceScale;
    ThinningSettings m_thinning;
    std::optional<EdgeSubdivisionSettings> m_subdivision;
    LayoutGrouping m_grouping;
    Point2 m_pen;
    std::optional<FT_UInt> m_previous;
    int m_missing = 0;
    int m_found = 0;
    bool m_loadFailed = false;
};

} // namespace

LayoutResult decomposeLegacy(const TypeSettings& settings, FT_Face face) {
    LayoutResult result;
    result.caps = PlannedCaps{};
    if (face == nullptr || face->size == nullptr || face->size->metrics.height <= 0) {
        result.messages.push_back({fontMessages::kTypeErrorFTSetChar, {}});
        return result;
    }
    result.unitScale = settings.fontSize / static_cast<double>(face->size->metrics.height);

    const QString text = hexTokensToQString(settings.text);
    if (!text.isEmpty())
        LegacyLayout(settings, face, result).layOut(text);
    return result;
}

} // namespace type
