#pragma once

#include "geometry/Contour.h"

#include <cstdint>
#include <vector>

namespace type {

// holeInfo is a flat list of triples, one per hole: the index of the face the
// hole is cut into, the hole's point count, and the index of the hole's first
// vertex in the mesh.

// Appends the triples of a shape added as one face that carries its outer
// points first and then each hole's points, starting at vertex
// `baseVertexCount`.
void appendHoleInfo(std::vector<std::int32_t>& holeInfo, const Shape& shape, std::int32_t faceIndex,
                    std::int32_t baseVertexCount);

} // namespace type
