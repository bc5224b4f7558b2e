#include "export/PreviewCamera.h"

#include "core/CameraBasis.h"
#include "export/VectorMath.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace oz::exporter {
namespace {

constexpr float kVerticalFieldOfView = 0.5235988f; // 30 degrees
constexpr float kFill = 0.9f;                      // share of the viewport the framed bounds may cover

Float3 float3(const ZVector& v) {
    return {static_cast<float>(v.x), static_cast<float>(v.y), static_cast<float>(v.z)};
}

std::array<Float3, 8> corners(const Bounds& b) {
    std::array<Float3, 8> result;
    for (int i = 0; i < 8; ++i)
        result[static_cast<std::size_t>(i)] = {(i & 1) ? b.max[0] : b.min[0], (i & 2) ? b.max[1] : b.min[1],
                                               (i & 4) ? b.max[2] : b.min[2]};
    return result;
}

} // namespace

PreviewCamera frameBounds(const Bounds& bounds, const Float3& towardEye, float aspect) {
    PreviewCamera camera;
    const CameraBasis basis = cameraBasis(ZVector(towardEye[0], towardEye[1], towardEye[2]));
    camera.back = float3(basis.back);
    camera.right = float3(basis.right);
    camera.up = float3(basis.up);
    camera.tanHalfHeight = std::tan(kVerticalFieldOfView / 2.0f);
    camera.tanHalfWidth = camera.tanHalfHeight * aspect;

    // A corner at (x, y, z) in camera axes around the centre fits when |x| <= (d - z) * tan * fill, where d
    // is the eye's distance from the centre; take the smallest d that satisfies every corner.
    const Float3 center = bounds.center();
    float distance = 0.0f;
    float nearestZ = -std::numeric_limits<float>::max();
    float farthestZ = std::numeric_limits<float>::max();
    for (const Float3& corner : corners(bounds)) {
        const Float3 offset = corner - center;
        const float z = dot(offset, camera.back);
        distance =
            std::max({distance, z + std::abs(dot(offset, camera.right)) / (camera.tanHalfWidth * kFill),
                      z + std::abs(dot(offset, camera.up)) / (camera.tanHalfHeight * kFill)});
        nearestZ = std::max(nearestZ, z);
        farthestZ = std::min(farthestZ, z);
    }
    if (distance <= 0.0f) // bounds of a single point: any distance sees it
        distance = 1.0f;
    camera.eye = center + camera.back * distance;
    camera.nearPlane = std::max((distance - nearestZ) * 0.5f, distance * 1e-4f);
    camera.farPlane = (distance - farthestZ) * 1.5f;
    return camera;
}

std::array<float, 16> PreviewCamera::viewMatrix() const {
    return {right[0], up[0], back[0], 0.0f, right[1],         up[1],         back[1],         0.0f,
            right[2], up[2], back[2], 0.0f, -dot(right, eye), -dot(up, eye), -dot(back, eye), 1.0f};
}

std::array<float, 16> PreviewCamera::projectionMatrix() const {
    const float n = nearPlane;
    const float f = farPlane;
    return {1.0f / tanHalfWidth,
            0.0f,
            0.0f,
            0.0f,
            0.0f,
            1.0f / tanHalfHeight,
            0.0f,
            0.0f,
            0.0f,
            0.0f,
            -(f + n) / (f - n),
            -1.0f,
            0.0f,
            0.0f,
            -2.0f * f * n / (f - n),
            0.0f};
}

} // namespace oz::exporter
