#include "layout/PreLayoutPath.h"

#include "geometry/BoundingBox.h"
#include "geometry/CapFacePlan.h"
#include "geometry/Orientation.h"
#include "geometry/ParityNesting.h"
#include "layout/GuiApplication.h"
#include "layout/LayoutGrouping.h"
#include "layout/TextLines.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainterPath>
#include <QPolygonF>
#include <algorithm>
#include <optional>

namespace type {

namespace {

constexpr qreal kTrackingBase = 100.0;
constexpr int kPointSizePerSquaredResolution = 10;
// Qt's font engine cannot size a face beyond 65535 pixels; at 60 the font is
// 36000 points, about 48000 pixels, and flattens far below a scene's detail.
constexpr int kMaxResolution = 60;

QFont outlineFont(const TypeSettings& settings) {
    const int resolution = std::clamp(settings.curveResolution, 1, kMaxResolution);
    QFont font(QString::fromStdString(settings.family));
    font.setStyleName(QString::fromStdString(settings.style));
    font.setPointSize(resolution * resolution * kPointSizePerSquaredResolution);
    font.setLetterSpacing(QFont::PercentageSpacing, settings.tracking + kTrackingBase);
    return font;
}

struct Pen {
    double x = 0.0;
    double baseline = 0.0;
};

// The character's outline placed at the pen, y turned up, in scene units.
std::vector<Contour> characterContours(const QFont& font, QChar character, const Pen& pen, double unitScale) {
    QPainterPath path;
    path.addText(QPointF(0.0, 0.0), font, QString(character));
    std::vector<Contour> contours;
    for (const QPolygonF& polygon : path.toSubpathPolygons()) {
        if (polygon.size() < 3)
            continue;
        Contour placed;
        placed.reserve(static_cast<std::size_t>(polygon.size()));
        for (const QPointF& p : polygon)
            placed.push_back({pen.x + p.x(), pen.baseline - p.y()});
        if (placed.back() == placed.front())
            placed.pop_back();
        for (Point2& p : placed)
            p = {p.x * unitScale, p.y * unitScale};
        contours.push_back(std::move(placed));
    }
    return contours;
}

// Outer contours counter-clockwise, holes clockwise, each by its own parity.
void orientByParity(std::vector<Contour>& contours) {
    const std::vector<std::int32_t> depths = nestingDepths(contours);
    for (std::size_t i = 0; i < contours.size(); ++i) {
        if (isCounterClockwise(contours[i]) == isHoleDepth(depths[i]))
            std::reverse(contours[i].begin(), contours[i].end());
    }
}

class PreLayout {
public:
    PreLayout(const TypeSettings& settings, const QFont& font, LayoutResult& result)
        : m_settings(settings)
        , m_font(font)
        , m_metrics(font)
        , m_unitScale(result.unitScale)
        , m_spaceAdvance(m_metrics.horizontalAdvance(QStringLiteral(" ")) * settings.spaceWidthScale)
        , m_grouping(result, settings.alignment) {
        if (settings.subdivideEdges)
            m_subdivision = settings.subdivision;
    }

    void layOut(const QString& line, double baseline) {
        double spaceX = 0.0;
        QString word;
        for (const QChar character : line) {
            if (character == QChar(' ')) {
                m_grouping.addBlank();
                spaceX += wordWidth(word) + m_spaceAdvance;
                word.clear();
                continue;
            }
            addCharacter(character, Pen{wordWidth(word) + spaceX, baseline});
            word += character;
        }
        m_grouping.endLine();
    }

private:
    double wordWidth(const QString& word) const {
        return word.isEmpty() ? 0.0 : m_settings.kerningScale * m_metrics.horizontalAdvance(word);
    }

    void addCharacter(QChar character, const Pen& pen) {
        std::vector<Contour> contours = characterContours(m_font, character, pen, m_unitScale);
        BoundingBox box;
        for (const Contour& contour : contours)
            box.extend(BoundingBox::of(contour));
        if (m_settings.setParity)
            orientByParity(contours);
        m_grouping.addCharacter(planCapFaces(std::move(contours), m_settings.thinning, m_subdivision), box);
    }

    const TypeSettings& m_settings;
    const QFont& m_font;
    QFontMetrics m_metrics;
    double m_unitScale;
    double m_spaceAdvance;
    std::optional<EdgeSubdivisionSettings> m_subdivision;
    LayoutGrouping m_grouping;
};

} // namespace

LayoutResult decomposePreLayout(const TypeSettings& settings) {
    LayoutResult result;
    result.caps = PlannedCaps{};
    if (!ensureGuiApplication()) {
        result.messages.push_back({fontMessages::kTypeErrorInitFont, {}});
        return result;
    }

    const QFont font = outlineFont(settings);
    const int lineHeight = QFontMetrics(font).height();
    if (lineHeight <= 0) {
        result.messages.push_back({fontMessages::kTypeNoLoadFont, {}});
        return result;
    }
    result.unitScale = settings.fontSize / lineHeight;
    const double lineAdvance = lineHeight * static_cast<double>(settings.leadingScale);

    PreLayout layout(settings, font, result);
    const QStringList lines = textLines(settings.text);
    for (int line = 0; line < lines.size(); ++line)
        layout.layOut(lines[line], -line * lineAdvance);
    return result;
}

} // namespace type
