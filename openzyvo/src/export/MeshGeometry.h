#pragma once

#include "export/ExportMesh.h"

#include <cstddef>

namespace oz::exporter {

// Unit normal of a triangle from its winding; the zero vector when the triangle is degenerate.
Float3 facetNormal(const ExportMesh& mesh, std::size_t triangle);

// The unit normal a writer emits for one corner: the mesh's own normal when it has a direction, else the
// facet normal, else +Z (formats and shaders need some unit vector).
Float3 cornerNormal(const ExportMesh& mesh, std::size_t triangle, int corner);

// Axis-aligned bounds of the vertices the triangles use.
struct Bounds {
    Float3 min{0.0f, 0.0f, 0.0f};
    Float3 max{0.0f, 0.0f, 0.0f};
    bool empty = true;

    void add(const Float3& p);
    void merge(const Bounds& other);
    Float3 center() const;
};

Bounds triangleBounds(const ExportMesh& mesh);

} // namespace oz::exporter
