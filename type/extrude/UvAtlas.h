#pragma once

#include "extrude/SolidAssembly.h"

#include <vector>

namespace type {

// The uvs of "map1": one tile across the unit square per input face, cut
// into bands. With caps, the square has three bands of height 1/3: the caps
// (front and back cap of a face share its cell, the back one mirrored), the
// walls and the bevels; without caps, two rows, walls and bevels. A side
// runs along the face's loops across its tile and along the profile up its
// band, each loop with a seam of its own.
struct SolidUvs {
    std::vector<float> u;
    std::vector<float> v;
    std::vector<int> faceUvCounts; // per face of the solid, holes included
    std::vector<int> uvIds;        // per face-vertex: outer loop, then each hole
};

// Faces of one shape have the same uvs but for their tile: each shape's are
// worked out once.
SolidUvs solidUvs(const std::vector<SolidFace>& faces, const FaceShapes& shapes, const Profile& profile,
                  const SolidTopology& topology, bool deleteCaps);

} // namespace type
