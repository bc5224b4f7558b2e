#pragma once

#include <cstdint>
#include <vector>

namespace oz::mesh {

// Every hole of a mesh in face order: `info` holds one triple per hole (face index, the hole's
// vertex count, the index of its first id in `vertices`), `vertices` the holes' vertex ids.
struct HoleList {
    std::vector<int32_t> info;
    std::vector<int32_t> vertices;
};

} // namespace oz::mesh
