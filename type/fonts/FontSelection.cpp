#include "fonts/FontSelection.h"

#include "fonts/DefaultFont.h"

namespace type {

FontSelection selectFont(const FontCatalogue& catalogue, const ZString& family, const ZString& style) {
    if (!family.isEmpty()) {
        if (const auto match = catalogue.find(family, style))
            return {match->path, match->faceIndex, match->exactStyle, std::nullopt};
    }
    FontMessage message = family.isEmpty() ? FontMessage{fontMessages::kTypeMissingFont, {}}
                                           : FontMessage{fontMessages::kTypeFontNotFound, {family}};
    return {defaultFontPath(), kDefaultFontFaceIndex, false, std::move(message)};
}

} // namespace type
