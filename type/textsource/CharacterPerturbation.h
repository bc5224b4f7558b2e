#pragma once

#include "textsource/GeneratorModes.h"

#include <cstdint>
#include <string_view>

namespace type {

// The characters a perturbed character is drawn from. InputText uses the text
// being perturbed; values outside the enum read as Alphanumeric.
std::string_view characterSet(RandomizerMode mode, std::string_view inputText);

// Replaces `ch` by a character of the set up to `range` places away (range 0,
// or below, keeps it; a character not in the set becomes '?'). Positions past
// the start wrap around by the set's length, but positions past the end come
// back by one less than the length, so from the set's end the wrap skips the
// first character. Scenes made with that wrap look the same only if it stays.
char perturbCharacter(char ch, std::int64_t range, RandomizerMode mode, std::string_view inputText,
                      std::int64_t seed);

// The seed of character `index` of a text perturbed at time step `step`: the
// same step always gives the same text, and neighbouring characters (and
// steps) get unrelated draws.
std::int64_t perturbationSeed(std::int64_t randomSeed, std::int64_t step, std::size_t index);

} // namespace type
