#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace type {

// The order in which the characters of an n-character animated text start:
// 0 ... n-1 shuffled with the host's random numbers for `seed` (for k = 2 ... n
// entry k-1 swaps with entry Rand(k, seed, 0, k)), the same for every frame.
std::vector<std::size_t> shuffledOrder(std::size_t n, std::int64_t seed);

// The time at which each character (in text order) reads its "percent" curve.
// Characters start one after another, `delay` frames apart: the j-th to start
// reads the curve at time - j * delay, so it plays the curve j * delay frames
// after the first. They start in text order, or in `shuffled` order when
// `random` is set; `reverse` starts from the other end of that order.
std::vector<double> characterTimes(const std::vector<std::size_t>& shuffled, double time, double delay,
                                   bool reverse, bool random);

} // namespace type
