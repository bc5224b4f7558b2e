#include "textnode/ManipulatorArrays.h"

#include <algorithm>

namespace type {

namespace {

// Counts are whole numbers stored as doubles; anything below 1 holds no shell.
std::size_t countOf(double value) {
    return value >= 1.0 ? static_cast<std::size_t>(value) : 0;
}

std::optional<ShellGroup> groupHolding(std::span<const double> counts, std::size_t shell) {
    std::size_t start = 0;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        const std::size_t count = countOf(counts[i]);
        if (shell < start + count)
            return ShellGroup{i, start};
        start += count;
    }
    return std::nullopt;
}

void fit(StoredTransforms& transforms, std::size_t count) {
    const auto length = static_cast<unsigned int>(count);
    transforms.positions.setLength(length);
    transforms.rotations.setLength(length);
    transforms.scales.setLength(length);
}

// Only where the element has an entry.
void store(StoredTransforms& transforms, std::size_t index, const ManipulatorEdit& edit) {
    const auto at = static_cast<unsigned int>(index);
    transforms.positions.set(edit.position, at);
    transforms.rotations.set(edit.rotation, at);
    transforms.scales.set(edit.scale, at);
}

std::size_t clampedCharacter(int id, std::size_t characters) {
    if (id <= 0 || characters == 0)
        return 0;
    return std::min(static_cast<std::size_t>(id), characters - 1);
}

int indexOf(const std::optional<ShellGroup>& group) {
    return group ? static_cast<int>(group->index) : -1;
}

} // namespace

CharacterGroups groupsOfCharacter(const ShellGrouping& grouping, std::size_t character) {
    CharacterGroups groups;
    const std::size_t before = std::min(character, grouping.perCharacter.size());
    for (std::size_t i = 0; i < before; ++i)
        groups.firstShell += countOf(grouping.perCharacter[i]);
    groups.word = groupHolding(grouping.perWord, groups.firstShell);
    groups.line = groupHolding(grouping.perLine, groups.firstShell);
    return groups;
}

std::optional<ManipulatorPlacement> applyManipulatorEdit(ManipulatorArrays& arrays,
                                                         const ShellGrouping& grouping,
                                                         const ManipulatorEdit& edit,
                                                         std::size_t characterBoxes) {
    const std::size_t characters = grouping.perCharacter.size();
    fit(arrays.characters, characters);
    if (characters > 0) {
        fit(arrays.words, grouping.perWord.size());
        fit(arrays.lines, grouping.perLine.size());
    }

    const std::size_t character = clampedCharacter(edit.id, characters);
    const CharacterGroups groups = groupsOfCharacter(grouping, character);
    ManipulatorPlacement placement{static_cast<int>(character), indexOf(groups.word), indexOf(groups.line),
                                   static_cast<int>(groups.firstShell)};
    switch (edit.mode) {
    case ManipulatorMode::Character:
        if (character < characters)
            store(arrays.characters, character, edit);
        break;
    case ManipulatorMode::Word:
        if (groups.word) {
            store(arrays.words, groups.word->index, edit);
            placement.firstShell = static_cast<int>(groups.word->firstShell);
        }
        break;
    case ManipulatorMode::Line:
        if (groups.line) {
            store(arrays.lines, groups.line->index, edit);
            placement.firstShell = static_cast<int>(groups.line->firstShell);
        }
        break;
    }
    if (characterBoxes != arrays.characters.positions.length())
        return std::nullopt;
    return placement;
}

} // namespace type
