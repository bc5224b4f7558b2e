#pragma once

#include "geometry/ContourThinning.h"
#include "geometry/EdgeSubdivision.h"
#include "layout/TypeSettingValues.h"

#include <cstdint>
#include <string>

namespace type {

// Everything the type node hands to layout and glyph decomposition, read from
// its attributes once per evaluation.
struct TypeSettings {
    std::string family; // UTF-8
    std::string style;  // UTF-8
    // Blank-separated hexadecimal numbers, one UTF-16 code unit each ("41 a 42"
    // is A, line break, B).
    std::string text;

    double fontSize = settingsDefaults::kFontSize;
    std::int32_t curveResolution = settingsDefaults::kCurveResolution; // segments per curve
    float kerningScale = settingsDefaults::kKerningScale;
    float leadingScale = settingsDefaults::kLeadingScale;
    float spaceWidthScale = settingsDefaults::kSpaceWidthScale;
    float tracking = settingsDefaults::kTracking; // letter spacing, percent above 100
    AlignmentMode alignment = settingsDefaults::kAlignment;

    ThinningSettings thinning;
    // "deformableType": long edges of the pre-layout and legacy caps are split
    // so the cap deforms smoothly.
    bool subdivideEdges = false;
    EdgeSubdivisionSettings subdivision;
    // Orients every contour of the pre-layout path by its own nesting parity
    // instead of flipping a whole character after its first outer contour.
    bool setParity = false;

    bool legacyDecomposition = false;
    bool preTLDecompose = false;
};

enum class DecompositionPath { TextLayout, PreLayout, Legacy };

// The legacy flag wins over the pre-layout flag; new nodes set neither.
inline DecompositionPath decompositionPath(const TypeSettings& settings) {
    if (settings.legacyDecomposition)
        return DecompositionPath::Legacy;
    if (settings.preTLDecompose)
        return DecompositionPath::PreLayout;
    return DecompositionPath::TextLayout;
}

} // namespace type
