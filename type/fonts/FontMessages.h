#pragma once

#include <OpenZyvo/ZString.h>
#include <OpenZyvo/ZStringResourceId.h>
#include <vector>

namespace type {

// The font and glyph messages of the type node. They are declared here, beside
// the code that raises them, rather than in the plug-in's start-up table, and
// are fetched through the host each time so a translation loaded later applies.
namespace fontMessages {

// The key and text look crossed ("Missing" says no font was named, "NotFound"
// names the missing font); scenes and translation tables know them so.
inline const ZStringResourceId kTypeMissingFont{"Type", "kTypeMissingFont", "No font specified."};
inline const ZStringResourceId kTypeFontNotFound{
    "Type", "kTypeFontNotFound",
    "The current font (^1s) is missing or not suitable for Type. Please select a different font."};
inline const ZStringResourceId kTypeErrorInitFont{"Type", "kTypeErrorInitFont",
                                                  "Unable to initialize the font library."};
inline const ZStringResourceId kTypeUnsupportedFont{"Type", "kTypeUnsupportedFont",
                                                    "The font file format is unsupported."};
inline const ZStringResourceId kTypeNoLoadFont{"Type", "kTypeNoLoadFont",
                                               "The font file could not be loaded."};
inline const ZStringResourceId kTypeErrorFTSetChar{"Type", "kTypeErrorFTSetChar", "Error loading font file."};
inline const ZStringResourceId kTypeErrorFTLoadGlyph{"Type", "kTypeErrorFTLoadGlyph",
                                                     "Unable to load character information."};
inline const ZStringResourceId kTypeMissingGlyphs{
    "Type", "kTypeMissingGlyphs",
    "Some input characters are not available in the current font. Try a different font or writing system."};
inline const ZStringResourceId kTypeMissingAllGlyphs{
    "Type", "kTypeMissingAllGlyphs",
    "The input text is not available in the current font. Try a different font or writing system."};
inline const ZStringResourceId kTypeErrorBBoxArray{"Type", "kTypeErrorBBoxArray",
                                                   "Unable to load character bounds."};
inline const ZStringResourceId kTypeLoadingFonts{"Type", "kTypeLoadingFonts", "Loading Fonts"};
// A numeric setting that is not a number, or far past anything a scene could
// use: the attribute, its value, and the lowest and highest usable values.
inline const ZStringResourceId kTypeUnusableValue{
    "Type", "kTypeUnusableValue",
    "The value of ^1s (^2s) is not suitable for Type. Please enter a value from ^3s to ^4s."};

} // namespace fontMessages

// A message to show: the resource and the texts for its "^1s"... placeholders.
// Kernels return it; the node writes text() to "fontError" and displays it.
struct FontMessage {
    ZStringResourceId id;
    std::vector<ZString> arguments;

    // The host's (possibly translated) text with the arguments filled in.
    ZString text() const;
};

} // namespace type
