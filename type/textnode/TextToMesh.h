#pragma once

#include "layout/LayoutResult.h"

#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>

namespace type {

// Builds the flat text mesh of one layout into new mesh data, returned in
// `meshData`, and fills the layout's vertexTotals and holeInfo from the mesh as
// it was built. Characters are added in text order, so character k owns
// vertices vertexTotals[k - 1] to vertexTotals[k] - 1.
//
// Shapes (text-layout path) become one face each, holes and all, exactly as
// given. Cap plans (pre-layout and legacy paths) replay their faces, then their
// holes, each reversed when the plan says so; a hole point that coincides with
// an earlier vertex is merged into it, which older scenes were built with. A
// merged hole adds fewer vertices than it has points, and its loop may use
// vertices of an earlier face or character (two characters on one spot): the
// totals count only the vertices each character added, and its hole record
// gives the loop's length and first vertex as the mesh holds them.
//
// Every vertex of a line moves left by the line's alignment offset, and every
// normal is (0, 0, 1) so the cap faces +z whatever winding the font had.
//
// A failing host call is reported on standard error in the plug-in's shared
// style and its status returned; the mesh is then incomplete.
ZStatus textToMesh(LayoutResult& layout, ZObject& meshData);

} // namespace type
