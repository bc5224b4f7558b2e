#include "interaction/ElementBox.h"

#include <gtest/gtest.h>
#include <vector>

namespace type {
namespace {

// "ab c" on one line: a and b one shell each, c two.
const std::vector<double> kPerCharacter{1, 1, 2};
const std::vector<double> kPerWord{2, 2};
const std::vector<double> kPerLine{4};
const ShellGrouping kGrouping{kPerCharacter, kPerWord, kPerLine};
const std::vector<ZVector> kMinima{{0, 0, 0}, {2, -1, 0}, {6, 0, 0}};
const std::vector<ZVector> kMaxima{{1, 3, 0}, {3, 2, 0}, {8, 1, 1}};

TEST(ElementBox, AWordsBoxHoldsItsCharactersBoxes) {
    const std::optional<ElementBox> word =
        elementBox({kMinima, kMaxima}, kGrouping, ManipulatorMode::Word, 0);
    ASSERT_TRUE(word.has_value());
    EXPECT_EQ(ZVector(word->minimum), ZVector(0, -1, 0));
    EXPECT_EQ(ZVector(word->maximum), ZVector(3, 3, 0));
    EXPECT_EQ(ZVector(word->centre()), ZVector(1.5, 1, 0));

    const std::optional<ElementBox> line =
        elementBox({kMinima, kMaxima}, kGrouping, ManipulatorMode::Line, 0);
    EXPECT_EQ(ZVector(line->maximum), ZVector(8, 3, 1));
    const std::optional<ElementBox> c =
        elementBox({kMinima, kMaxima}, kGrouping, ManipulatorMode::Character, 2);
    EXPECT_EQ(ZVector(c->minimum), ZVector(6, 0, 0));
}

TEST(ElementBox, AnElementWithoutBoxedCharactersHasNoBox) {
    EXPECT_FALSE(elementBox({kMinima, kMaxima}, kGrouping, ManipulatorMode::Word, 2).has_value());
    // Boxes of an older evaluation, for fewer characters.
    const std::vector<ZVector> one{{0, 0, 0}};
    EXPECT_FALSE(elementBox({one, one}, kGrouping, ManipulatorMode::Word, 1).has_value());
    EXPECT_FALSE(elementBox({}, {}, ManipulatorMode::Line, 0).has_value());
}

TEST(ElementBox, ShellsNameTheirCharacters) {
    EXPECT_EQ(characterOfShell(kGrouping, 0), 0u);
    EXPECT_EQ(characterOfShell(kGrouping, 3), 2u);
    EXPECT_FALSE(characterOfShell(kGrouping, 4).has_value());
    EXPECT_EQ(elementOfCharacter(kGrouping, ManipulatorMode::Word, 2), 1u);
    EXPECT_FALSE(elementOfCharacter(kGrouping, ManipulatorMode::Character, 3).has_value());
}

} // namespace
} // namespace type
