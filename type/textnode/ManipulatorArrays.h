#pragma once

#include <OpenZyvo/ZVector.h>
#include <OpenZyvo/ZVectorArray.h>
#include <cstddef>
#include <optional>
#include <span>

namespace type {

// Values of the node's "manipulatorMode" enumeration.
enum class ManipulatorMode : int { Character = 0, Word = 1, Line = 2 };

// The stored edits of one level: offsets, rotations in degrees, and scales as
// offsets from 1 (so a new, zero entry leaves the element as it is).
struct StoredTransforms {
    ZVectorArray positions;
    ZVectorArray rotations;
    ZVectorArray scales;
};

// The nine "manipulator...PP" arrays of a type node.
struct ManipulatorArrays {
    StoredTransforms characters;
    StoredTransforms words;
    StoredTransforms lines;
};

// The node's shell counts: solidsPerCharacter, solidsPerWord, solidsPerLine.
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

// The edit the manipulator made: "manipulateId" (a character index), the mode,
// and "positionAdjust", "rotationAdjust", "scaleAdjust".
struct ManipulatorEdit {
    ManipulatorMode mode = ManipulatorMode::Word;
    int id = 0;
    ZVector position;
    ZVector rotation;
    ZVector scale;
};

// What the node publishes for the manipulator after an edit: the edited
// character, its word and line (-1 when none), and the first shell of the
// element being edited, by which the manipulator finds the element's faces.
struct ManipulatorPlacement {
    int character = 0;
    int word = -1;
    int line = -1;
    int firstShell = 0;
};

// Fits the arrays to the current text and stores the edit in them:
// character-level arrays get one entry per character with shells; when there
// are any, the word- and line-level arrays get one per word and line. Longer
// arrays are cut and new entries are zero vectors. The edit goes to the
// element of its mode that holds character `edit.id` (clamped to the
// characters), when that element has an entry.
//
// The placement needs the character boxes of the last full evaluation
// (`characterBoxes` of them); when their count does not match the characters,
// the edit is still stored but there is no placement.
std::optional<ManipulatorPlacement> applyManipulatorEdit(ManipulatorArrays& arrays,
                                                         const ShellGrouping& grouping,
                                                         const ManipulatorEdit& edit,
                                                         std::size_t characterBoxes);

} // namespace type
