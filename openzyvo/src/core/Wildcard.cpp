#include "core/Wildcard.h"

namespace oz {

bool hasWildcards(std::string_view text) {
    return text.find_first_of("*?") != std::string_view::npos;
}

bool matchesWildcard(std::string_view pattern, std::string_view name) {
    // Greedy with one backtrack point: the last '*' seen takes one more
    // character whenever the rest fails to match, so the walk stays linear
    // in practice and never recurses.
    std::size_t p = 0, n = 0;
    std::size_t star = std::string_view::npos, resume = 0;
    while (n < name.size()) {
        if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == name[n])) {
            ++p;
            ++n;
        } else if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            resume = n;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            n = ++resume;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*')
        ++p;
    return p == pattern.size();
}

} // namespace oz
