#include "deformers/ElementDelays.h"

#include <OpenZyvo/ZRandom.h>
#include <numeric>
#include <utility>

namespace type {

std::vector<int> delayOrder(int groups, int seed) {
    std::vector<int> order(static_cast<std::size_t>(groups > 0 ? groups : 0));
    std::iota(order.begin(), order.end(), 0);
    // Fisher-Yates, drawing each swap from the host's counter-based numbers.
    for (std::size_t k = order.size(); k > 1; --k) {
        const std::uint64_t draw = ZRandom::Rand(static_cast<std::int64_t>(k - 1), seed);
        std::swap(order[k - 1], order[draw % k]);
    }
    return order;
}

std::vector<double> groupTimes(int groups, const DelaySettings& settings) {
    const std::vector<int> order = delayOrder(groups, settings.seed);
    // A lone group is not divided by zero: it starts at once.
    const float divisions = groups == 1 ? 1.0f : static_cast<float>(groups - 1);
    const double step = static_cast<double>(settings.offsetFrames / divisions);
    std::vector<double> times(order.size());
    for (std::size_t k = 0; k < order.size(); ++k) {
        const int rank = settings.randomDelay ? order[k] : static_cast<int>(k);
        double delay = step * rank;
        if (settings.reverseOrder)
            delay = settings.offsetFrames - delay;
        times[k] = settings.time - delay;
    }
    return times;
}

} // namespace type
