#pragma once

#include <array>
#include <cstdint>

namespace oz::mesh {

// Three vertex ids, wound like the face they come from.
using Triangle = std::array<int32_t, 3>;

} // namespace oz::mesh
