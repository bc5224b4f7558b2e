#pragma once

#include "anim/Key.h"

namespace oz::anim {

// The stretch of a curve between two neighbouring keys, prepared for
// evaluation: a cubic in the segment's normalised time, or, where weighted
// tangents bend time as well, a cubic Bezier whose time is solved first.
class Segment {
public:
    Segment() = default;
    // `outSlope` and `inSlope` are the resolved slopes of `from`'s out side
    // and `to`'s in side; `weighted` lets the tangents' weights shape it.
    Segment(const Key& from, double outSlope, const Key& to, double inSlope, bool weighted);

    double startTime() const { return m_t0; }
    double endTime() const { return m_t0 + m_length; }

    // The value at `time`, which lies within [startTime(), endTime()].
    double evaluate(double time) const;

private:
    enum class Shape { kCubic, kBezier, kStep, kStepNext };

    double solveBezierParameter(double s) const;

    Shape m_shape = Shape::kStep;
    double m_t0 = 0.0;
    double m_length = 0.0;
    double m_invLength = 0.0;
    double m_y[4] = {}; // value polynomial, lowest power first
    double m_x[4] = {}; // normalised time polynomial of a Bezier segment
};

} // namespace oz::anim
