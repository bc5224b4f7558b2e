#pragma once

#include "shells/ShellGrouping.h"

#include <OpenZyvo/ZVector.h>
#include <OpenZyvo/ZVectorArray.h>
#include <cstddef>
#include <optional>

namespace type {

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

// The edit the manipulator made: "manipulateId" (the index of a character,
// word or line, by the mode), the mode, and "positionAdjust", "rotationAdjust", "scaleAdjust".
struct ManipulatorEdit {
    ManipulatorMode mode = ManipulatorMode::Word;
    int id = 0;
    ZVector position;
    ZVector rotation;
    ZVector scale;
    // Whether the values changed since they were last stored; a new mode or
    // id alone brings no values for the element.
    bool store = true;
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
// arrays are cut and new entries are zero vectors. An edit to store goes to
// element `edit.id` of its mode (clamped to the elements of the mode), when
// that element has an entry.
//
// The placement needs the character boxes of the last full evaluation
// (`characterBoxes` of them); when their count does not match the characters,
// the edit is still stored but there is no placement.
std::optional<ManipulatorPlacement> applyManipulatorEdit(ManipulatorArrays& arrays,
                                                         const ShellGrouping& grouping,
                                                         const ManipulatorEdit& edit,
                                                         std::size_t characterBoxes);

} // namespace type
