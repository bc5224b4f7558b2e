#pragma once

#include "geometry/Contour.h"
#include "svg/SvgColour.h"
#include "svg/SvgIssues.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace type {

// One filled element of the artwork ("path", "rect", "circle"...), its
// outlines closed, transformed and still in the artwork's own frame (y down).
struct SvgShape {
    std::string element;
    std::string id;
    std::vector<Contour> outlines;
    std::optional<Colour> fill; // none when the fill is not a colour the reader knows
};

struct SvgArtwork {
    std::vector<SvgShape> shapes;                 // in document order
    std::optional<std::array<double, 4>> viewBox; // of the first svg element that has four numbers
    SvgIssues issues;
};

} // namespace type
