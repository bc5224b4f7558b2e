#pragma once

#include "svg/SvgArtwork.h"

#include <QByteArray>
#include <cstddef>

namespace type {

struct SvgReadSettings {
    int curveResolution = 4; // points per curve or arc, 1 to 100
    // Older scenes kept unfilled and hidden shapes; nodes from them still do.
    bool legacy = false;
};

enum class SvgReadStatus {
    ok,
    parseError,     // the document is not well-formed XML
    pathCountError, // a path command holds the wrong count of numbers
    tooLarge,       // past the outline points or path text the reader takes
    tooDeep,        // elements nested past the depth the reader takes
};

// What one document may ask of the reader and the mesh after it. Art made
// by hand or exported from a drawing tool stays far below these; past them
// the host's meshing time grows faster than the drawing, and Qt's reader
// runs out of stack on nesting.
namespace svgLimits {
inline constexpr std::size_t kMaxPoints = 1'000'000;
inline constexpr int kMaxPathText = 8 << 20; // characters of one d or points attribute
// Contours times points of one shape: hole nesting tests every contour
// against every other.
inline constexpr double kMaxNestingWork = 2.0e8;
inline constexpr int kMaxDepth = 1000;
} // namespace svgLimits

struct SvgReadResult {
    SvgReadStatus status = SvgReadStatus::ok;
    SvgArtwork artwork; // empty unless the read succeeded
};

// Reads the filled shapes of an SVG document.
SvgReadResult readSvg(const QByteArray& document, const SvgReadSettings& settings);

} // namespace type
