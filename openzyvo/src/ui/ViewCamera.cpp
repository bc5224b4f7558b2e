#include "ui/ViewCamera.h"

#include "core/CameraBasis.h"

#include <cmath>
#include <numbers>

namespace oz::ui {

namespace {

struct Frame {
    ZVector right, up, forward;
    double halfWidth = 0.0; // at unit distance (perspective) or in units (orthographic)
    double halfHeight = 0.0;
};

Frame frameOf(const ViewCamera& camera) {
    Frame frame;
    const CameraBasis basis = cameraBasis(camera.position - camera.aim);
    frame.forward = -basis.back;
    frame.right = basis.right;
    frame.up = basis.up;
    const double aspect = static_cast<double>(camera.height) / static_cast<double>(camera.width);
    frame.halfWidth = camera.orthographic ? camera.orthographicWidth / 2.0
                                          : std::tan(camera.horizontalFieldOfView * std::numbers::pi / 360.0);
    frame.halfHeight = frame.halfWidth * aspect;
    return frame;
}

} // namespace

bool isUsable(const ViewCamera& camera) {
    const double across = camera.orthographic ? camera.orthographicWidth : camera.horizontalFieldOfView;
    return (camera.aim - camera.position).length() > 1e-12 && camera.width > 0 && camera.height > 0 &&
           std::isfinite(across) && across > 0.0 && (camera.orthographic || across < 180.0);
}

ViewRay rayThrough(const ViewCamera& camera, double x, double y) {
    const Frame frame = frameOf(camera);
    // Pixel centres: pixel 0 spans [0, 1).
    const double u = (2.0 * (x + 0.5) / camera.width - 1.0) * frame.halfWidth;
    const double v = (2.0 * (y + 0.5) / camera.height - 1.0) * frame.halfHeight;
    if (camera.orthographic)
        return {camera.position + frame.right * u + frame.up * v, frame.forward};
    const ZVector direction = (frame.forward + frame.right * u + frame.up * v).normal();
    return {camera.position + direction * (camera.nearClip / (direction * frame.forward)), direction};
}

std::optional<ZPoint> project(const ViewCamera& camera, const ZPoint& point) {
    const Frame frame = frameOf(camera);
    const ZVector offset = point - camera.position;
    const double depth = offset * frame.forward;
    double u = offset * frame.right;
    double v = offset * frame.up;
    if (!camera.orthographic) {
        if (depth <= 0.0)
            return std::nullopt;
        u /= depth;
        v /= depth;
    }
    const double x = (u / frame.halfWidth + 1.0) * camera.width / 2.0 - 0.5;
    const double y = (v / frame.halfHeight + 1.0) * camera.height / 2.0 - 0.5;
    return ZPoint(x, y, depth);
}

} // namespace oz::ui
