#include "FontChoice.h"

#include <gtest/gtest.h>

namespace {

using zyvo::chooseStyle;
using zyvo::fontFamilies;
using zyvo::FontFamily;

TEST(FontChoice, FamiliesKeepTheOrderTheyWereFoundIn) {
    const auto families =
        fontFamilies({"Sans", "Bold", "Serif", "Italic", "Sans", "Book", "Serif", "Regular", "Mono"});
    ASSERT_EQ(families.size(), 2u) << "the trailing name has no style";
    EXPECT_EQ(families[0].name, "Sans");
    EXPECT_EQ(families[0].styles, (std::vector<std::string>{"Bold", "Book"}));
    EXPECT_EQ(families[1].name, "Serif");
    EXPECT_EQ(families[1].styles, (std::vector<std::string>{"Italic", "Regular"}));
    EXPECT_EQ(zyvo::findFamily(families, "Serif"), &families[1]);
    EXPECT_EQ(zyvo::findFamily(families, "serif"), nullptr) << "family names are compared as the node does";
}

TEST(FontChoice, AFamilyWithoutAStyleGetsItsRegularFaceNotTheFirstFound) {
    EXPECT_EQ(chooseStyle({"Sans", {"Bold", "Oblique", "Book"}}, std::nullopt).style, "Book");
    EXPECT_EQ(chooseStyle({"Serif", {"Italic", "Roman", "Regular"}}, std::nullopt).style, "Regular");
    EXPECT_EQ(chooseStyle({"Display", {"Black", "Light"}}, std::nullopt).style, "Black");
    EXPECT_FALSE(chooseStyle({"Sans", {"Bold", "Book"}}, std::nullopt).unknown);
}

TEST(FontChoice, AStyleTheFamilyLacksIsUnknownAndGetsTheRegularFace) {
    const FontFamily sans{"Sans", {"Bold", "Book", "Bold Oblique"}};
    for (const char* missing : {"Regular", "Foo", ""}) {
        const auto choice = chooseStyle(sans, std::string(missing));
        EXPECT_TRUE(choice.unknown) << missing;
        EXPECT_EQ(choice.style, "Book") << missing;
    }
    EXPECT_EQ(chooseStyle(sans, std::string("Bold Oblique")).style, "Bold Oblique");
    const auto caseless = chooseStyle(sans, std::string("bold oblique"));
    EXPECT_EQ(caseless.style, "Bold Oblique");
    EXPECT_FALSE(caseless.unknown);
}

} // namespace
