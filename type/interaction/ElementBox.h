#pragma once

#include "shells/ShellGrouping.h"

#include <OpenZyvo/ZPoint.h>
#include <OpenZyvo/ZVector.h>
#include <cstddef>
#include <optional>
#include <span>

namespace type {

// The character boxes of a type node: characterBoundingBoxesMin and -Max.
struct CharacterBoxes {
    std::span<const ZVector> minima;
    std::span<const ZVector> maxima;
};

struct ElementBox {
    ZPoint minimum;
    ZPoint maximum;
    ZPoint centre() const;
};

// The box around the characters element `element` of `mode` holds, in the
// text's own space; nothing when it holds none that has a box.
std::optional<ElementBox> elementBox(const CharacterBoxes& boxes, const ShellGrouping& grouping,
                                     ManipulatorMode mode, std::size_t element);

} // namespace type
