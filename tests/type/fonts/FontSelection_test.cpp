#include "fonts/DefaultFont.h"
#include "fonts/FontFileEntries.h"
#include "fonts/FontSelection.h"

#include <OpenZyvo/ZStringResource.h>
#include <gtest/gtest.h>

namespace type {
namespace {

FontCatalogue oneFont() {
    FontCatalogue catalogue;
    catalogue.add({"Sans", "Book", "/fonts/sans.ttf", 0});
    return catalogue;
}

TEST(FontSelection, FoundFontNeedsNoMessage) {
    const FontSelection selection = selectFont(oneFont(), "Sans", "Bold");
    EXPECT_EQ(selection.path, "/fonts/sans.ttf");
    EXPECT_FALSE(selection.exactStyle);
    EXPECT_FALSE(selection.message);
}

TEST(FontSelection, UnknownFamilyIsNamedInTheMessageAndTheDefaultFontStandsIn) {
    const FontSelection selection = selectFont(oneFont(), "Arial", "Regular");
    ASSERT_TRUE(selection.message);
    EXPECT_EQ(selection.message->id.key(), "kTypeFontNotFound");
    EXPECT_EQ(
        selection.message->text(),
        "The current font (Arial) is missing or not suitable for Type. Please select a different font.");
    EXPECT_EQ(selection.path, defaultFontPath());
    EXPECT_EQ(selection.faceIndex, kDefaultFontFaceIndex);
}

TEST(FontSelection, EmptyFamilyAsksForAFontEvenWhenTheCatalogueHasOne) {
    FontCatalogue catalogue = oneFont();
    catalogue.add({"", "", "/fonts/nameless.ttf", 0});
    const FontSelection selection = selectFont(catalogue, "", "");
    ASSERT_TRUE(selection.message);
    EXPECT_EQ(selection.message->id.key(), "kTypeMissingFont");
    EXPECT_EQ(selection.message->text(), "No font specified.");
    EXPECT_EQ(selection.path, defaultFontPath());
}

TEST(FontSelection, MessageTextFollowsATranslationLoadedLater) {
    const FontMessage message = *selectFont(oneFont(), "Arial", "").message;
    ASSERT_TRUE(ZStringResource::loadTranslation("Type.kTypeFontNotFound = Schrift ^1s fehlt.\n"));
    EXPECT_EQ(message.text(), "Schrift Arial fehlt.");
    ZStringResource::clearTranslations();
    EXPECT_EQ(message.text().substring(0, 23), "The current font (Arial)");
}

TEST(DefaultFont, IsASerifItalic) {
    const std::vector<FontEntry> entries = readFontFileEntries(defaultFontPath());
    ASSERT_FALSE(entries.empty());
    EXPECT_EQ(entries[0].family, "Liberation Serif");
    EXPECT_EQ(entries[0].style, "Italic");
}

} // namespace
} // namespace type
