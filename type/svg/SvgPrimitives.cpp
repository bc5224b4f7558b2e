#include "svg/SvgPrimitives.h"

#include "geometry/CurveFlattening.h"
#include "svg/SvgNumbers.h"

namespace type {

namespace {

// Control points of a cubic quarter arc sit this far along the tangents, in
// radii: the arc then strays from the true circle by less than 0.03 %.
constexpr double kQuarterArcHandle = 0.5522847771644592;

} // namespace

void dropClosingRepeat(Contour& outline) {
    if (outline.size() > 1 && outline.back() == outline.front())
        outline.pop_back();
}

Contour rectOutline(double x, double y, double width, double height) {
    return {{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}};
}

Contour ellipseOutline(double cx, double cy, double rx, double ry, int resolution) {
    const double hx = rx * kQuarterArcHandle;
    const double hy = ry * kQuarterArcHandle;
    const Point2 right{cx + rx, cy};
    const Point2 bottom{cx, cy + ry};
    const Point2 left{cx - rx, cy};
    const Point2 top{cx, cy - ry};
    Contour outline{right};
    appendCubic(outline, right, {cx + rx, cy + hy}, {cx + hx, cy + ry}, bottom, resolution);
    appendCubic(outline, bottom, {cx - hx, cy + ry}, {cx - rx, cy + hy}, left, resolution);
    appendCubic(outline, left, {cx - rx, cy - hy}, {cx - hx, cy - ry}, top, resolution);
    appendCubic(outline, top, {cx + hx, cy - ry}, {cx + rx, cy - hy}, right, resolution);
    dropClosingRepeat(outline);
    return outline;
}

Contour pointListOutline(std::string_view points) {
    const std::vector<double> numbers = readNumbers(points);
    Contour outline;
    outline.reserve(numbers.size() / 2);
    for (std::size_t i = 0; i + 1 < numbers.size(); i += 2)
        outline.push_back({numbers[i], numbers[i + 1]});
    dropClosingRepeat(outline);
    return outline;
}

} // namespace type
