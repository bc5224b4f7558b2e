#pragma once

#include "offset/Mitres.h"

#include <cstdint>
#include <vector>

namespace type {

// The inward offsets of one face that never fold: each outline point runs
// along its mitre only until the outline would meet itself (see stopTravels),
// so a bevel wider than a stroke narrows onto the stroke's middle instead of
// crossing over, and every offset keeps the outline's point count and order.
//
// The face is measured on a gridSize x gridSize grid over its bounding square:
// one cell is the distance step in which the wavefront is advanced and the
// travel between two samples of each point's path. An offset then costs one
// table lookup and one interpolation per point.
class DistanceFieldOffset {
public:
    DistanceFieldOffset() = default;
    DistanceFieldOffset(const FaceOutline& outline, const std::vector<Mitre>& mitres, int gridSize);

    // The outline moved `distance` (>= 0) into the material: point j travels distance / mitres[j].sine
    // along its path, never past where the outline meets itself; same point count and order as the outline.
    void offset(double distance, std::vector<Point2>& out) const;

    // The travel between two samples of a point's path.
    double step() const { return step_; }

private:
    double step_ = 0.0;
    std::vector<double> inverseSines_;
    // Point j's samples at travel 0, step, 2 step, ... are samples_[firsts_[j]] up to samples_[firsts_[j +
    // 1]].
    std::vector<std::uint32_t> firsts_;
    std::vector<Point2> samples_;
};

} // namespace type
