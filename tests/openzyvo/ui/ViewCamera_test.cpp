#include "ui/ViewCamera.h"

#include <gtest/gtest.h>

namespace oz::ui {
namespace {

void expectNear(const ZVector& actual, const ZVector& expected, double tolerance = 1e-9) {
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
    EXPECT_NEAR(actual.z, expected.z, tolerance);
}

ViewCamera camera(bool orthographic) {
    ViewCamera view;
    view.position = ZPoint(3, 4, 20);
    view.aim = ZPoint(3, 4, 0);
    view.orthographic = orthographic;
    view.horizontalFieldOfView = 90.0;
    view.orthographicWidth = 8.0;
    view.width = 200;
    view.height = 100;
    return view;
}

TEST(ViewCamera, PerspectiveRaysFanOutFromTheEyeThroughTheirPixels) {
    const ViewCamera view = camera(false);
    // The middle of the port looks straight at the aim point.
    const ViewRay middle = rayThrough(view, 99.5, 49.5);
    expectNear(middle.direction, ZVector(0, 0, -1));
    expectNear(middle.source - view.position, ZVector(0, 0, -view.nearClip));

    // A 90-degree view: the right edge of the port is 45 degrees off, the top
    // edge half as far up (the port is twice as wide as high).
    const ViewRay right = rayThrough(view, 199.5, 49.5);
    expectNear(right.direction, ZVector(1, 0, -1).normal());
    const ViewRay top = rayThrough(view, 99.5, 99.5);
    expectNear(top.direction, ZVector(0, 0.5, -1).normal());
}

TEST(ViewCamera, OrthographicRaysAreParallelAndSpreadAcrossTheWidth) {
    const ViewCamera view = camera(true);
    const ViewRay left = rayThrough(view, -0.5, 49.5);
    const ViewRay upperRight = rayThrough(view, 199.5, 99.5);
    expectNear(left.direction, ZVector(0, 0, -1));
    expectNear(upperRight.direction, ZVector(0, 0, -1));
    expectNear(left.source - view.position, ZVector(-4, 0, 0));
    expectNear(upperRight.source - view.position, ZVector(4, 2, 0));
}

TEST(ViewCamera, ProjectingAPointOnAPixelsRayGivesThatPixel) {
    for (const bool orthographic : {false, true}) {
        ViewCamera view = camera(orthographic);
        view.position = ZPoint(-7, 12, 5);
        view.aim = ZPoint(1, -2, -3);
        const ViewRay ray = rayThrough(view, 37, 81);
        const std::optional<ZPoint> pixel = project(view, ray.source + ray.direction * 15.0);
        ASSERT_TRUE(pixel.has_value());
        EXPECT_NEAR(pixel->x, 37, 1e-6) << (orthographic ? "orthographic" : "perspective");
        EXPECT_NEAR(pixel->y, 81, 1e-6);
    }
    EXPECT_FALSE(project(camera(false), ZPoint(3, 4, 40)).has_value()) << "behind the camera";
}

TEST(ViewCamera, LookingStraightDownKeepsXToTheRight) {
    ViewCamera view = camera(true);
    view.position = ZPoint(0, 10, 0);
    view.aim = ZPoint(0, 0, 0);
    const ViewRay right = rayThrough(view, 199.5, 49.5);
    expectNear(right.direction, ZVector(0, -1, 0));
    expectNear(right.source - view.position, ZVector(4, 0, 0));
}

TEST(ViewCamera, DegenerateCamerasAreRefused) {
    EXPECT_TRUE(isUsable(camera(false)));
    ViewCamera view = camera(false);
    view.aim = view.position;
    EXPECT_FALSE(isUsable(view));
    view = camera(false);
    view.horizontalFieldOfView = 180.0;
    EXPECT_FALSE(isUsable(view));
    view = camera(true);
    view.orthographicWidth = 0.0;
    EXPECT_FALSE(isUsable(view));
    view = camera(false);
    view.width = 0;
    EXPECT_FALSE(isUsable(view));
}

} // namespace
} // namespace oz::ui
