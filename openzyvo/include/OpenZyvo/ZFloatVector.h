#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <cmath>

class ZVector;

// A 3-D direction in single precision.
class OZ_API ZFloatVector {
public:
    float x = 0.0f, y = 0.0f, z = 0.0f;

    ZFloatVector() = default;
    ZFloatVector(float x, float y, float z = 0.0f)
        : x(x)
        , y(y)
        , z(z) {}
    ZFloatVector(const ZVector& v);

    float operator[](unsigned int i) const { return i == 0 ? x : (i == 1 ? y : z); }
    float& operator[](unsigned int i) { return i == 0 ? x : (i == 1 ? y : z); }

    ZFloatVector operator+(const ZFloatVector& o) const { return {x + o.x, y + o.y, z + o.z}; }
    ZFloatVector operator-(const ZFloatVector& o) const { return {x - o.x, y - o.y, z - o.z}; }
    ZFloatVector operator-() const { return {-x, -y, -z}; }
    ZFloatVector operator*(float s) const { return {x * s, y * s, z * s}; }
    float operator*(const ZFloatVector& o) const { return x * o.x + y * o.y + z * o.z; }
    ZFloatVector operator^(const ZFloatVector& o) const {
        return {y * o.z - z * o.y, z * o.x - x * o.z, x * o.y - y * o.x};
    }
    float length() const { return std::sqrt(x * x + y * y + z * z); }
    ZFloatVector normal() const {
        const float l = length();
        return l > 0.0f ? ZFloatVector(x / l, y / l, z / l) : *this;
    }
    ZFloatVector& normalize() { return *this = normal(); }
    bool isEquivalent(const ZFloatVector& o, float tolerance = 1e-5f) const {
        return std::abs(x - o.x) <= tolerance && std::abs(y - o.y) <= tolerance &&
               std::abs(z - o.z) <= tolerance;
    }

    friend bool operator==(const ZFloatVector&, const ZFloatVector&) = default;
};
