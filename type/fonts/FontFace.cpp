#include "fonts/FontFace.h"

namespace type {

namespace {

constexpr FT_F26Dot6 kCharSize = 6400;

FontMessage message(const ZStringResourceId& id) {
    return FontMessage{id, {}};
}

} // namespace

std::variant<FontFace, FontMessage> FontFace::load(const ZString& path, std::uint32_t faceIndex) {
    FT_Error error = 0;
    FreeTypeLibrary library = initFreeType(error);
    if (!library)
        return message(fontMessages::kTypeErrorInitFont);
    FreeTypeFace face = openFace(library.get(), path.asChar(), static_cast<FT_Long>(faceIndex), error);
    if (!face) {
        return message(error == FT_Err_Unknown_File_Format ? fontMessages::kTypeUnsupportedFont
                                                           : fontMessages::kTypeNoLoadFont);
    }
    if (FT_Set_Char_Size(face.get(), 0, kCharSize, 0, 0) != 0)
        return message(fontMessages::kTypeErrorFTSetChar);
    return FontFace(std::move(library), std::move(face));
}

} // namespace type
