#include "textnode/ManipulatorArrays.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

namespace type {
namespace {

using ::testing::ElementsAre;

// "Hi  mom\nO": H has one shell, i two, then an empty word between the spaces.
const std::vector<double> kPerCharacter{1, 2, 1, 1, 1, 1};
const std::vector<double> kPerWord{3, 0, 3, 1};
const std::vector<double> kPerLine{6, 1};
const ShellGrouping kGrouping{kPerCharacter, kPerWord, kPerLine};

ZVectorArray vectors(std::initializer_list<ZVector> values) {
    return ZVectorArray(values);
}

ManipulatorEdit edit(ManipulatorMode mode, int id) {
    return {mode, id, ZVector(1, 2, 3), ZVector(10, 20, 30), ZVector(0.5, 0.5, 0.5)};
}

TEST(ManipulatorArrays, CharactersMapToTheirWordsAndLinesPastEmptyWords) {
    const CharacterGroups h = groupsOfCharacter(kGrouping, 0);
    EXPECT_EQ(h.firstShell, 0u);
    EXPECT_EQ(h.word->index, 0u);
    EXPECT_EQ(h.line->index, 0u);

    // "m" follows "i" (two shells) and an empty word: word 2, which starts at shell 3.
    const CharacterGroups m = groupsOfCharacter(kGrouping, 2);
    EXPECT_EQ(m.firstShell, 3u);
    EXPECT_EQ(m.word->index, 2u);
    EXPECT_EQ(m.word->firstShell, 3u);
    EXPECT_EQ(m.line->index, 0u);

    const CharacterGroups o = groupsOfCharacter(kGrouping, 5);
    EXPECT_EQ(o.word->index, 3u);
    EXPECT_EQ(o.line->index, 1u);
    EXPECT_EQ(o.line->firstShell, 6u);

    EXPECT_FALSE(groupsOfCharacter(kGrouping, 6).word.has_value());
    EXPECT_FALSE(groupsOfCharacter({}, 0).line.has_value());
}

TEST(ManipulatorArrays, FitsEveryLevelToTheText) {
    ManipulatorArrays arrays;
    arrays.characters.positions =
        vectors({{1, 1, 1}, {2, 2, 2}, {3, 3, 3}, {4, 4, 4}, {5, 5, 5}, {6, 6, 6}, {7, 7, 7}});
    arrays.words.scales = vectors({{9, 9, 9}});
    arrays.lines.rotations = vectors({{1, 0, 0}, {2, 0, 0}, {3, 0, 0}});
    applyManipulatorEdit(arrays, kGrouping, edit(ManipulatorMode::Line, 99), 6);

    EXPECT_EQ(arrays.characters.positions.length(), 6u);
    EXPECT_EQ(arrays.characters.positions[5], ZVector(6, 6, 6));
    EXPECT_EQ(arrays.characters.rotations.length(), 6u);
    EXPECT_EQ(arrays.characters.scales[0], ZVector());
    EXPECT_EQ(arrays.words.scales.length(), 4u);
    EXPECT_EQ(arrays.words.scales[0], ZVector(9, 9, 9));
    EXPECT_EQ(arrays.words.scales[3], ZVector());
    EXPECT_EQ(arrays.lines.rotations.length(), 2u);

    // Without characters the word and line arrays are left as they are.
    ManipulatorArrays empty;
    empty.words.positions = vectors({{1, 1, 1}});
    applyManipulatorEdit(empty, {}, edit(ManipulatorMode::Word, 0), 0);
    EXPECT_EQ(empty.characters.positions.length(), 0u);
    EXPECT_EQ(empty.words.positions.length(), 1u);
    EXPECT_EQ(empty.words.positions[0], ZVector(1, 1, 1));
}

TEST(ManipulatorArrays, EachModeStoresTheEditAtItsElement) {
    ManipulatorArrays arrays;
    auto placement = applyManipulatorEdit(arrays, kGrouping, edit(ManipulatorMode::Character, 3), 6);
    EXPECT_EQ(arrays.characters.positions[3], ZVector(1, 2, 3));
    EXPECT_EQ(arrays.characters.rotations[3], ZVector(10, 20, 30));
    EXPECT_EQ(arrays.characters.scales[3], ZVector(0.5, 0.5, 0.5));
    EXPECT_EQ(arrays.characters.positions[2], ZVector());
    EXPECT_EQ(arrays.words.positions[2], ZVector());
    ASSERT_TRUE(placement.has_value());
    EXPECT_EQ(placement->firstShell, 4);

    // Word 2 is "mom", which starts at shell 3.
    placement = applyManipulatorEdit(arrays, kGrouping, edit(ManipulatorMode::Word, 2), 6);
    EXPECT_THAT(arrays.words.positions.asVector(),
                ElementsAre(ZVector(), ZVector(), ZVector(1, 2, 3), ZVector()));
    EXPECT_EQ(arrays.words.rotations[2], ZVector(10, 20, 30));
    EXPECT_EQ(arrays.words.scales[2], ZVector(0.5, 0.5, 0.5));
    ASSERT_TRUE(placement.has_value());
    EXPECT_EQ(placement->word, 2);
    EXPECT_EQ(placement->line, 0);
    EXPECT_EQ(placement->character, 2);
    EXPECT_EQ(placement->firstShell, 3);

    // An id past the end edits the last line, which holds "O".
    placement = applyManipulatorEdit(arrays, kGrouping, edit(ManipulatorMode::Line, 40), 6);
    EXPECT_THAT(arrays.lines.positions.asVector(), ElementsAre(ZVector(), ZVector(1, 2, 3)));
    ASSERT_TRUE(placement.has_value());
    EXPECT_EQ(placement->character, 5);
    EXPECT_EQ(placement->firstShell, 6);

    placement = applyManipulatorEdit(arrays, kGrouping, edit(ManipulatorMode::Character, -4), 6);
    EXPECT_EQ(arrays.characters.positions[0], ZVector(1, 2, 3));
    EXPECT_EQ(placement->character, 0);
}

// The tool writes a word or line index into "manipulateId" in those modes;
// the node took it for a character index and edited another element.
TEST(ManipulatorArrays, WordAndLineModesTakeTheIdAsWordOrLineIndex) {
    ManipulatorArrays arrays;
    auto placement = applyManipulatorEdit(arrays, kGrouping, edit(ManipulatorMode::Word, 1), 6);
    EXPECT_THAT(arrays.words.positions.asVector(),
                ElementsAre(ZVector(), ZVector(1, 2, 3), ZVector(), ZVector()));
    // The empty word has no character: the placement moves on to the next one's.
    ASSERT_TRUE(placement.has_value());
    EXPECT_EQ(placement->firstShell, 3);

    placement = applyManipulatorEdit(arrays, kGrouping, edit(ManipulatorMode::Line, 1), 6);
    EXPECT_THAT(arrays.lines.positions.asVector(), ElementsAre(ZVector(), ZVector(1, 2, 3)));
    EXPECT_EQ(placement->character, 5);
    EXPECT_EQ(placement->line, 1);
}

TEST(ManipulatorArrays, StaleCharacterBoundsStoreTheEditWithoutPlacement) {
    ManipulatorArrays arrays;
    EXPECT_EQ(applyManipulatorEdit(arrays, kGrouping, edit(ManipulatorMode::Character, 1), 5), std::nullopt);
    EXPECT_EQ(arrays.characters.positions[1], ZVector(1, 2, 3));
}

} // namespace
} // namespace type
