#pragma once

#include "geometry/CapFacePlan.h"
#include "svg/SvgArtwork.h"

#include <optional>
#include <string>
#include <vector>

namespace type {

struct SvgCapSettings {
    double size = 10.0;
    bool useArtboard = false;
    double zOffset = 0.001;
    ThinningSettings thinning;
    // In the artwork's final size: the node scales the attribute's value with it.
    std::optional<EdgeSubdivisionSettings> subdivision;
};

// The flat cap of one shape, placed in the scene.
struct SvgShapeCap {
    CapFacePlan plan;
    double z = 0.0;
    std::optional<Colour> fill;
    std::string name;
    // A hole reaches out of the face it was cut into: nesting attaches a
    // hole by its first point, so the mesh cannot show it as drawn.
    bool holeOverlapsFace = false;
};

// Places every shape of the artwork (one `zOffset` further forward per shape,
// so overlapping artwork does not fight for depth) and sorts its outlines
// into faces and holes. Shapes left without a face are left out; the others
// keep their depth. A shape without an id is named after its element and
// its place in the document ("rect3").
std::vector<SvgShapeCap> planShapeCaps(const SvgArtwork& artwork, const SvgCapSettings& settings);

} // namespace type
