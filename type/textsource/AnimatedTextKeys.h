#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace type {

// One key of the "animatedType" document: from `frame` on (strictly after it),
// the text is `hex` (in the textInput encoding).
struct AnimatedTextKey {
    double frame = 0.0;
    std::string hex;
};

// Reads the document, a JSON array of objects {"hex": "...", "frame": n}. A
// missing "hex" reads as empty, a missing or non-numeric "frame" as 0; elements
// that are not objects are skipped. When the root is not an array (or the text
// is not JSON) the line "Type JSON Error" goes to `diagnostics` and there are
// no keys. An empty document has no keys and no error.
std::vector<AnimatedTextKey> parseAnimatedTextKeys(std::string_view json, std::ostream& diagnostics);

// The hex text of the last key, by frame, whose frame lies strictly before
// `time`; empty before the first key. Keys of equal frames may be taken in any
// order.
std::string keyedText(std::vector<AnimatedTextKey> keys, double time);

} // namespace type
