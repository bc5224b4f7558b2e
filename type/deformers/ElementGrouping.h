#pragma once

#include <span>

namespace type {

// A group of consecutive solids (a character, word or line) found through the
// running sum of a grouping array.
struct SolidGroup {
    int index = -1; // -1 when no group holds the solid
    int first = 0;  // the group's first solid
    int count = 0;
};

// A grouping array entry as a whole number of solids. The arrays travel as
// doubles; anything that is not a positive number (NaN, negatives) counts as
// no solid, so a damaged array cannot make a range run backwards.
int solidCount(double entry);

// The number of solids of the groups before `group`.
int solidsBefore(std::span<const double> counts, int group);

// The group whose range of solids holds `solid`. Empty groups (an empty word
// or line) hold no solid and are passed over.
SolidGroup groupHolding(std::span<const double> counts, int solid);

} // namespace type
