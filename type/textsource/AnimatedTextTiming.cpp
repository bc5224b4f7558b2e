#include "textsource/AnimatedTextTiming.h"

#include <OpenZyvo/ZRandom.h>
#include <algorithm>
#include <numeric>

namespace type {

std::vector<std::size_t> shuffledOrder(std::size_t n, std::int64_t seed) {
    std::vector<std::size_t> order(n);
    std::iota(order.begin(), order.end(), std::size_t{0});
    for (std::size_t k = 2; k <= n; ++k) {
        const auto k64 = static_cast<std::int64_t>(k);
        const auto r = static_cast<std::size_t>(ZRandom::Rand(k64, seed, 0.0, static_cast<double>(k)));
        // Rounding of the scaled draw may reach k itself.
        std::swap(order[k - 1], order[std::min(r, k - 1)]);
    }
    return order;
}

std::vector<double> characterTimes(const std::vector<std::size_t>& shuffled, double time, double delay,
                                   bool reverse, bool random) {
    const std::size_t n = shuffled.size();
    std::vector<std::size_t> starts(n);
    if (random)
        starts = shuffled;
    else
        std::iota(starts.begin(), starts.end(), std::size_t{0});
    if (reverse)
        std::reverse(starts.begin(), starts.end());
    std::vector<double> times(n, time);
    for (std::size_t j = 0; j < n; ++j)
        times[starts[j]] = time - static_cast<double>(j) * delay;
    return times;
}

} // namespace type
