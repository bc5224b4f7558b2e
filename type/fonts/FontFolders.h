#pragma once

#include <OpenZyvo/ZString.h>
#include <vector>

namespace type {

// The user's home folder as the platform reports it (the node's "homeFolder").
ZString homeFolder();

// The folders the font catalogue scans, in order: the font-sync folder under
// the home folder first, so synchronised fonts shadow installed ones of the
// same family and style, then the platform's standard font locations in the
// platform's order.
std::vector<ZString> fontFolders();

} // namespace type
