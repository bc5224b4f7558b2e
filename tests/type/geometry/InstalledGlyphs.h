#pragma once

#include <fontconfig/fontconfig.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

// Which characters an installed font draws, as texts for the type node: the cap tests and the cap
// benchmarks go over every glyph of a font.
namespace type {

using FcPatternPtr = std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)>;

// The styles fontconfig lists for `family` (as its first family name) with every character each
// covers, outside the controls and spaces, which draw nothing.
inline std::vector<std::pair<std::string, std::u32string>> installedStyles(const char* family) {
    FcPatternPtr pattern(FcPatternCreate(), &FcPatternDestroy);
    FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family));
    std::unique_ptr<FcObjectSet, decltype(&FcObjectSetDestroy)> wanted(
        FcObjectSetBuild(FC_FAMILY, FC_STYLE, FC_CHARSET, nullptr), &FcObjectSetDestroy);
    std::unique_ptr<FcFontSet, decltype(&FcFontSetDestroy)> fonts(
        FcFontList(nullptr, pattern.get(), wanted.get()), &FcFontSetDestroy);
    std::vector<std::pair<std::string, std::u32string>> styles;
    for (int i = 0; fonts && i < fonts->nfont; ++i) {
        FcChar8* first = nullptr;
        FcChar8* style = nullptr;
        FcCharSet* charset = nullptr;
        if (FcPatternGetString(fonts->fonts[i], FC_FAMILY, 0, &first) != FcResultMatch ||
            std::string(reinterpret_cast<const char*>(first)) != family ||
            FcPatternGetString(fonts->fonts[i], FC_STYLE, 0, &style) != FcResultMatch ||
            FcPatternGetCharSet(fonts->fonts[i], FC_CHARSET, 0, &charset) != FcResultMatch)
            continue;
        std::u32string characters;
        FcChar32 page[FC_CHARSET_MAP_SIZE];
        FcChar32 next = 0;
        for (FcChar32 base = FcCharSetFirstPage(charset, page, &next); base != FC_CHARSET_DONE;
             base = FcCharSetNextPage(charset, page, &next)) {
            for (int word = 0; word < FC_CHARSET_MAP_SIZE; ++word) {
                for (int bit = 0; bit < 32; ++bit) {
                    const char32_t c = base + 32 * word + bit;
                    if ((page[word] >> bit & 1) && c > 0x20 && !(c >= 0x7f && c <= 0xa0) && c != 0xad &&
                        !(c >= 0x2000 && c <= 0x200f) && !(c >= 0x2028 && c <= 0x202f) && c < 0xd800)
                        characters += c;
                }
            }
        }
        styles.emplace_back(reinterpret_cast<const char*>(style), std::move(characters));
    }
    return styles;
}

// Every covered character once, 64 to a line.
inline std::string utf8Lines(const std::u32string& characters) {
    std::string text;
    for (size_t i = 0; i < characters.size(); ++i) {
        if (i > 0 && i % 64 == 0)
            text += '\n';
        const char32_t c = characters[i];
        if (c < 0x80) {
            text += static_cast<char>(c);
        } else if (c < 0x800) {
            text += static_cast<char>(0xc0 | c >> 6);
            text += static_cast<char>(0x80 | (c & 0x3f));
        } else if (c < 0x10000) {
            text += static_cast<char>(0xe0 | c >> 12);
            text += static_cast<char>(0x80 | (c >> 6 & 0x3f));
            text += static_cast<char>(0x80 | (c & 0x3f));
        } else {
            text += static_cast<char>(0xf0 | c >> 18);
            text += static_cast<char>(0x80 | (c >> 12 & 0x3f));
            text += static_cast<char>(0x80 | (c >> 6 & 0x3f));
            text += static_cast<char>(0x80 | (c & 0x3f));
        }
    }
    return text;
}

} // namespace type
