#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include <memory>

namespace type {

// Owning handles, so every early return releases the face before its library.

struct FreeTypeLibraryDone {
    void operator()(FT_Library library) const { FT_Done_FreeType(library); }
};
struct FreeTypeFaceDone {
    void operator()(FT_Face face) const { FT_Done_Face(face); }
};

using FreeTypeLibrary = std::unique_ptr<FT_LibraryRec_, FreeTypeLibraryDone>;
using FreeTypeFace = std::unique_ptr<FT_FaceRec_, FreeTypeFaceDone>;

// A new library instance, or null with `error` set.
inline FreeTypeLibrary initFreeType(FT_Error& error) {
    FT_Library library = nullptr;
    error = FT_Init_FreeType(&library);
    return FreeTypeLibrary(error == 0 ? library : nullptr);
}

// The face, or null with `error` set.
inline FreeTypeFace openFace(FT_Library library, const char* path, FT_Long faceIndex, FT_Error& error) {
    FT_Face face = nullptr;
    error = FT_New_Face(library, path, faceIndex, &face);
    return FreeTypeFace(error == 0 ? face : nullptr);
}

} // namespace type
