#pragma once

#include "export/ExportMesh.h"

#include <cmath>

namespace oz::exporter {

inline Float3 operator-(const Float3& a, const Float3& b) {
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}
inline Float3 operator+(const Float3& a, const Float3& b) {
    return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}
inline Float3 operator*(const Float3& a, float s) {
    return {a[0] * s, a[1] * s, a[2] * s};
}

inline float dot(const Float3& a, const Float3& b) {
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

inline Float3 cross(const Float3& a, const Float3& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

inline float length(const Float3& a) {
    return std::sqrt(dot(a, a));
}

// Returns `fallback` for vectors too short to have a direction.
inline Float3 normalized(const Float3& a, const Float3& fallback) {
    const float len = length(a);
    return len > 1e-20f && std::isfinite(len) ? a * (1.0f / len) : fallback;
}

} // namespace oz::exporter
