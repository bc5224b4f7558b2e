#include <OpenZyvo/ZEulerRotation.h>
#include <OpenZyvo/ZMatrix.h>
#include <OpenZyvo/ZQuaternion.h>
#include <cmath>

namespace {

// Row-vector rotation about one axis (p' = p * R).
ZMatrix axisRotation(int axis, double angle) {
    const double c = std::cos(angle), s = std::sin(angle);
    ZMatrix m;
    const int a = (axis + 1) % 3, b = (axis + 2) % 3;
    m(a, a) = c;
    m(a, b) = s;
    m(b, a) = -s;
    m(b, b) = c;
    return m;
}

// The axes in the order they are applied.
void axesOf(ZEulerRotation::RotationOrder order, int axes[3]) {
    static const int table[6][3] = {{0, 1, 2}, {1, 2, 0}, {2, 0, 1}, {0, 2, 1}, {1, 0, 2}, {2, 1, 0}};
    for (int i = 0; i < 3; ++i)
        axes[i] = table[order][i];
}

} // namespace

ZMatrix ZEulerRotation::asMatrix() const {
    int axes[3];
    axesOf(order, axes);
    const double angles[3] = {x, y, z};
    // Row vectors: the first rotation applied is the leftmost factor.
    return axisRotation(axes[0], angles[axes[0]]) * axisRotation(axes[1], angles[axes[1]]) *
           axisRotation(axes[2], angles[axes[2]]);
}

ZQuaternion ZEulerRotation::asQuaternion() const {
    int axes[3];
    axesOf(order, axes);
    const double angles[3] = {x, y, z};
    const ZVector unit[3] = {ZVector::xAxis, ZVector::yAxis, ZVector::zAxis};
    ZQuaternion q;
    for (int i = 0; i < 3; ++i)
        q = q * ZQuaternion(angles[axes[i]], unit[axes[i]]);
    return q;
}

ZEulerRotation ZEulerRotation::inverse() const {
    static const RotationOrder reversed[6] = {kZYX, kXZY, kYXZ, kYZX, kZXY, kXYZ};
    return {-x, -y, -z, reversed[order]};
}

ZEulerRotation& ZEulerRotation::reorder(RotationOrder newOrder) {
    *this = decompose(asMatrix(), newOrder);
    return *this;
}

bool ZEulerRotation::isEquivalent(const ZEulerRotation& other, double tolerance) const {
    return asMatrix().isEquivalent(other.asMatrix(), tolerance);
}

ZEulerRotation ZEulerRotation::decompose(const ZMatrix& m, RotationOrder order) {
    // For row vectors with axes applied i, j, k the matrix is Ri * Rj * Rk.
    // Writing it in column-vector form (transpose) gives the classic
    // Rk * Rj * Ri factorisation solved below.
    int axes[3];
    axesOf(order, axes);
    const int i = axes[0], j = axes[1], k = axes[2];
    const bool parityOdd = (j != (i + 1) % 3);
    const double sign = parityOdd ? -1.0 : 1.0;
    auto M = [&](int r, int c) {
        return m(c, r);
    };
    double a[3];
    const double sy = std::sqrt(M(i, i) * M(i, i) + M(j, i) * M(j, i));
    if (sy > 1e-12) {
        a[0] = std::atan2(M(k, j), M(k, k));
        a[1] = std::atan2(-M(k, i), sy);
        a[2] = std::atan2(M(j, i), M(i, i));
    } else {
        a[0] = std::atan2(-M(j, k), M(j, j));
        a[1] = std::atan2(-M(k, i), sy);
        a[2] = 0.0;
    }
    double angles[3];
    angles[i] = sign * a[0];
    angles[j] = sign * a[1];
    angles[k] = sign * a[2];
    return {angles[0], angles[1], angles[2], order};
}
