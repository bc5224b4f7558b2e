#pragma once

#include "extrude/SolidAssembly.h"

#include <vector>

namespace type {

// The faces that are translated copies of one another: the same frame, the same per-face profile
// changes and, point for point, the same outline about their anchors. A text repeats a few letters many times
// over, so each letter's offset directions, distance field and rings are worked out once, and every copy of
// it gets the very same points about its anchor.
struct FaceShapes {
    std::vector<int> shapeOf;   // per face
    std::vector<int> firstFace; // per shape, the first face of that shape
};

FaceShapes faceShapes(const std::vector<SolidFace>& faces);

} // namespace type
