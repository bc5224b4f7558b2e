#pragma once

#include <cstddef>
#include <optional>
#include <span>

namespace type {

// The level a type node's edits work at; values of its "manipulatorMode" enumeration.
enum class ManipulatorMode : int { Character = 0, Word = 1, Line = 2 };

// A type node's shell counts: solidsPerCharacter, solidsPerWord, solidsPerLine.
struct ShellGrouping {
    std::span<const double> perCharacter;
    std::span<const double> perWord;
    std::span<const double> perLine;
};

// A word or line and the index of its first shell.
struct ShellGroup {
    std::size_t index = 0;
    std::size_t firstShell = 0;
};

// Where character `character` stands: its first shell, and the word and line
// that hold it (nothing when none does), found by walking the running sums of
// the grouping arrays as the deformers do.
struct CharacterGroups {
    std::size_t firstShell = 0;
    std::optional<ShellGroup> word;
    std::optional<ShellGroup> line;
};
CharacterGroups groupsOfCharacter(const ShellGrouping& grouping, std::size_t character);

// The element of `mode` that holds character `character`: the character
// itself, or its word or line (nothing when none holds it).
std::optional<std::size_t> elementOfCharacter(const ShellGrouping& grouping, ManipulatorMode mode,
                                              std::size_t character);

// The shells of the elements before `element`: the running sum of `counts` up to it.
std::size_t shellsBefore(std::span<const double> counts, std::size_t element);

// The first character whose shells start at `shell` or later (the last
// character when none does; 0 without characters).
std::size_t characterAtShell(const ShellGrouping& grouping, std::size_t shell);

// The character that holds shell `shell`; nothing past the last character's shells.
std::optional<std::size_t> characterOfShell(const ShellGrouping& grouping, std::size_t shell);

} // namespace type
