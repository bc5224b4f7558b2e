#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace oz::mesh {

// A named set of texture coordinates. Which coordinate each face-vertex uses is kept by the mesh
// beside its faces (Mesh::faceUvIds).
struct UvSet {
    static constexpr int32_t kNoUv = -1;

    std::string name;
    std::vector<float> u;
    std::vector<float> v;

    friend bool operator==(const UvSet&, const UvSet&) = default;
};

} // namespace oz::mesh
