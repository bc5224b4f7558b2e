#pragma once

#include "shells/ShellTopology.h"

namespace type {

// The degree conversions the stored animation values were made with; kept at
// this precision so that scenes move exactly as they were keyed.
inline constexpr double kRadiansToDegrees = 57.29578;
inline constexpr double kDegreesToRadians = 0.0174532925;

// ((p - pivot) x M) + pivot for row vectors, where M scales first and then
// rotates by Euler angles in degrees about the fixed X, then Y, then Z axes.
class PivotTransform {
public:
    PivotTransform(const Point3& pivot, const Point3& anglesDegrees, const Point3& scale);

    // No scale and no turn: points stay exactly where they are, not merely
    // within rounding of it.
    bool identity() const { return m_identity; }

    const Point3& pivot() const { return m_pivot; }
    // Row r, column c of M.
    double matrix(int r, int c) const { return m_m[r][c]; }

    Point3 apply(const Point3& p) const {
        if (m_identity)
            return p;
        const double x = p.x - m_pivot.x;
        const double y = p.y - m_pivot.y;
        const double z = p.z - m_pivot.z;
        return {x * m_m[0][0] + y * m_m[1][0] + z * m_m[2][0] + m_pivot.x,
                x * m_m[0][1] + y * m_m[1][1] + z * m_m[2][1] + m_pivot.y,
                x * m_m[0][2] + y * m_m[1][2] + z * m_m[2][2] + m_pivot.z};
    }

private:
    Point3 m_pivot;
    double m_m[3][3];
    bool m_identity = false;
};

} // namespace type
