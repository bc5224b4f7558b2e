#pragma once

#include "geometry/Contour.h"

namespace type {

struct Point3 {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

// A face's own frame: the rotation that takes its normal onto +Y, which
// lays the face flat in a plane of constant height. In that plane a point's
// coordinates are (x, -z), so that a loop that turns counter-clockwise seen
// from the normal's tip turns counter-clockwise in the plane too.
class FaceFrame {
public:
    // A normal of zero length keeps the face as it lies.
    explicit FaceFrame(const Point3& normal);

    Point2 toPlane(const Point3& p) const;
    // The face's height along its normal.
    double height(const Point3& p) const;
    // Back from the plane, `height` along the normal. Inline: it places every point of a solid.
    Point3 fromPlane(const Point2& p, double height) const {
        const double x = p.x, y = height, z = -p.y;
        // The inverse of a rotation is its transpose.
        return {m_rows[0][0] * x + m_rows[1][0] * y + m_rows[2][0] * z,
                m_rows[0][1] * x + m_rows[1][1] * y + m_rows[2][1] * z,
                m_rows[0][2] * x + m_rows[1][2] * y + m_rows[2][2] * z};
    }

    bool operator==(const FaceFrame&) const = default;

private:
    double m_rows[3][3]; // object space into the frame
};

} // namespace type
