#pragma once

#include "mesh/UninitialisedAllocator.h"
#include "mesh/Vec3.h"

#include <vector>

namespace oz::mesh {

// A mesh's points.
using PointArray = std::vector<Point3, UninitialisedAllocator<Point3>>;

} // namespace oz::mesh
