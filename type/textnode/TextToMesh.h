#pragma once

#include "layout/LayoutResult.h"

#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>

namespace type {

// Builds the flat text mesh of one layout into new mesh data, returned in
// `meshData`. Characters are added in text order and faces never share a
// vertex, so the layout's vertexTotals and holeInfo name this mesh's vertices
// and faces: character k owns vertices vertexTotals[k - 1] to
// vertexTotals[k] - 1.
//
// Shapes (text-layout path) become one face each, holes and all, exactly as
// given. Cap plans (pre-layout and legacy paths) replay their faces, then their
// holes, each reversed when the plan says so; a hole point that coincides with
// an earlier vertex is merged into it, which older scenes were built with.
//
// Every vertex of a line moves left by the line's alignment offset, and every
// normal is (0, 0, 1) so the cap faces +z whatever winding the font had.
//
// A failing host call is reported on standard error in the plug-in's shared
// style and its status returned; the mesh is then incomplete.
ZStatus textToMesh(const LayoutResult& layout, ZObject& meshData);

} // namespace type
