#include "export/MeshGeometry.h"

#include "export/VectorMath.h"

#include <algorithm>

namespace oz::exporter {

Float3 facetNormal(const ExportMesh& mesh, std::size_t triangle) {
    const Triangle& t = mesh.triangles[triangle];
    const Float3& a = mesh.positions[t[0]];
    return normalized(cross(mesh.positions[t[1]] - a, mesh.positions[t[2]] - a), {0.0f, 0.0f, 0.0f});
}

Float3 cornerNormal(const ExportMesh& mesh, std::size_t triangle, int corner) {
    const Float3 facet = normalized(facetNormal(mesh, triangle), {0.0f, 0.0f, 1.0f});
    if (mesh.normals.empty())
        return facet;
    return normalized(mesh.normals[triangle * 3 + static_cast<std::size_t>(corner)], facet);
}

void Bounds::add(const Float3& p) {
    if (empty) {
        min = max = p;
        empty = false;
        return;
    }
    for (int i = 0; i < 3; ++i) {
        min[i] = std::min(min[i], p[i]);
        max[i] = std::max(max[i], p[i]);
    }
}

void Bounds::merge(const Bounds& other) {
    if (!other.empty) {
        add(other.min);
        add(other.max);
    }
}

Float3 Bounds::center() const {
    return (min + max) * 0.5f;
}

Bounds triangleBounds(const ExportMesh& mesh) {
    Bounds bounds;
    for (const Triangle& t : mesh.triangles)
        for (std::uint32_t v : t)
            bounds.add(mesh.positions[v]);
    return bounds;
}

} // namespace oz::exporter
