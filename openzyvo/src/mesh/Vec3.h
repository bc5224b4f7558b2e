#pragma once

#include <cmath>

namespace oz::mesh {

struct Vec3 {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    friend constexpr Vec3 operator+(Vec3 a, Vec3 b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
    friend constexpr Vec3 operator-(Vec3 a, Vec3 b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
    friend constexpr Vec3 operator*(Vec3 a, double s) { return {a.x * s, a.y * s, a.z * s}; }
    friend constexpr Vec3 operator*(double s, Vec3 a) { return a * s; }
    constexpr Vec3& operator+=(Vec3 b) { return *this = *this + b; }
    friend constexpr bool operator==(Vec3 a, Vec3 b) = default;
};

// Points and directions share one representation; the names say which is meant.
using Point3 = Vec3;
using Vector3 = Vec3;

constexpr double dot(Vec3 a, Vec3 b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
constexpr Vec3 cross(Vec3 a, Vec3 b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double length(Vec3 a) {
    return std::sqrt(dot(a, a));
}
inline bool isFinite(Vec3 a) {
    return std::isfinite(a.x) && std::isfinite(a.y) && std::isfinite(a.z);
}

// The unit vector along a, or the zero vector when a has no usable length.
inline Vec3 normalized(Vec3 a) {
    const double len = length(a);
    return len > 0.0 && std::isfinite(len) ? a * (1.0 / len) : Vec3{};
}

} // namespace oz::mesh
