#include "mesh/MeshShells.h"

#include "mesh/Mesh.h"

#include <numeric>
#include <vector>

namespace oz::mesh {

namespace {

int32_t findRoot(std::vector<int32_t>& parent, int32_t v) {
    while (parent[v] != v) {
        parent[v] = parent[parent[v]];
        v = parent[v];
    }
    return v;
}

} // namespace

int countShells(const Mesh& mesh) {
    std::vector<int32_t> parent(static_cast<std::size_t>(mesh.vertexCount()));
    std::iota(parent.begin(), parent.end(), 0);
    std::vector<bool> used(parent.size(), false);
    for (int32_t f = 0; f < mesh.faceCount(); ++f) {
        const auto ids = mesh.faceVertices(f);
        for (const int32_t id : ids) {
            used[id] = true;
            const int32_t a = findRoot(parent, ids.front()), b = findRoot(parent, id);
            if (a != b)
                parent[b] = a;
        }
    }
    int shells = 0;
    for (int32_t v = 0; v < mesh.vertexCount(); ++v)
        shells += used[v] && findRoot(parent, v) == v ? 1 : 0;
    return shells;
}

} // namespace oz::mesh
