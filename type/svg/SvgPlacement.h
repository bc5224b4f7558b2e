#pragma once

#include "svg/SvgArtwork.h"

#include <cmath>

namespace type {

// How artwork lands in the scene: x' = scale x, y' = -scale y + |scale height|.
// The artwork's downward y axis is flipped and its top comes to y = scale
// height, whatever size the document declares.
struct SvgPlacement {
    double scale = 0.0;
    double height = 0.0;

    Point2 apply(Point2 p) const { return {scale * p.x, -scale * p.y + std::abs(scale * height)}; }
};

// Scales the artwork to `size` units high: its outlines' overall height, or
// with `useArtboard` the viewBox height when the document gives one above
// zero. Artwork without a usable height gets scale 0 and so no area.
SvgPlacement placeArtwork(const SvgArtwork& artwork, double size, bool useArtboard);

} // namespace type
