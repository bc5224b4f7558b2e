#include "export/PreviewCamera.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace oz::exporter {
namespace {

// Clip-space coordinates of a point through the camera's view and projection matrices.
std::array<float, 4> project(const PreviewCamera& camera, const Float3& p) {
    const auto transform = [](const std::array<float, 16>& m, const std::array<float, 4>& v) {
        std::array<float, 4> r{};
        for (int row = 0; row < 4; ++row)
            for (int col = 0; col < 4; ++col)
                r[row] += m[col * 4 + row] * v[col];
        return r;
    };
    return transform(camera.projectionMatrix(), transform(camera.viewMatrix(), {p[0], p[1], p[2], 1.0f}));
}

TEST(PreviewCamera, FramesEveryCornerTightlyFromAnyDirectionAndAspect) {
    Bounds bounds;
    bounds.add({-3.0f, 1.0f, -0.5f});
    bounds.add({9.0f, 2.5f, 0.5f}); // wide, short and thin, like a line of extruded text
    for (const Float3& direction : {Float3{0, 0, 1}, Float3{0.64f, 0.5f, 0.77f}, Float3{-1, -0.2f, 0.1f}})
        for (float aspect : {0.5f, 1.0f, 2.0f}) {
            const PreviewCamera camera = frameBounds(bounds, direction, aspect);
            float widest = 0.0f;
            for (int i = 0; i < 8; ++i) {
                const Float3 corner{(i & 1) ? bounds.max[0] : bounds.min[0],
                                    (i & 2) ? bounds.max[1] : bounds.min[1],
                                    (i & 4) ? bounds.max[2] : bounds.min[2]};
                const auto clip = project(camera, corner);
                ASSERT_GT(clip[3], 0.0f) << "corner behind the camera";
                for (int axis = 0; axis < 3; ++axis)
                    EXPECT_LE(std::abs(clip[axis] / clip[3]), 1.0f + 1e-5f) << "corner " << i << " clipped";
                widest = std::max({widest, std::abs(clip[0] / clip[3]), std::abs(clip[1] / clip[3])});
            }
            EXPECT_NEAR(widest, 0.9f, 1e-3f) << "the bounds should just fill the margin";
        }
}

TEST(PreviewCamera, PointBoundsStillGiveAUsableCamera) {
    Bounds point;
    point.add({1.0f, 2.0f, 3.0f});
    const PreviewCamera camera = frameBounds(point, {0, 0, 1}, 1.0f);
    const auto clip = project(camera, point.min);
    EXPECT_GT(clip[3], 0.0f);
    EXPECT_NEAR(clip[0], 0.0f, 1e-5f);
    EXPECT_LT(camera.nearPlane, camera.farPlane);
}

} // namespace
} // namespace oz::exporter
