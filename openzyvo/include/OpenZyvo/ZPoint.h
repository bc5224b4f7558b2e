#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZVector.h>

class ZFloatPoint;
class ZMatrix;

// A homogeneous 3-D position (w is 1 for ordinary points). Row vector: p * M.
class OZ_API ZPoint {
public:
    double x = 0.0, y = 0.0, z = 0.0, w = 1.0;

    ZPoint() = default;
    ZPoint(double x, double y, double z = 0.0, double w = 1.0)
        : x(x)
        , y(y)
        , z(z)
        , w(w) {}
    explicit ZPoint(const double d[4])
        : x(d[0])
        , y(d[1])
        , z(d[2])
        , w(d[3]) {}
    ZPoint(const ZVector& v)
        : x(v.x)
        , y(v.y)
        , z(v.z) {}
    ZPoint(const ZFloatPoint& p);

    double operator[](unsigned int i) const { return i == 0 ? x : (i == 1 ? y : (i == 2 ? z : w)); }
    double& operator[](unsigned int i) { return i == 0 ? x : (i == 1 ? y : (i == 2 ? z : w)); }

    ZVector operator-(const ZPoint& o) const { return {x - o.x, y - o.y, z - o.z}; }
    ZPoint operator+(const ZVector& v) const { return {x + v.x, y + v.y, z + v.z, w}; }
    ZPoint operator-(const ZVector& v) const { return {x - v.x, y - v.y, z - v.z, w}; }
    ZPoint& operator+=(const ZVector& v) { return *this = *this + v; }
    ZPoint& operator-=(const ZVector& v) { return *this = *this - v; }
    ZPoint operator*(double s) const { return {x * s, y * s, z * s, w}; }
    ZPoint operator/(double s) const { return {x / s, y / s, z / s, w}; }
    ZPoint operator*(const ZMatrix& m) const;
    ZPoint& operator*=(const ZMatrix& m) { return *this = *this * m; }

    double distanceTo(const ZPoint& o) const { return (*this - o).length(); }
    ZPoint& cartesianize();
    bool isEquivalent(const ZPoint& o, double tolerance = 1e-10) const {
        return std::abs(x - o.x) <= tolerance && std::abs(y - o.y) <= tolerance &&
               std::abs(z - o.z) <= tolerance && std::abs(w - o.w) <= tolerance;
    }

    friend bool operator==(const ZPoint&, const ZPoint&) = default;

    static const ZPoint origin;
};
