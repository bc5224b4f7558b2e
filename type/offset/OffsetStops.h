#pragma once

#include "offset/Mitres.h"

#include <vector>

namespace type {

// How far each outline point may travel along its mitre before the inward
// outline would meet itself: one travel per point, infinite for none.
//
// The outline is advanced as one wavefront in steps of `step` (a distance);
// a step in which two edges' swept areas would touch, an edge would turn
// round, or a corner would fold flat is retried at half the step, down to an
// eighth, and then the points of the edges involved stop where they are. So
// the outline at every distance stays a simple polygon whose points never
// pass each other: it narrows onto the middle of a stroke instead of crossing
// over. Points the wavefront cannot move (a degenerate loop, a point without a
// mitre) stop at once. Travel is measured like the mitre's: distance / sine.
std::vector<double> stopTravels(const FaceOutline& outline, const std::vector<Mitre>& mitres, double step,
                                double maxDistance);

} // namespace type
