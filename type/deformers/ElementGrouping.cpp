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
