#pragma once

#include "deformers/FaceListTopology.h"

#include <vector>

namespace type {

// The pieces a per-character deformer moves, each rigidly: one vertex list and
// box per element (a character's vertex group, or a connected shell), and the
// box of the whole mesh.
struct Elements {
    Box3 textBounds;
    std::vector<Box3> bounds;
    std::vector<std::vector<int>> vertices;
};

// Walks the faces from the lowest one not yet reached. Each walk starts from
// the next of `groupLists` while any remain, else from that face's vertices,
// and grows to the whole connected shell, so that a character's group brings
// all its pieces along. False when a seed names no vertex of the mesh; the
// elements then hold what was found before.
bool discoverElements(FaceListTopology& mesh, const std::vector<std::vector<int>>& groupLists,
                      Elements& elements);

} // namespace type
