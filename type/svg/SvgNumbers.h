#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace type {

// Whether `c` can open a number in path data and point lists.
bool startsNumber(char c);

// Reads the number that starts at `pos` and moves `pos` past it: an optional
// sign, then digits with at most one decimal point; a second point or any
// other character ends it, so "1.5.5" reads as 1.5 and then .5. A bare sign
// reads as 0.
//
// An "e" or "E" after a number raises it to the power of the number that
// follows (read the same way, so the rule nests): "2e3" is 8, not 2000.
// Artwork made for this reader depends on that reading, so it stays.
double readNumber(std::string_view text, std::size_t& pos);

// Every number of a list such as "12,5 7,5 7,0"; separators are skipped.
std::vector<double> readNumbers(std::string_view text);

// A geometry attribute such as width="38px": the leading number, read as
// the C library reads it in the C locale (here an exponent scales by a
// power of ten), 0 when there is none.
double readAttributeNumber(std::string_view text);

} // namespace type
