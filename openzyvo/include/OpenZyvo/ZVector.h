#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <cmath>

class ZMatrix;
class ZFloatVector;
class ZPoint;

// A 3-D direction in double precision. Vectors are row vectors: v * M.
class OZ_API ZVector {
public:
    double x = 0.0, y = 0.0, z = 0.0;

    ZVector() = default;
    ZVector(double x, double y, double z = 0.0)
        : x(x)
        , y(y)
        , z(z) {}
    explicit ZVector(const double d[3])
        : x(d[0])
        , y(d[1])
        , z(d[2]) {}
    ZVector(const ZFloatVector& v);
    explicit ZVector(const ZPoint& p);

    double operator[](unsigned int i) const { return i == 0 ? x : (i == 1 ? y : z); }
    double& operator[](unsigned int i) { return i == 0 ? x : (i == 1 ? y : z); }

    ZVector operator+(const ZVector& o) const { return {x + o.x, y + o.y, z + o.z}; }
    ZVector operator-(const ZVector& o) const { return {x - o.x, y - o.y, z - o.z}; }
    ZVector operator-() const { return {-x, -y, -z}; }
    ZVector operator*(double s) const { return {x * s, y * s, z * s}; }
    ZVector operator/(double s) const { return {x / s, y / s, z / s}; }
    friend ZVector operator*(double s, const ZVector& v) { return v * s; }
    ZVector& operator+=(const ZVector& o) { return *this = *this + o; }
    ZVector& operator-=(const ZVector& o) { return *this = *this - o; }
    ZVector& operator*=(double s) { return *this = *this * s; }
    ZVector& operator/=(double s) { return *this = *this / s; }

    // Dot product.
    double operator*(const ZVector& o) const { return x * o.x + y * o.y + z * o.z; }
    // Cross product.
    ZVector operator^(const ZVector& o) const {
        return {y * o.z - z * o.y, z * o.x - x * o.z, x * o.y - y * o.x};
    }
    // Transforms the direction by the matrix (translation ignored).
    ZVector operator*(const ZMatrix& m) const;
    ZVector& operator*=(const ZMatrix& m) { return *this = *this * m; }

    double length() const { return std::sqrt(x * x + y * y + z * z); }
    ZVector normal() const {
        const double l = length();
        return l > 0.0 ? *this / l : *this;
    }
    ZVector& normalize() { return *this = normal(); }
    double angle(const ZVector& o) const;
    bool isEquivalent(const ZVector& o, double tolerance = 1e-10) const {
        return std::abs(x - o.x) <= tolerance && std::abs(y - o.y) <= tolerance &&
               std::abs(z - o.z) <= tolerance;
    }

    friend bool operator==(const ZVector&, const ZVector&) = default;

    static const ZVector zero, one, xAxis, yAxis, zAxis;
};
