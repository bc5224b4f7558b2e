#include "deformers/ElementGrouping.h"

#include <limits>

namespace type {

int solidCount(double entry) {
    if (!(entry > 0.0))
        return 0;
    if (entry >= static_cast<double>(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    return static_cast<int>(entry);
}

int solidsBefore(std::span<const double> counts, int group) {
    long long sum = 0;
    for (int i = 0; i < group && i < static_cast<int>(counts.size()); ++i)
        sum += solidCount(counts[static_cast<std::size_t>(i)]);
    return sum > std::numeric_limits<int>::max() ? std::numeric_limits<int>::max() : static_cast<int>(sum);
}

SolidGroup groupHolding(std::span<const double> counts, int solid) {
    long long first = 0;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        const int count = solidCount(counts[i]);
        if (solid >= first && solid < first + count)
            return {static_cast<int>(i), static_cast<int>(first), count};
        first += count;
    }
    return {};
}

} // namespace type
