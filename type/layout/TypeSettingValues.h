#pragma once

#include <array>
#include <cstdint>
#include <utility>

namespace type {

// Values of the node's "alignmentMode" enumeration, as scenes store them.
// There is no field 0: the left alignment is 1. Other values align left.
enum class AlignmentMode : std::int32_t { Left = 1, Centre = 2, Right = 3 };

// The enumeration's fields as the node declares them, in menu order.
inline constexpr std::array<std::pair<const char*, short>, 3> kAlignmentFields{{
    {"Left", static_cast<short>(AlignmentMode::Left)},
    {"Centre", static_cast<short>(AlignmentMode::Centre)},
    {"Right", static_cast<short>(AlignmentMode::Right)},
}};

// What a new type node starts with; the settings record starts the same, so a
// layout run without a node lays text out as a fresh node would.
namespace settingsDefaults {
inline constexpr double kFontSize = 20.0; // height of one line in scene units
inline constexpr std::int32_t kCurveResolution = 4;
inline constexpr float kKerningScale = 1.0f;
inline constexpr float kLeadingScale = 1.0f;
inline constexpr float kSpaceWidthScale = 1.0f;
inline constexpr float kTracking = 0.0f;
inline constexpr AlignmentMode kAlignment = AlignmentMode::Left;
} // namespace settingsDefaults

// Segments per curve the node accepts: a curve needs one at least, and the
// cap keeps one glyph from asking for an unbounded number of points. Values
// past them reach compute through connections and are held to them there.
namespace curveResolutionLimits {
inline constexpr std::int32_t kMin = 1;
inline constexpr std::int32_t kMax = 100;
inline constexpr std::int32_t kSoftMax = 10;
} // namespace curveResolutionLimits

// How finely "deformableType" may split long cap edges: at least once and at
// most a hundred times per edge, never into pieces shorter than the minimum
// length, so that a tiny length cannot ask for unbounded vertices.
namespace subdivisionLimits {
inline constexpr std::int32_t kMinDivisions = 1;
inline constexpr std::int32_t kMaxDivisions = 100;
inline constexpr std::int32_t kSoftMaxDivisions = 30;
inline constexpr double kMinEdgeLength = 0.01;
inline constexpr double kSoftMinEdgeLength = 0.1;
inline constexpr double kSoftMaxEdgeLength = 15.0;
} // namespace subdivisionLimits

} // namespace type
