#include "layout/OutlineContours.h"

#include "geometry/CurveFlattening.h"
#include "geometry/Orientation.h"
#include "geometry/ParityNesting.h"

#include FT_OUTLINE_H

#include <algorithm>

namespace type {

namespace {

struct Decomposition {
    std::vector<Contour> contours;
    int resolution = 1;
    Point2 last;
};

Point2 toPoint(const FT_Vector* v) {
    return {static_cast<double>(v->x), static_cast<double>(v->y)};
}

Decomposition& of(void* user) {
    return *static_cast<Decomposition*>(user);
}

int moveTo(const FT_Vector* to, void* user) {
    Decomposition& d = of(user);
    d.last = toPoint(to);
    d.contours.push_back({d.last});
    return 0;
}

int lineTo(const FT_Vector* to, void* user) {
    Decomposition& d = of(user);
    d.last = toPoint(to);
    d.contours.back().push_back(d.last);
    return 0;
}

int conicTo(const FT_Vector* control, const FT_Vector* to, void* user) {
    Decomposition& d = of(user);
    appendQuadratic(d.contours.back(), d.last, toPoint(control), toPoint(to), d.resolution);
    d.last = toPoint(to);
    return 0;
}

int cubicTo(const FT_Vector* control1, const FT_Vector* control2, const FT_Vector* to, void* user) {
    Decomposition& d = of(user);
    appendCubic(d.contours.back(), d.last, toPoint(control1), toPoint(control2), toPoint(to), d.resolution);
    d.last = toPoint(to);
    return 0;
}

const Point2& leftmost(const Contour& contour) {
    return *std::min_element(contour.begin(), contour.end(),
                             [](const Point2& a, const Point2& b) { return a.x < b.x; });
}

bool isHole(const std::vector<Contour>& contours, std::size_t i) {
    const Point2& probe = leftmost(contours[i]);
    std::size_t enclosing = 0;
    for (std::size_t j = 0; j < contours.size(); ++j) {
        if (j != i && containsEvenOdd(contours[j], probe))
            ++enclosing;
    }
    return enclosing % 2 != 0;
}

} // namespace

std::vector<FlaggedContour> outlineContours(const FT_Outline& outline, int curveResolution) {
    static const FT_Outline_Funcs funcs{moveTo, lineTo, conicTo, cubicTo, 0, 0};
    Decomposition decomposition;
    decomposition.resolution = curveResolution;
    if (FT_Outline_Decompose(const_cast<FT_Outline*>(&outline), &funcs, &decomposition) != 0)
        return {};

    std::vector<Contour>& contours = decomposition.contours;
    for (Contour& contour : contours) {
        // The outline closes each contour by returning to its first point.
        if (contour.size() > 1 && contour.back() == contour.front())
            contour.pop_back();
    }
    std::erase_if(contours, [](const Contour& contour) { return contour.size() < 3; });

    std::vector<bool> holes(contours.size());
    for (std::size_t i = 0; i < contours.size(); ++i)
        holes[i] = isHole(contours, i);
    std::vector<FlaggedContour> flagged;
    flagged.reserve(contours.size());
    for (std::size_t i = 0; i < contours.size(); ++i) {
        if (isCounterClockwise(contours[i]) == holes[i])
            std::reverse(contours[i].begin(), contours[i].end());
        flagged.push_back({std::move(contours[i]), holes[i]});
    }
    return flagged;
}

} // namespace type
