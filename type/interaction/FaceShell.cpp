#include "interaction/FaceShell.h"

#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZIntArray.h>
#include <algorithm>
#include <numeric>
#include <vector>

namespace type {

namespace {

int rootOf(std::vector<int>& parent, int vertex) {
    while (parent[vertex] != vertex)
        vertex = parent[vertex] = parent[parent[vertex]];
    return vertex;
}

} // namespace

// The pieces are joined through whole faces, holes included: a letter's cap
// holds its counters, which no edge joins to its outline.
std::optional<std::size_t> shellOfFace(const ZObject& mesh, int face) {
    ZStatus status;
    const ZFnMesh fn(mesh, &status);
    if (!status || face < 0 || face >= fn.numPolygons())
        return std::nullopt;
    ZIntArray counts, ids;
    if (!fn.getVertices(counts, ids))
        return std::nullopt;
    const int vertexCount = fn.numVertices();
    std::vector<int> parent(static_cast<std::size_t>(vertexCount));
    std::iota(parent.begin(), parent.end(), 0);
    std::size_t next = 0;
    int picked = -1;
    for (int f = 0; f < static_cast<int>(counts.length()); ++f) {
        const std::size_t end = next + static_cast<std::size_t>(counts[f]);
        for (std::size_t i = next; i < end; ++i) {
            const int a = rootOf(parent, ids[static_cast<unsigned int>(next)]);
            const int b = rootOf(parent, ids[static_cast<unsigned int>(i)]);
            // The lower vertex stays the root, so each piece is named by its lowest vertex.
            parent[std::max(a, b)] = std::min(a, b);
        }
        if (f == face && end > next)
            picked = ids[static_cast<unsigned int>(next)];
        next = end;
    }
    if (picked < 0)
        return std::nullopt;
    const int root = rootOf(parent, picked);
    std::size_t shell = 0;
    for (int vertex = 0; vertex < root; ++vertex)
        if (rootOf(parent, vertex) == vertex)
            ++shell;
    return shell;
}

} // namespace type
