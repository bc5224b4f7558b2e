#pragma once

#include "mesh/PlanarFace.h"

namespace oz::mesh {

// True when the face's loops are what the planar triangulator may cut: every loop simple (no
// repeated point, no zero-length edge, no edge doubling back, no two edges touching except
// neighbours at their shared point), no two loops touching, the outer loop counter-clockwise, and
// every hole inside the outer loop and outside every other hole. All decisions are exact.
bool loopsWellFormed(const PlanarFace& face);

} // namespace oz::mesh
