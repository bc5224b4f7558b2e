#pragma once

#include "geometry/Contour.h"
#include "svg/PathTokens.h"

#include <optional>
#include <vector>

namespace type {

// Turns path commands into closed outlines, one per subpath, curves and arcs
// flattened at `resolution` points each. A subpath whose last point repeats
// its first loses the repeat. Nothing when a command holds the wrong count
// of numbers: the whole path is then unusable.
std::optional<std::vector<Contour>> interpretPath(const std::vector<PathCommand>& commands, int resolution);

} // namespace type
