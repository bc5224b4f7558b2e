#include "deformers/PivotTransform.h"

#include <cmath>

namespace type {

namespace {

using Matrix3 = double[3][3];

void multiply(const Matrix3& a, const Matrix3& b, Matrix3& out) {
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            out[r][c] = a[r][0] * b[0][c] + a[r][1] * b[1][c] + a[r][2] * b[2][c];
}

} // namespace

PivotTransform::PivotTransform(const Point3& pivot, const Point3& anglesDegrees, const Point3& scale)
    : m_pivot(pivot) {
    const double ax = anglesDegrees.x * kDegreesToRadians;
    const double ay = anglesDegrees.y * kDegreesToRadians;
    const double az = anglesDegrees.z * kDegreesToRadians;
    const double cx = std::cos(ax), sx = std::sin(ax);
    const double cy = std::cos(ay), sy = std::sin(ay);
    const double cz = std::cos(az), sz = std::sin(az);
    // Row-vector rotations: p x Rx x Ry x Rz turns about X first.
    const Matrix3 rx = {{1, 0, 0}, {0, cx, sx}, {0, -sx, cx}};
    const Matrix3 ry = {{cy, 0, -sy}, {0, 1, 0}, {sy, 0, cy}};
    const Matrix3 rz = {{cz, sz, 0}, {-sz, cz, 0}, {0, 0, 1}};
    Matrix3 rxy;
    Matrix3 rotation;
    multiply(rx, ry, rxy);
    multiply(rxy, rz, rotation);
    const double factors[3] = {scale.x, scale.y, scale.z};
    for (int r = 0; r < 3; ++r)
        for (int c = 0; c < 3; ++c)
            m_m[r][c] = factors[r] * rotation[r][c];
    m_identity = anglesDegrees.x == 0.0 && anglesDegrees.y == 0.0 && anglesDegrees.z == 0.0 &&
                 scale.x == 1.0 && scale.y == 1.0 && scale.z == 1.0;
}

} // namespace type
