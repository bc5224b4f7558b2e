#pragma once

#include <optional>
#include <string>
#include <vector>

namespace zyvo {

// One family of the type node's font catalogue, its styles in the order the
// node found them.
struct FontFamily {
    std::string name;
    std::vector<std::string> styles;
};

// The families of a catalogue published as family, style, family, style, …,
// in the order each family was first found. A trailing odd name is ignored.
std::vector<FontFamily> fontFamilies(const std::vector<std::string>& familyStylePairs);

// The family of that name, exactly as written; nothing when absent.
const FontFamily* findFamily(const std::vector<FontFamily>& families, const std::string& name);

// The face to draw with: the requested style when the family has it
// (exactly, else ignoring case), otherwise the family's regular face
// (Regular, Book, Roman or Normal, else its first). `unknown` tells that a
// requested style was not found.
struct StyleChoice {
    std::string style;
    bool unknown = false;
};
StyleChoice chooseStyle(const FontFamily& family, const std::optional<std::string>& requested);

} // namespace zyvo
