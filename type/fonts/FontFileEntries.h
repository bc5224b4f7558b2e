#pragma once

#include "fonts/FontEntry.h"

#include <vector>

namespace type {

// The catalogue entries one font file offers, in the order the catalogue takes
// them: per face, its own family and style, then each localised family of its
// name table. Empty for files FreeType cannot open and for bitmap-only fonts
// (face 0 not scalable); faces after the first that fail to open are left out.
// Duplicates are kept: the catalogue drops them.
std::vector<FontEntry> readFontFileEntries(const ZString& path);

} // namespace type
