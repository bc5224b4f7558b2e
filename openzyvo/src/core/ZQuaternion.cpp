#include <OpenZyvo/ZMatrix.h>
#include <OpenZyvo/ZQuaternion.h>
#include <cmath>

const ZQuaternion ZQuaternion::identity;

ZQuaternion::ZQuaternion(double angle, const ZVector& axis) {
    const ZVector n = axis.normal();
    const double s = std::sin(angle * 0.5);
    x = n.x * s;
    y = n.y * s;
    z = n.z * s;
    w = std::cos(angle * 0.5);
}

ZQuaternion::ZQuaternion(const ZVector& from, const ZVector& to) {
    const ZVector a = from.normal(), b = to.normal();
    const double d = a * b;
    if (d < -1.0 + 1e-12) {
        // Opposite directions: turn half way round any axis perpendicular to a.
        ZVector axis = ZVector::xAxis ^ a;
        if (axis.length() < 1e-6)
            axis = ZVector::yAxis ^ a;
        *this = ZQuaternion(M_PI, axis);
        return;
    }
    const ZVector c = a ^ b;
    *this = ZQuaternion(c.x, c.y, c.z, 1.0 + d).normal();
}

ZQuaternion ZQuaternion::normal() const {
    const double l = std::sqrt(x * x + y * y + z * z + w * w);
    return l > 0.0 ? ZQuaternion(x / l, y / l, z / l, w / l) : ZQuaternion();
}

ZQuaternion ZQuaternion::operator*(const ZQuaternion& r) const {
    // Row-vector convention: (a * b) applies a first, then b, matching matrices.
    const ZQuaternion& a = r;
    const ZQuaternion& b = *this;
    return {a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y, a.w * b.y - a.x * b.z + a.y * b.w + a.z * b.x,
            a.w * b.z + a.x * b.y - a.y * b.x + a.z * b.w, a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z};
}

ZMatrix ZQuaternion::asMatrix() const {
    const ZQuaternion q = normal();
    const double xx = q.x * q.x, yy = q.y * q.y, zz = q.z * q.z;
    const double xy = q.x * q.y, xz = q.x * q.z, yz = q.y * q.z;
    const double wx = q.w * q.x, wy = q.w * q.y, wz = q.w * q.z;
    ZMatrix m;
    // Transposed from the column-vector form, for p * M.
    m(0, 0) = 1 - 2 * (yy + zz);
    m(0, 1) = 2 * (xy + wz);
    m(0, 2) = 2 * (xz - wy);
    m(1, 0) = 2 * (xy - wz);
    m(1, 1) = 1 - 2 * (xx + zz);
    m(1, 2) = 2 * (yz + wx);
    m(2, 0) = 2 * (xz + wy);
    m(2, 1) = 2 * (yz - wx);
    m(2, 2) = 1 - 2 * (xx + yy);
    return m;
}

ZEulerRotation ZQuaternion::asEulerRotation(ZEulerRotation::RotationOrder order) const {
    return ZEulerRotation::decompose(asMatrix(), order);
}

bool ZQuaternion::isEquivalent(const ZQuaternion& other, double tolerance) const {
    // q and -q are the same rotation.
    const auto close = [&](double s) {
        return std::abs(x - s * other.x) <= tolerance && std::abs(y - s * other.y) <= tolerance &&
               std::abs(z - s * other.z) <= tolerance && std::abs(w - s * other.w) <= tolerance;
    };
    return close(1.0) || close(-1.0);
}
