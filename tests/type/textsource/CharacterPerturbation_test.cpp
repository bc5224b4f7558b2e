#include "textsource/CharacterPerturbation.h"

#include <gtest/gtest.h>
#include <set>

namespace type {
namespace {

std::set<char> outcomes(char ch, std::int64_t range, RandomizerMode mode, std::string_view input = {}) {
    std::set<char> seen;
    for (std::int64_t seed = 0; seed < 400; ++seed)
        seen.insert(perturbCharacter(ch, range, mode, input, seed));
    return seen;
}

TEST(CharacterPerturbation, RangeZeroKeepsEvenCharactersOutsideTheSet) {
    EXPECT_EQ(perturbCharacter('%', 0, RandomizerMode::Numeric, {}, 5), '%');
    EXPECT_EQ(perturbCharacter('a', -3, RandomizerMode::Alphanumeric, {}, 5), 'a');
    EXPECT_EQ(outcomes('%', 1, RandomizerMode::Numeric), std::set<char>{'?'});
    EXPECT_EQ(outcomes('a', 1, RandomizerMode::Numeric), std::set<char>{'?'});
}

TEST(CharacterPerturbation, StaysWithinRangeInsideTheSet) {
    EXPECT_EQ(outcomes('5', 2, RandomizerMode::Numeric), (std::set<char>{'3', '4', '5', '6'}));
    EXPECT_EQ(outcomes('M', 1, RandomizerMode::Alphabetical), (std::set<char>{'L', 'M'}));
}

TEST(CharacterPerturbation, WrapsBelowTheStartByTheSetLength) {
    EXPECT_EQ(outcomes('0', 2, RandomizerMode::Alphanumeric), (std::set<char>{'z', ' ', '0', '1'}));
}

TEST(CharacterPerturbation, WrapsPastTheEndByOneLessThanTheSetLength) {
    // From the blank, the last of the 63, one step past the end lands on '1':
    // the wrap skips '0'.
    EXPECT_EQ(outcomes(' ', 2, RandomizerMode::Alphanumeric), (std::set<char>{'y', 'z', ' ', '1'}));
    EXPECT_EQ(outcomes('9', 3, RandomizerMode::Numeric), (std::set<char>{'6', '7', '8', '9', '1', '2'}));
}

TEST(CharacterPerturbation, InputTextIsItsOwnSet) {
    EXPECT_EQ(outcomes('b', 5, RandomizerMode::InputText, "abc"), (std::set<char>{'a', 'b', 'c'}));
    EXPECT_EQ(outcomes('x', 3, RandomizerMode::InputText, "x"), std::set<char>{'x'});
}

TEST(CharacterPerturbation, HugeRangesEndQuicklyInsideTheSet) {
    for (const std::int64_t range : {std::int64_t{1} << 40, INT64_MAX}) {
        const std::set<char> seen = outcomes('5', range, RandomizerMode::Numeric);
        EXPECT_TRUE(std::all_of(seen.begin(), seen.end(), [](char c) { return c >= '0' && c <= '9'; }));
    }
}

TEST(CharacterPerturbation, UnknownSetModeReadsAsAlphanumeric) {
    EXPECT_EQ(characterSet(static_cast<RandomizerMode>(7), "abc"),
              characterSet(RandomizerMode::Alphanumeric, "abc"));
}

TEST(CharacterPerturbation, SeedsDependOnStepAndCharacterOnly) {
    EXPECT_EQ(perturbationSeed(3, 10, 4), perturbationSeed(3, 10, 4));
    EXPECT_NE(perturbationSeed(3, 10, 4), perturbationSeed(3, 10, 5));
    EXPECT_NE(perturbationSeed(3, 10, 4), perturbationSeed(3, 11, 4));
    EXPECT_NE(perturbationSeed(3, 10, 4), perturbationSeed(4, 10, 4));
}

} // namespace
} // namespace type
