#pragma once

#include "extrude/ExtrudeSettings.h"
#include "offset/DistanceFieldOffset.h"
#include "offset/FaceOutline.h"
#include "offset/Mitres.h"

#include <vector>

namespace type {

// The cached offset data of one face: its mitres, and its distance field
// when the "Distance Field" mode has needed one.
struct FaceOffsetData {
    const FaceOutline& outline;
    const std::vector<Mitre>& mitres;
    const DistanceFieldOffset* field = nullptr;
};

// One ring's outline of a face. Inward offsets go through the distance field
// in its mode; outward ones (negative) always move along the mitres, as
// nothing can fold there. The outer bevel's inward rings ask the field for
// twice the distance, which is how its profile was tuned.
void offsetRing(const FaceOffsetData& face, OffsetMode mode, InternalBevel style, double offset,
                std::vector<Point2>& out);

// The distance fields of every face on a grid of `gridSize` cells a side
// (brought into range by the field itself), built face by face in parallel.
std::vector<DistanceFieldOffset> distanceFields(const std::vector<const FaceOutline*>& outlines,
                                                const std::vector<std::vector<Mitre>>& mitres, int gridSize);

} // namespace type
