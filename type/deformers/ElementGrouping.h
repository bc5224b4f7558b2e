#pragma once

#include <span>
#include <vector>

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

// The running sums of one grouping array, built once so that every lookup
// (one per character of the text) takes logarithmic time.
class RunningSums {
public:
    explicit RunningSums(std::span<const double> counts);

    int groups() const { return static_cast<int>(m_start.size()) - 1; }
    // The number of solids of the groups before `group`; past the last group,
    // all of them.
    int before(int group) const;
    // The group whose range of solids holds `solid`. Empty groups (an empty
    // word or line) hold no solid and are passed over.
    SolidGroup holding(int solid) const;

private:
    std::vector<int> m_start; // group g holds the solids m_start[g] .. m_start[g + 1] - 1
};

} // namespace type
