#include "extrude/FaceFrame.h"

#include <cmath>

namespace type {

FaceFrame::FaceFrame(const Point3& normal) {
    const double length = std::sqrt(normal.x * normal.x + normal.y * normal.y + normal.z * normal.z);
    // The shortest rotation of n onto +Y, as the quaternion (n x Y, 1 + n . Y) normalised.
    double nx = 0.0, ny = 1.0, nz = 0.0;
    if (length > 0.0) {
        nx = normal.x / length;
        ny = normal.y / length;
        nz = normal.z / length;
    }
    double qx = -nz, qy = 0.0, qz = nx, qw = 1.0 + ny;
    if (qw < 1e-12) {
        // Facing straight down: half a turn about X.
        qx = 1.0;
        qz = 0.0;
        qw = 0.0;
    }
    const double q = std::sqrt(qx * qx + qy * qy + qz * qz + qw * qw);
    qx /= q;
    qy /= q;
    qz /= q;
    qw /= q;
    m_rows[0][0] = 1 - 2 * (qy * qy + qz * qz);
    m_rows[0][1] = 2 * (qx * qy - qz * qw);
    m_rows[0][2] = 2 * (qx * qz + qy * qw);
    m_rows[1][0] = 2 * (qx * qy + qz * qw);
    m_rows[1][1] = 1 - 2 * (qx * qx + qz * qz);
    m_rows[1][2] = 2 * (qy * qz - qx * qw);
    m_rows[2][0] = 2 * (qx * qz - qy * qw);
    m_rows[2][1] = 2 * (qy * qz + qx * qw);
    m_rows[2][2] = 1 - 2 * (qx * qx + qy * qy);
}

Point2 FaceFrame::toPlane(const Point3& p) const {
    const double x = m_rows[0][0] * p.x + m_rows[0][1] * p.y + m_rows[0][2] * p.z;
    const double z = m_rows[2][0] * p.x + m_rows[2][1] * p.y + m_rows[2][2] * p.z;
    return {x, -z};
}

double FaceFrame::height(const Point3& p) const {
    return m_rows[1][0] * p.x + m_rows[1][1] * p.y + m_rows[1][2] * p.z;
}

} // namespace type
