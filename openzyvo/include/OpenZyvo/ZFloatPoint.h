#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <cmath>

class ZPoint;

// A homogeneous 3-D position in single precision.
class OZ_API ZFloatPoint {
public:
    float x = 0.0f, y = 0.0f, z = 0.0f, w = 1.0f;

    ZFloatPoint() = default;
    ZFloatPoint(float x, float y, float z = 0.0f, float w = 1.0f)
        : x(x)
        , y(y)
        , z(z)
        , w(w) {}
    ZFloatPoint(const ZPoint& p);

    float operator[](unsigned int i) const { return i == 0 ? x : (i == 1 ? y : (i == 2 ? z : w)); }
    float& operator[](unsigned int i) { return i == 0 ? x : (i == 1 ? y : (i == 2 ? z : w)); }
    float distanceTo(const ZFloatPoint& o) const {
        return std::sqrt((x - o.x) * (x - o.x) + (y - o.y) * (y - o.y) + (z - o.z) * (z - o.z));
    }
    bool isEquivalent(const ZFloatPoint& o, float tolerance = 1e-5f) const {
        return std::abs(x - o.x) <= tolerance && std::abs(y - o.y) <= tolerance &&
               std::abs(z - o.z) <= tolerance;
    }

    friend bool operator==(const ZFloatPoint&, const ZFloatPoint&) = default;
};
