#pragma once

#include <OpenZyvo/ZPoint.h>
#include <OpenZyvo/ZVector.h>
#include <optional>

namespace oz::ui {

// A camera looking from `position` at `aim`, with the world's Y axis up (see
// cameraBasis for a camera looking straight up or down), over a port of `width` x `height`
// pixels. Perspective cameras use the horizontal field of view; orthographic
// ones show `orthographicWidth` scene units across.
struct ViewCamera {
    ZPoint position{0.0, 0.0, 30.0};
    ZPoint aim{0.0, 0.0, 0.0};
    double horizontalFieldOfView = 54.43; // degrees
    bool orthographic = false;
    double orthographicWidth = 30.0;
    double nearClip = 0.1;
    int width = 640;
    int height = 480;
};

struct ViewRay {
    ZPoint source;
    ZVector direction; // unit length
};

// Whether the camera can form a view: distinct position and aim, a port of
// pixels, a field of view or width above zero.
bool isUsable(const ViewCamera& camera);

// The ray through the pixel coordinates (x, y), measured from the lower-left
// corner of the port; for a perspective camera it starts on the near plane.
ViewRay rayThrough(const ViewCamera& camera, double x, double y);

// The pixel coordinates where `point` lands; nothing when it lies behind the camera.
std::optional<ZPoint> project(const ViewCamera& camera, const ZPoint& point);

} // namespace oz::ui
