#include "anim/Segment.h"

#include <algorithm>
#include <cmath>

namespace oz::anim {
namespace {

// Reach of a tangent into a segment, as a fraction of the segment's length.
// A reach beyond the whole segment would make time run backwards.
double reach(const Tangent& tangent, bool weighted) {
    return weighted ? std::clamp(tangent.weight / 3.0, 0.0, 1.0) : 1.0 / 3.0;
}

} // namespace

Segment::Segment(const Key& from, double outSlope, const Key& to, double inSlope, bool weighted)
    : m_t0(from.time)
    , m_length(to.time - from.time)
    , m_invLength(1.0 / (to.time - from.time)) {
    m_y[0] = from.value;
    m_y[1] = to.value;
    if (from.out.type == TangentType::kStep) {
        m_shape = Shape::kStep;
        return;
    }
    if (from.out.type == TangentType::kStepNext) {
        m_shape = Shape::kStepNext;
        return;
    }
    const double a = reach(from.out, weighted), b = reach(to.in, weighted);
    // Control values of the Bezier form; a third on both sides is the
    // ordinary Hermite segment, whose time needs no solving.
    const double y0 = from.value, y1 = from.value + a * m_length * outSlope;
    const double y2 = to.value - b * m_length * inSlope, y3 = to.value;
    m_y[0] = y0;
    m_y[1] = 3.0 * (y1 - y0);
    m_y[2] = 3.0 * (y0 - 2.0 * y1 + y2);
    m_y[3] = -y0 + 3.0 * (y1 - y2) + y3;
    m_shape = a == 1.0 / 3.0 && b == 1.0 / 3.0 ? Shape::kCubic : Shape::kBezier;
    m_x[0] = 0.0;
    m_x[1] = 3.0 * a;
    m_x[2] = 3.0 * (1.0 - 2.0 * a - b);
    m_x[3] = 3.0 * (a + b) - 2.0;
}

double Segment::solveBezierParameter(double s) const {
    // Normalised time is monotone in the parameter (reaches are within the
    // segment), so Newton steps kept inside a shrinking bracket converge.
    double lo = 0.0, hi = 1.0, u = s;
    for (int i = 0; i < 64; ++i) {
        const double x = ((m_x[3] * u + m_x[2]) * u + m_x[1]) * u - s;
        if (std::abs(x) < 1e-14)
            break;
        (x > 0.0 ? hi : lo) = u;
        const double dx = (3.0 * m_x[3] * u + 2.0 * m_x[2]) * u + m_x[1];
        const double next = dx > 0.0 ? u - x / dx : lo - 1.0;
        u = next > lo && next < hi ? next : 0.5 * (lo + hi);
    }
    return u;
}

double Segment::evaluate(double time) const {
    const double s = (time - m_t0) * m_invLength;
    switch (m_shape) {
    case Shape::kStep:
        return s < 1.0 ? m_y[0] : m_y[1];
    case Shape::kStepNext:
        return s > 0.0 ? m_y[1] : m_y[0];
    case Shape::kBezier: {
        const double u = solveBezierParameter(s);
        return ((m_y[3] * u + m_y[2]) * u + m_y[1]) * u + m_y[0];
    }
    case Shape::kCubic:
        break;
    }
    return ((m_y[3] * s + m_y[2]) * s + m_y[1]) * s + m_y[0];
}

} // namespace oz::anim
