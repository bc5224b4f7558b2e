#pragma once

#include "geometry/BoundingBox.h"
#include "geometry/ContourThinning.h"
#include "geometry/EdgeSubdivision.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace type {

// A hole and the face (index into CapFacePlan::faces) it is cut into.
struct PlannedHole {
    std::size_t face = 0;
    Contour points;
};

// The flat cap of one character as a mesh builder replays it: first every
// face in order, then every hole in order, each with exactly these points.
struct CapFacePlan {
    std::vector<Contour> faces;
    std::vector<BoundingBox> faceBounds; // one per face, of the thinned outline
    std::vector<PlannedHole> holes;      // in the order they are cut in
    BoundingBox bounds;                  // all faces together
    // Set when the character's first outer contour runs clockwise: every face
    // and hole is then added with its point order reversed.
    bool reversed = false;
};

// Sorts one character's contours into outer faces and holes by parity nesting
// and attaches each hole to every face whose box holds the hole's first point.
// A hole inside the boxes of two faces is cut into both; a hole in no box is
// dropped. Outer contours below 3 points and holes below 3 points are skipped.
// Points are thinned on the way; with `subdivision`, long edges are split
// after the attachment is decided.
CapFacePlan planCapFaces(std::vector<Contour> contours, const ThinningSettings& thinning,
                         const std::optional<EdgeSubdivisionSettings>& subdivision = std::nullopt);

} // namespace type
