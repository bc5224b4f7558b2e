#include "svg/SvgContentHandler.h"

#include "svg/PathInterpreter.h"
#include "svg/SvgNumbers.h"
#include "svg/SvgPrimitives.h"

#include <algorithm>
#include <cmath>

QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

namespace type {

namespace {

constexpr double kSmallArtwork = 5.0;

bool isShape(const std::string& element) {
    return element == "path" || element == "polygon" || element == "rect" || element == "circle" ||
           element == "ellipse" || element == "polyline" || element == "line";
}

std::string text(const QString& value) {
    return value.toStdString();
}

double number(const QXmlAttributes& attributes, const char* name) {
    return readAttributeNumber(text(attributes.value(QString::fromLatin1(name))));
}

bool finite(const Contour& outline) {
    return std::all_of(outline.begin(), outline.end(),
                       [](const Point2& p) { return std::isfinite(p.x) && std::isfinite(p.y); });
}

} // namespace

SvgContentHandler::SvgContentHandler(const SvgReadSettings& settings)
    : m_settings(settings) {
    m_settings.curveResolution = std::clamp(m_settings.curveResolution, 1, 100);
}

const SvgContentHandler::Inherited& SvgContentHandler::parent() const {
    static const Inherited kDocument;
    return m_groups.empty() ? kDocument : m_groups.back();
}

bool SvgContentHandler::startElement(const QString&, const QString&, const QString& qualifiedName,
                                     const QXmlAttributes& attributes) {
    if (++m_depth > svgLimits::kMaxDepth)
        return fail(SvgReadStatus::tooDeep);
    const std::string element = text(qualifiedName);
    if (element == "image") {
        m_artwork.issues.hasImages = true;
    } else if (element == "style") {
        m_inStyle = true;
        m_styleSheet.clear();
    } else if (element == "svg") {
        readSvgElement(attributes);
    } else if (isShape(element)) {
        return readShape(element, attributes);
    } else if (element == "g") {
        for (int i = 0; i < attributes.count(); ++i)
            checkPresentation(text(attributes.qName(i)), text(attributes.value(i)));
        m_groups.push_back(stateOf(attributes).inherited);
    }
    return true;
}

bool SvgContentHandler::endElement(const QString&, const QString&, const QString& qualifiedName) {
    --m_depth;
    if (qualifiedName == QLatin1String("g") && !m_groups.empty())
        m_groups.pop_back();
    else if (qualifiedName == QLatin1String("style"))
        m_inStyle = false;
    return true;
}

bool SvgContentHandler::characters(const QString& chunk) {
    if (m_inStyle)
        m_styleSheet += text(chunk);
    return true;
}

QString SvgContentHandler::errorString() const {
    return QStringLiteral("The SVG handler stopped the reader");
}

bool SvgContentHandler::fail(SvgReadStatus status) {
    m_failure = status;
    return false;
}

void SvgContentHandler::readSvgElement(const QXmlAttributes& attributes) {
    for (int i = 0; i < attributes.count(); ++i) {
        const std::string name = text(attributes.qName(i));
        const std::string value = text(attributes.value(i));
        if (name == "viewBox") {
            const std::vector<double> numbers = readNumbers(value);
            if (numbers.size() == 4 && !m_artwork.viewBox)
                m_artwork.viewBox = std::array<double, 4>{numbers[0], numbers[1], numbers[2], numbers[3]};
        } else if (name == "style") {
            for (const auto& [declaration, declared] : splitDeclarations(value))
                checkPresentation(declaration, declared);
        } else if (name == "width" || name == "height") {
            if (readAttributeNumber(value) < kSmallArtwork)
                m_artwork.issues.isSmall = true;
        } else {
            checkPresentation(name, value);
        }
    }
}

SvgContentHandler::ElementState SvgContentHandler::stateOf(const QXmlAttributes& attributes) {
    ElementState state{parent(), {}};
    for (int i = 0; i < attributes.count(); ++i)
        applyCommon(text(attributes.qName(i)), text(attributes.value(i)), state);
    return state;
}

void SvgContentHandler::applyCommon(const std::string& name, const std::string& value, ElementState& state) {
    Inherited& inherited = state.inherited;
    const bool hides = (name == "visibility" && value == "hidden") || (name == "opacity" && value == "0") ||
                       (name == "display" && value == "none");
    if (name == "id") {
        state.id = value;
    } else if (name == "transform") {
        inherited.transform = parent().transform.then(parseTransform(value));
    } else if (name == "fill") {
        if (value != "none") {
            inherited.fillGiven = true;
            inherited.noFill = false;
            inherited.fill = parseColour(value);
        } else if (!m_settings.legacy) {
            inherited.fillGiven = true;
            inherited.noFill = true;
        }
    } else if (name == "style") {
        for (const auto& [declaration, declared] : splitDeclarations(value))
            applyCommon(declaration, declared, state);
    } else if (name == "class") {
        for (const auto& [declaration, declared] : classDeclarations(m_styleSheet, value))
            applyCommon(declaration, declared, state);
    } else if (hides) {
        if (!m_settings.legacy)
            inherited.hidden = true;
    } else {
        checkPresentation(name, value);
    }
}

void SvgContentHandler::checkPresentation(std::string_view name, std::string_view value) {
    if (name == "fill-rule" && value == "evenodd")
        m_artwork.issues.hasEvenOdd = true;
    else if (name == "stroke" || name == "stroke-width")
        m_artwork.issues.hasStrokes = true;
    else if (name == "opacity")
        m_artwork.issues.hasOpacity = true;
}

std::optional<std::vector<Contour>> SvgContentHandler::outlinesOf(const std::string& element,
                                                                  const QXmlAttributes& attributes) const {
    const int resolution = m_settings.curveResolution;
    if (element == "path")
        return interpretPath(tokenisePath(text(attributes.value(QStringLiteral("d")))), resolution);
    if (element == "polygon" || element == "polyline")
        return std::vector<Contour>{pointListOutline(text(attributes.value(QStringLiteral("points"))))};
    if (element == "rect") {
        return std::vector<Contour>{rectOutline(number(attributes, "x"), number(attributes, "y"),
                                                number(attributes, "width"), number(attributes, "height"))};
    }
    if (element == "circle") {
        const double r = number(attributes, "r");
        return std::vector<Contour>{
            ellipseOutline(number(attributes, "cx"), number(attributes, "cy"), r, r, resolution)};
    }
    if (element == "ellipse") {
        return std::vector<Contour>{ellipseOutline(number(attributes, "cx"), number(attributes, "cy"),
                                                   number(attributes, "rx"), number(attributes, "ry"),
                                                   resolution)};
    }
    Contour line{{number(attributes, "x1"), number(attributes, "y1")},
                 {number(attributes, "x2"), number(attributes, "y2")}};
    dropClosingRepeat(line);
    return std::vector<Contour>{line};
}

bool SvgContentHandler::readShape(const std::string& element, const QXmlAttributes& attributes) {
    for (const char* data : {"d", "points"}) {
        if (attributes.value(QLatin1String(data)).size() > svgLimits::kMaxPathText)
            return fail(SvgReadStatus::tooLarge);
    }
    ElementState state = stateOf(attributes);
    std::optional<std::vector<Contour>> outlines = outlinesOf(element, attributes);
    if (!outlines)
        return fail(SvgReadStatus::pathCountError);
    std::size_t points = 0;
    for (const Contour& outline : *outlines)
        points += outline.size();
    m_points += points;
    if (m_points > svgLimits::kMaxPoints ||
        static_cast<double>(outlines->size()) * static_cast<double>(points) > svgLimits::kMaxNestingWork)
        return fail(SvgReadStatus::tooLarge);
    const Inherited& inherited = state.inherited;
    if (inherited.hidden || inherited.noFill)
        return true;
    SvgShape shape{element, std::move(state.id), {}, inherited.fill};
    for (Contour& outline : *outlines) {
        for (Point2& p : outline)
            p = inherited.transform.apply(p);
        // A coordinate that overflowed or was not a number leaves nothing
        // that can be meshed, and neither does an element without points;
        // the rest of the shape still can be.
        if (!outline.empty() && finite(outline))
            shape.outlines.push_back(std::move(outline));
    }
    m_artwork.shapes.push_back(std::move(shape));
    return true;
}

} // namespace type

QT_WARNING_POP
