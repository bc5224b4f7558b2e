#pragma once

#include "offset/FaceOutline.h"
#include "offset/Mitres.h"

#include <vector>

namespace type {

// The outline moved `distance` into the material (outwards when negative):
// every point travels along its mitre, distance / sine, so each edge ends up
// parallel to where it was. Nothing stops an edge from passing its
// neighbours, but every point keeps its place in the list.
void normalsOffset(const FaceOutline& outline, const std::vector<Mitre>& mitres, double distance,
                   std::vector<Point2>& out);

} // namespace type
