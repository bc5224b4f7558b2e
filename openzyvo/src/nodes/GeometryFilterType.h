#pragma once

#include <OpenZyvo/ZStatus.h>

namespace oz::nodes {

// The abstract type every node of the deformer kind derives from: it creates the attributes that
// ZPxGeometryFilter declares.
inline constexpr const char* kGeometryFilterTypeName = "geometryFilter";
inline constexpr unsigned int kGeometryFilterId = 0x47464c54u; // "GFLT"

ZStatus initializeGeometryFilter();

} // namespace oz::nodes
