#pragma once

#include "mesh/FaceLoops.h"
#include "mesh/Vec3.h"

#include <cstdint>
#include <span>
#include <vector>

namespace oz::mesh {

// Newell's normal of a closed loop: robust for concave and slightly non-planar loops. Its length
// is twice the loop's area; it is zero for a degenerate loop.
Vector3 newellNormal(std::span<const Point3> points, std::span<const int32_t> loop);

// Unit normal of a face from its outer loop (its holes do not tilt the plane), or zero when the
// outer loop encloses no area.
Vector3 faceNormal(const FaceLoops& faces, std::span<const Point3> points, int32_t face);

// Per-vertex normals weighted by the angle each face makes at the vertex. Angle weighting makes a
// normal independent of how finely the surrounding faces are cut: the many thin wall quads of an
// extrusion do not outvote one large cap face, as they would under area or plain averaging.
// Vertices no face uses, or whose faces cancel out, get the zero vector.
std::vector<Vector3> angleWeightedVertexNormals(const FaceLoops& faces, std::span<const Point3> points);

// The same normal for a single vertex, given the faces that use it.
Vector3 angleWeightedVertexNormal(const FaceLoops& faces, std::span<const Point3> points, int32_t vertex,
                                  std::span<const int32_t> vertexFaces);

} // namespace oz::mesh
