#pragma once

#include <OpenZyvo/ZStringResourceId.h>

namespace type {

// The reader's own limits, declared beside the code that meets them; fetched
// through the host each time like every other message of the plug-in.
namespace svgMessages {

inline const ZStringResourceId kSVGTooLarge{
    "Type", "kSVGTooLarge",
    "SVG artwork too large: more than a million outline points, or a path of more than 8 MB."};
inline const ZStringResourceId kSVGTooDeep{"Type", "kSVGTooDeep",
                                           "SVG elements nested more than 1000 deep are not supported."};

} // namespace svgMessages
} // namespace type
