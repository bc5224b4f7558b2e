#pragma once

#include "geometry/BoundingBox.h"
#include "geometry/Orientation.h"
#include "layout/LayoutResult.h"
#include "layout/TypeSettings.h"

#include <cstdio>
#include <fontconfig/fontconfig.h>
#include <memory>
#include <string>
#include <string_view>

namespace type::testing {

// The hex-token form of UTF-16 text, one token per code unit ("41 a 42").
inline std::string hexOf(std::u16string_view text) {
    std::string hex;
    char token[8];
    for (const char16_t unit : text) {
        std::snprintf(token, sizeof token, "%x ", static_cast<unsigned>(unit));
        hex += token;
    }
    return hex;
}

inline TypeSettings settingsFor(const char* family, const char* style, std::u16string_view text) {
    TypeSettings settings;
    settings.family = family;
    settings.style = style;
    settings.text = hexOf(text);
    return settings;
}

inline TypeSettings dejaVu(std::u16string_view text) {
    return settingsFor("DejaVu Sans", "Book", text);
}

// The installed file of exactly this family and style, or "" when fontconfig
// only has a substitute.
inline std::string fontFile(const char* family, const char* style) {
    using Pattern = std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)>;
    Pattern pattern(FcPatternCreate(), &FcPatternDestroy);
    FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family));
    FcPatternAddString(pattern.get(), FC_STYLE, reinterpret_cast<const FcChar8*>(style));
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    FcResult result = FcResultNoMatch;
    Pattern match(FcFontMatch(nullptr, pattern.get(), &result), &FcPatternDestroy);
    FcChar8* matchedFamily = nullptr;
    FcChar8* file = nullptr;
    if (!match || FcPatternGetString(match.get(), FC_FAMILY, 0, &matchedFamily) != FcResultMatch ||
        std::string_view(reinterpret_cast<const char*>(matchedFamily)) != family ||
        FcPatternGetString(match.get(), FC_FILE, 0, &file) != FcResultMatch)
        return {};
    return reinterpret_cast<const char*>(file);
}

inline double filledArea(const std::vector<Shape>& shapes) {
    double area = 0.0;
    for (const Shape& shape : shapes) {
        area += std::abs(signedArea(shape.outer));
        for (const Contour& hole : shape.holes)
            area -= std::abs(signedArea(hole));
    }
    return area;
}

inline const std::vector<std::vector<Shape>>& shapesOf(const LayoutResult& result) {
    return std::get<ShapeCaps>(result.caps);
}

inline const std::vector<CapFacePlan>& plansOf(const LayoutResult& result) {
    return std::get<PlannedCaps>(result.caps);
}

} // namespace type::testing
