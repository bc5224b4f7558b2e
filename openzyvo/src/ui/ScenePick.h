#pragma once

#include "ui/ViewCamera.h"

#include <OpenZyvo/ZObject.h>

namespace oz::ui {

// The transform of the mesh shape the ray hits first (world space); null when
// it hits none.
ZObject pickTransform(const ViewRay& ray);

} // namespace oz::ui
