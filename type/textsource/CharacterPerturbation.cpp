#include "textsource/CharacterPerturbation.h"

#include <OpenZyvo/ZRandom.h>
#include <algorithm>
#include <cstdint>

namespace type {

namespace {

constexpr std::string_view kAlphanumeric = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz ";
constexpr std::string_view kAlphabetical = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz ";
constexpr std::string_view kNumeric = "0123456789";

// Far beyond any set's length, and small enough that twice it cannot overflow.
constexpr std::int64_t kLargestRange = INT64_MAX / 4;

} // namespace

std::string_view characterSet(RandomizerMode mode, std::string_view inputText) {
    switch (mode) {
    case RandomizerMode::Alphabetical:
        return kAlphabetical;
    case RandomizerMode::Numeric:
        return kNumeric;
    case RandomizerMode::InputText:
        return inputText;
    default:
        return kAlphanumeric;
    }
}

char perturbCharacter(char ch, std::int64_t range, RandomizerMode mode, std::string_view inputText,
                      std::int64_t seed) {
    if (range <= 0)
        return ch;
    const std::string_view set = characterSet(mode, inputText);
    const std::size_t found = set.find(ch);
    if (found == std::string_view::npos)
        return '?';
    const auto length = static_cast<std::int64_t>(set.size());
    // One character has nowhere to go, and a wrap by length - 1 would never end.
    if (length == 1)
        return set[0];
    range = std::min(range, kLargestRange);
    const std::uint64_t draw = ZRandom::Rand(0, seed);
    std::int64_t i = static_cast<std::int64_t>(draw % static_cast<std::uint64_t>(2 * range)) - range +
                     static_cast<std::int64_t>(found);
    // Closed forms of "add the length while below 0" and "subtract one less
    // than the length while past the end", so that huge ranges cannot stall.
    if (i < 0)
        i = (i % length + length) % length;
    const std::int64_t back = length - 1;
    if (i > back)
        i -= (i - 1) / back * back;
    return set[static_cast<std::size_t>(i)];
}

std::int64_t perturbationSeed(std::int64_t randomSeed, std::int64_t step, std::size_t index) {
    return static_cast<std::int64_t>(ZRandom::Rand(step, randomSeed) + index);
}

} // namespace type
