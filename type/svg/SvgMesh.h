#pragma once

#include "svg/SvgCaps.h"

#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>
#include <cstdint>
#include <vector>

namespace type {

struct SvgMeshRecord {
    std::vector<double> vertexTotals; // running total after each shape
    std::vector<std::int32_t> holeInfo;
};

// Builds the flat artwork mesh into new mesh data, shape by shape through the
// same face builder as text, then lifts each shape's vertices to its depth
// and, with `vertexColours`, paints them in the shape's fill. Failing host
// calls are reported in the shared style and their status returned.
ZStatus svgToMesh(const std::vector<SvgShapeCap>& caps, bool vertexColours, ZObject& meshData,
                  SvgMeshRecord& record);

} // namespace type
