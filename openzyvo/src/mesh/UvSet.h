#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace oz::mesh {

// A named set of texture coordinates and, per face-vertex, the id of the coordinate it uses.
struct UvSet {
    static constexpr int32_t kNoUv = -1;

    std::string name;
    std::vector<float> u;
    std::vector<float> v;
    std::vector<int32_t> faceVertexUvIds; // one per face-vertex of the mesh, kNoUv where unassigned

    friend bool operator==(const UvSet&, const UvSet&) = default;
};

} // namespace oz::mesh
