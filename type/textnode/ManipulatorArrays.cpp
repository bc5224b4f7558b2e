#include "textnode/ManipulatorArrays.h"

#include <algorithm>

namespace type {

namespace {

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

std::size_t clamped(int id, std::size_t count) {
    if (id <= 0 || count == 0)
        return 0;
    return std::min(static_cast<std::size_t>(id), count - 1);
}

int indexOf(const std::optional<ShellGroup>& group) {
    return group ? static_cast<int>(group->index) : -1;
}

} // namespace

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

    // "manipulateId" counts elements of the mode: characters, words or lines.
    StoredTransforms* level = &arrays.characters;
    std::span<const double> counts = grouping.perCharacter;
    if (edit.mode == ManipulatorMode::Word) {
        level = &arrays.words;
        counts = grouping.perWord;
    } else if (edit.mode == ManipulatorMode::Line) {
        level = &arrays.lines;
        counts = grouping.perLine;
    }
    const std::size_t element = clamped(edit.id, counts.size());
    if (edit.store && element < counts.size() && element < level->positions.length())
        store(*level, element, edit);

    const std::size_t firstShell = shellsBefore(counts, element);
    const std::size_t character = edit.mode == ManipulatorMode::Character
                                      ? clamped(edit.id, characters)
                                      : characterAtShell(grouping, firstShell);
    const CharacterGroups groups = groupsOfCharacter(grouping, character);
    const ManipulatorPlacement placement{static_cast<int>(character), indexOf(groups.word),
                                         indexOf(groups.line), static_cast<int>(firstShell)};
    if (characterBoxes != arrays.characters.positions.length())
        return std::nullopt;
    return placement;
}

} // namespace type
