#pragma once

#include "fonts/FontCatalogue.h"
#include "fonts/FontMessages.h"

#include <optional>

namespace type {

// The font file and face the node loads for its "currentFont"/"currentStyle".
struct FontSelection {
    ZString path;
    std::uint32_t faceIndex = 0;
    // False when the family was found but not the style (the family's lowest
    // face is used) and when the default font stands in.
    bool exactStyle = false;
    // Set when the default font stands in: the node writes its text to
    // "fontError" and displays it as an error, then goes on.
    std::optional<FontMessage> message;
};

// Looks the family and style up in the catalogue. An empty family gives
// kTypeMissingFont, an unknown one kTypeFontNotFound naming it; both select
// the default font so the text still shows.
FontSelection selectFont(const FontCatalogue& catalogue, const ZString& family, const ZString& style);

} // namespace type
