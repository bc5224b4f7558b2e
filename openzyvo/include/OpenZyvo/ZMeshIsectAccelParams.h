#pragma once

// Acceleration settings for repeated ray queries on one mesh (ZFnMesh::closestIntersection).
// The runtime keeps per-face bounding boxes with every mesh and rebuilds them only after points
// move, so every query is accelerated already: any settings give the same hits at the same cost.
class ZMeshIsectAccelParams {};
