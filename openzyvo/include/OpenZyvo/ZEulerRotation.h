#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZVector.h>

class ZMatrix;
class ZQuaternion;

// Rotation angles in radians about X, Y and Z, applied in the given order
// (kXYZ: first about X, then Y, then Z, all about fixed axes).
class OZ_API ZEulerRotation {
public:
    enum RotationOrder { kXYZ = 0, kYZX, kZXY, kXZY, kYXZ, kZYX };

    double x = 0.0, y = 0.0, z = 0.0;
    RotationOrder order = kXYZ;

    ZEulerRotation() = default;
    ZEulerRotation(double x, double y, double z, RotationOrder order = kXYZ)
        : x(x)
        , y(y)
        , z(z)
        , order(order) {}
    explicit ZEulerRotation(const ZVector& angles, RotationOrder order = kXYZ)
        : x(angles.x)
        , y(angles.y)
        , z(angles.z)
        , order(order) {}

    ZMatrix asMatrix() const;
    ZQuaternion asQuaternion() const;
    ZVector asVector() const { return {x, y, z}; }
    ZEulerRotation inverse() const;
    ZEulerRotation& reorder(RotationOrder newOrder);
    bool isEquivalent(const ZEulerRotation& other, double tolerance = 1e-10) const;

    static ZEulerRotation decompose(const ZMatrix& matrix, RotationOrder order);
};
