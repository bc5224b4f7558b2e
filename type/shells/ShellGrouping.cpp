#include "shells/ShellGrouping.h"

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

} // namespace

CharacterGroups groupsOfCharacter(const ShellGrouping& grouping, std::size_t character) {
    CharacterGroups groups;
    groups.firstShell = shellsBefore(grouping.perCharacter, character);
    groups.word = groupHolding(grouping.perWord, groups.firstShell);
    groups.line = groupHolding(grouping.perLine, groups.firstShell);
    return groups;
}

std::optional<std::size_t> elementOfCharacter(const ShellGrouping& grouping, ManipulatorMode mode,
                                              std::size_t character) {
    if (mode == ManipulatorMode::Character)
        return character < grouping.perCharacter.size() ? std::optional<std::size_t>(character)
                                                        : std::nullopt;
    const CharacterGroups groups = groupsOfCharacter(grouping, character);
    const std::optional<ShellGroup>& group = mode == ManipulatorMode::Word ? groups.word : groups.line;
    return group ? std::optional<std::size_t>(group->index) : std::nullopt;
}

std::size_t shellsBefore(std::span<const double> counts, std::size_t element) {
    std::size_t shells = 0;
    for (std::size_t i = 0; i < std::min(element, counts.size()); ++i)
        shells += countOf(counts[i]);
    return shells;
}

std::size_t characterAtShell(const ShellGrouping& grouping, std::size_t shell) {
    std::size_t start = 0;
    for (std::size_t i = 0; i < grouping.perCharacter.size(); ++i) {
        if (start >= shell)
            return i;
        start += countOf(grouping.perCharacter[i]);
    }
    return grouping.perCharacter.empty() ? 0 : grouping.perCharacter.size() - 1;
}

std::optional<std::size_t> characterOfShell(const ShellGrouping& grouping, std::size_t shell) {
    const std::optional<ShellGroup> character = groupHolding(grouping.perCharacter, shell);
    return character ? std::optional<std::size_t>(character->index) : std::nullopt;
}

} // namespace type
