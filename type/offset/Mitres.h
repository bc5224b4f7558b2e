#pragma once

#include "offset/FaceOutline.h"

#include <vector>

namespace type {

// Where one outline point goes when the outline is offset: `direction` is the
// unit bisector pointing into the face's material, and an offset by distance d
// moves the point d / sine along it, so that both of its edges end up d away
// from where they were (the mitre).
struct Mitre {
    Point2 direction;
    double sine = 1.0;
};

// The smallest sine a mitre keeps. A spike so sharp that its mitre would run
// further than 1 / kMinMitreSine times the offset is cut short there, so a
// hairline spike in a font cannot throw a point across the whole text.
inline constexpr double kMinMitreSine = 0.05;

// One mitre per point of the outline. Each loop's own winding decides which
// side is material: inside the outer loop, outside each hole. Repeated points
// take the mitre of their neighbours' corner.
std::vector<Mitre> mitres(const FaceOutline& outline);

} // namespace type
