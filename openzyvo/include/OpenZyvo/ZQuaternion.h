#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZEulerRotation.h>
#include <OpenZyvo/ZVector.h>

class ZMatrix;

// A unit quaternion rotation (x, y, z imaginary, w real).
class OZ_API ZQuaternion {
public:
    double x = 0.0, y = 0.0, z = 0.0, w = 1.0;

    ZQuaternion() = default;
    ZQuaternion(double x, double y, double z, double w)
        : x(x)
        , y(y)
        , z(z)
        , w(w) {}
    // The rotation by `angle` radians about `axis`.
    ZQuaternion(double angle, const ZVector& axis);
    // The shortest rotation that takes direction `from` onto direction `to`.
    ZQuaternion(const ZVector& from, const ZVector& to);

    ZMatrix asMatrix() const;
    ZEulerRotation asEulerRotation(ZEulerRotation::RotationOrder order = ZEulerRotation::kXYZ) const;
    ZQuaternion operator*(const ZQuaternion& right) const;
    ZQuaternion inverse() const { return conjugate().normal(); }
    ZQuaternion conjugate() const { return {-x, -y, -z, w}; }
    ZQuaternion normal() const;
    ZQuaternion& normalizeIt() { return *this = normal(); }
    bool isEquivalent(const ZQuaternion& other, double tolerance = 1e-10) const;

    static const ZQuaternion identity;
};
