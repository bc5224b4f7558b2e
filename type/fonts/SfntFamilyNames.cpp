#include "fonts/SfntFamilyNames.h"

#include <QString>

#include FT_SFNT_NAMES_H

#include <optional>

namespace type {

namespace {

constexpr FT_UShort kPlatformWindows = 3;
constexpr FT_UShort kEncodingUnicodeBmp = 1;
constexpr FT_UShort kFamilyId = 1;
constexpr FT_UShort kStyleId = 2;
constexpr FT_UShort kTypographicFamilyId = 16;
constexpr FT_UShort kTypographicStyleId = 17;

// Name-table strings of the Windows Unicode encoding are UTF-16 big-endian; an
// odd last byte is dropped.
ZString fromUtf16BigEndian(const FT_Byte* bytes, FT_UInt length) {
    QString text;
    text.reserve(static_cast<int>(length / 2));
    for (FT_UInt i = 0; i + 1 < length; i += 2)
        text += QChar(static_cast<char16_t>((bytes[i] << 8) | bytes[i + 1]));
    return ZString(text.toUtf8().toStdString());
}

bool isWindowsUnicode(const FT_SfntName& name) {
    return name.platform_id == kPlatformWindows && name.encoding_id == kEncodingUnicodeBmp;
}

std::optional<ZString> findName(FT_Face face, FT_UInt count, FT_UShort language, FT_UShort nameId) {
    for (FT_UInt i = 0; i < count; ++i) {
        FT_SfntName name;
        if (FT_Get_Sfnt_Name(face, i, &name) == 0 && isWindowsUnicode(name) && name.language_id == language &&
            name.name_id == nameId)
            return fromUtf16BigEndian(name.string, name.string_len);
    }
    return std::nullopt;
}

} // namespace

std::vector<LocalisedFamily> sfntFamilyNames(FT_Face face) {
    std::vector<LocalisedFamily> families;
    if (!FT_IS_SFNT(face))
        return families;
    const FT_UInt count = FT_Get_Sfnt_Name_Count(face);
    for (FT_UInt i = 0; i < count; ++i) {
        FT_SfntName name;
        if (FT_Get_Sfnt_Name(face, i, &name) != 0 || !isWindowsUnicode(name))
            continue;
        if (name.name_id != kFamilyId && name.name_id != kTypographicFamilyId)
            continue;
        const FT_UShort styleId = name.name_id == kFamilyId ? kStyleId : kTypographicStyleId;
        families.push_back({fromUtf16BigEndian(name.string, name.string_len),
                            findName(face, count, name.language_id, styleId).value_or(ZString())});
    }
    return families;
}

} // namespace type
