#include "deformers/ElementGrouping.h"

#include <algorithm>
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

RunningSums::RunningSums(std::span<const double> counts) {
    m_start.reserve(counts.size() + 1);
    long long sum = 0;
    m_start.push_back(0);
    for (double count : counts) {
        sum = std::min<long long>(sum + solidCount(count), std::numeric_limits<int>::max());
        m_start.push_back(static_cast<int>(sum));
    }
}

int RunningSums::before(int group) const {
    return m_start[static_cast<std::size_t>(std::clamp(group, 0, groups()))];
}

SolidGroup RunningSums::holding(int solid) const {
    if (groups() == 0 || solid < 0)
        return {};
    // The last group starting at or before the solid: empty groups before it share its start.
    const auto after = std::upper_bound(m_start.begin(), m_start.end() - 1, solid);
    const auto group = static_cast<int>(after - m_start.begin()) - 1;
    const int first = m_start[static_cast<std::size_t>(group)];
    const int end = m_start[static_cast<std::size_t>(group) + 1];
    if (solid >= end)
        return {};
    return {group, first, end - first};
}

} // namespace type
