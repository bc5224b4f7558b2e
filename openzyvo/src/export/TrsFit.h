#pragma once

#include "export/ExportMesh.h"

#include <array>
#include <optional>
#include <span>

namespace oz::exporter {

using Double3 = std::array<double, 3>;

// A glTF node transformation: p' = translation + rotation * (scale * p), the
// rotation a unit quaternion (x, y, z, w).
struct Trs {
    Double3 translation{0.0, 0.0, 0.0};
    std::array<double, 4> rotation{0.0, 0.0, 0.0, 1.0};
    Double3 scale{1.0, 1.0, 1.0};
};

Double3 applyTrs(const Trs& trs, const Double3& p);

struct TrsFit {
    std::optional<Trs> trs; // none when no such transformation moves `rest` onto `moved`
    double largestError = 0.0;
};

// The translation, rotation and per-axis scale that move the points `rest`
// onto `moved` (the same count, matched by index): a least-squares fit of the
// linear part, split into rotation and scale, and then checked point by
// point. A fit that leaves any point further than `tolerance` from where it
// should be is refused, as is a piece too thin to tell its turn (fewer than
// two independent directions).
TrsFit fitTrs(std::span<const Float3> rest, std::span<const Float3> moved, double tolerance);

} // namespace oz::exporter
