#pragma once

#include <OpenZyvo/ZString.h>
#include <ft2build.h>
#include FT_FREETYPE_H

#include <vector>

namespace type {

// A family name from the name table with the style of the same language.
struct LocalisedFamily {
    ZString family;
    ZString style; // empty when the name table has no style in that language
};

// The Windows Unicode (platform 3, encoding 1) family names of an SFNT face,
// both the plain (id 1) and the typographic (id 16) kind, in name-table order.
// Each carries the style (id 2, or 17 for a typographic family) of the same
// language. Empty for faces that are not SFNT.
std::vector<LocalisedFamily> sfntFamilyNames(FT_Face face);

} // namespace type
