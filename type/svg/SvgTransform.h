#pragma once

#include "geometry/Contour.h"

#include <string_view>

namespace type {

// A 2-D affine map in the artwork's own frame (y down):
// x' = a x + c y + e, y' = b x + d y + f.
struct Affine2 {
    double a = 1.0;
    double b = 0.0;
    double c = 0.0;
    double d = 1.0;
    double e = 0.0;
    double f = 0.0;

    Point2 apply(Point2 p) const { return {a * p.x + c * p.y + e, b * p.x + d * p.y + f}; }

    // The map that applies `inner` first and then this one.
    Affine2 then(const Affine2& inner) const {
        return {a * inner.a + c * inner.b, b * inner.a + d * inner.b,     a * inner.c + c * inner.d,
                b * inner.c + d * inner.d, a * inner.e + c * inner.f + e, b * inner.e + d * inner.f + f};
    }

    friend bool operator==(const Affine2&, const Affine2&) = default;
};

// Reads a transform list such as "translate(10 5) rotate(30)": rotate (in
// degrees), scale (one or two factors), skewX, skewY, matrix and, under any
// other name, a translation. Functions apply to the points right to left, as
// nested groups would, so the leftmost one is applied last.
Affine2 parseTransform(std::string_view text);

} // namespace type
