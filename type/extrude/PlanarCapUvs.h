#pragma once

#include "extrude/SolidAssembly.h"
#include "extrude/UvAtlas.h"

#include <vector>

namespace type {

// Gives every cap one planar projection instead of a cell of the atlas: the
// plane of the faces, scaled so that the caps together fill the unit square
// (their longer side spans it), so that one image runs across the whole
// text. A back cap is seen from behind, so its u runs the other way. The
// sides keep their atlas uvs.
void planarCapUvs(const std::vector<SolidFace>& faces, const SolidTopology& topology, SolidUvs& uvs);

} // namespace type
