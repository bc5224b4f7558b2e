#include "fonts/FontCatalogue.h"

#include <gtest/gtest.h>

namespace type {
namespace {

FontCatalogue catalogueOf(std::initializer_list<FontEntry> entries) {
    FontCatalogue catalogue;
    for (const FontEntry& entry : entries)
        catalogue.add(entry);
    return catalogue;
}

TEST(FontCatalogue, FirstEntryOfAFamilyAndStyleWins) {
    FontCatalogue catalogue;
    EXPECT_TRUE(catalogue.isEmpty());
    EXPECT_TRUE(catalogue.add({"X", "Y", "/a.ttf", 0}));
    EXPECT_FALSE(catalogue.add({"X", "Y", "/b.ttf", 3}));
    EXPECT_TRUE(catalogue.add({"X", "y", "/c.ttf", 0}));
    EXPECT_EQ(catalogue.size(), 2u);
    EXPECT_EQ(catalogue.fontStyleList(), (ZStringArray{"X", "Y", "X", "y"}));
    const auto match = catalogue.find("X", "Y");
    ASSERT_TRUE(match);
    EXPECT_EQ(match->path, "/a.ttf");
    EXPECT_TRUE(match->exactStyle);
}

TEST(FontCatalogue, MissingStyleFallsBackToTheLowestFaceIndex) {
    const FontCatalogue catalogue = catalogueOf({
        {"Sans", "Bold", "/collection.ttc", 2},
        {"Sans", "Regular", "/collection.ttc", 1},
        {"Sans", "Light", "/light.ttf", 1},
    });
    const auto match = catalogue.find("Sans", "Italic");
    ASSERT_TRUE(match);
    EXPECT_EQ(match->path, "/collection.ttc");
    EXPECT_EQ(match->faceIndex, 1u);
    EXPECT_FALSE(match->exactStyle);
}

TEST(FontCatalogue, ExactStyleBeatsALowerFaceIndex) {
    const FontCatalogue catalogue =
        catalogueOf({{"Sans", "Regular", "/r.ttf", 0}, {"Sans", "Bold", "/c.ttc", 4}});
    const auto match = catalogue.find("Sans", "Bold");
    ASSERT_TRUE(match);
    EXPECT_EQ(match->faceIndex, 4u);
    EXPECT_TRUE(match->exactStyle);
}

TEST(FontCatalogue, FamilyNamesCompareExactly) {
    const FontCatalogue catalogue = catalogueOf({{"Sans", "Regular", "/r.ttf", 0}});
    EXPECT_FALSE(catalogue.find("sans", "Regular"));
    EXPECT_FALSE(catalogue.find("Sans ", "Regular"));
    EXPECT_FALSE(catalogue.find("", ""));
    EXPECT_FALSE(catalogue.find("Sans", "regular")->exactStyle);
}

TEST(FontCatalogue, PickerListsGroupStylesUnderTheirFamily) {
    const FontCatalogue catalogue = catalogueOf({
        {"Serif", "Bold", "/1", 0},
        {"Sans", "Book", "/2", 0},
        {"Serif", "Regular", "/3", 0},
    });
    EXPECT_EQ(catalogue.familyNames(), (ZStringArray{"Sans", "Serif"}));
    EXPECT_EQ(catalogue.styleNames("Serif"), (ZStringArray{"Bold", "Regular"}));
    EXPECT_EQ(catalogue.styleNames("Mono").length(), 0u);
}

} // namespace
} // namespace type
