#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace oz::exporter {

using Float2 = std::array<float, 2>;
using Float3 = std::array<float, 3>;
using Float4 = std::array<float, 4>;
using Triangle = std::array<std::uint32_t, 3>;

inline constexpr std::size_t kNoMaterial = std::numeric_limits<std::size_t>::max();

// The triangles of one mesh bound to one material (one shading engine).
struct ExportPrimitive {
    std::size_t material = kNoMaterial;   // index into ExportScene::materials; kNoMaterial = default grey
    std::vector<std::uint32_t> triangles; // indices into ExportMesh::triangles
};

// Vertices that move as one piece (a character of a text), by name.
struct ExportVertexGroup {
    std::string name;
    std::vector<std::uint32_t> vertices;
};

// One evaluated mesh, already triangulated and in world space.
struct ExportMesh {
    std::string name;
    std::vector<Float3> positions;   // one per vertex
    std::vector<Triangle> triangles; // vertex indices, counter-clockwise seen from the front
    std::vector<Float3> normals;     // one per triangle corner (3 per triangle); empty: facet normals
    std::vector<Float2> uvs;         // "map1", one per triangle corner; empty: no UVs
    std::vector<Float4> colors;      // linear RGBA, one per vertex; empty: no vertex colours
    // A triangle listed in no primitive is written with the default material, so none is ever dropped.
    std::vector<ExportPrimitive> primitives;
    // The mesh's vertex groups, for writers that move pieces one by one; empty: it moves as a whole.
    std::vector<ExportVertexGroup> vertexGroups;
};

} // namespace oz::exporter
