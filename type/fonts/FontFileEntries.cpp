#include "fonts/FontFileEntries.h"

#include "fonts/FreeTypeHandles.h"
#include "fonts/SfntFamilyNames.h"

namespace type {

namespace {

void appendFaceEntries(FT_Face face, const ZString& path, std::uint32_t faceIndex,
                       std::vector<FontEntry>& entries) {
    // FreeType leaves the names null for faces that have none.
    const ZString family(face->family_name);
    const ZString style(face->style_name);
    entries.push_back({family, style, path, faceIndex});
    for (const LocalisedFamily& localised : sfntFamilyNames(face)) {
        entries.push_back({localised.family.isEmpty() ? family : localised.family,
                           localised.style.isEmpty() ? style : localised.style, path, faceIndex});
    }
}

} // namespace

std::vector<FontEntry> readFontFileEntries(const ZString& path) {
    std::vector<FontEntry> entries;
    FT_Error error = 0;
    const FreeTypeLibrary library = initFreeType(error);
    if (!library)
        return entries;
    const FreeTypeFace first = openFace(library.get(), path.asChar(), 0, error);
    if (!first || !FT_IS_SCALABLE(first.get()))
        return entries;
    appendFaceEntries(first.get(), path, 0, entries);
    for (FT_Long index = 1; index < first->num_faces; ++index) {
        const FreeTypeFace face = openFace(library.get(), path.asChar(), index, error);
        if (face)
            appendFaceEntries(face.get(), path, static_cast<std::uint32_t>(index), entries);
    }
    return entries;
}

} // namespace type
