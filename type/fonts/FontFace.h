#pragma once

#include "fonts/FontMessages.h"
#include "fonts/FreeTypeHandles.h"

#include <optional>
#include <variant>

namespace type {

// A face opened for outlining, with its own FreeType library instance, sized to
// 100 points (6400 in 26.6 fixed point) at the default resolution.
class FontFace {
public:
    // The face, or the message to show when it cannot be loaded: the library
    // does not start (kTypeErrorInitFont), the file is of an unknown format
    // (kTypeUnsupportedFont), cannot be opened or read (kTypeNoLoadFont), or
    // refuses the size (kTypeErrorFTSetChar). Nothing is left open on failure.
    static std::variant<FontFace, FontMessage> load(const ZString& path, std::uint32_t faceIndex);

    FT_Face face() const { return m_face.get(); }

private:
    FontFace(FreeTypeLibrary library, FreeTypeFace face)
        : m_library(std::move(library))
        , m_face(std::move(face)) {}

    // Declared in this order so the face is released before its library.
    FreeTypeLibrary m_library;
    FreeTypeFace m_face;
};

} // namespace type
