#include "FontTestData.h"
#include "fonts/FontFace.h"

#include <gtest/gtest.h>

namespace type {
namespace {

using test::fontData;

ZString failureKey(const ZString& path, std::uint32_t faceIndex) {
    const auto loaded = FontFace::load(path, faceIndex);
    if (const auto* message = std::get_if<FontMessage>(&loaded))
        return message->id.key();
    return "loaded";
}

TEST(FontFace, LoadsTheChosenFaceAtOneHundredPoints) {
    const auto loaded = FontFace::load(fontData("installed/a-collection.ttc"), 1);
    const auto* font = std::get_if<FontFace>(&loaded);
    ASSERT_TRUE(font);
    EXPECT_STREQ(font->face()->family_name, "Liberation Serif");
    EXPECT_STREQ(font->face()->style_name, "Bold");
    // 100 points at the default 72 dpi.
    EXPECT_EQ(font->face()->size->metrics.x_ppem, 100);
}

TEST(FontFace, EachKindOfFailureHasItsMessage) {
    EXPECT_EQ(failureKey(fontData("installed/notes.txt"), 0), "kTypeUnsupportedFont");
    EXPECT_EQ(failureKey(fontData("installed/missing.ttf"), 0), "kTypeNoLoadFont");
    EXPECT_EQ(failureKey("", 0), "kTypeNoLoadFont");
    EXPECT_EQ(failureKey(fontData("installed/a-collection.ttc"), 2), "kTypeNoLoadFont");
    // Cut short, the font's tables are missing, so no driver claims it.
    EXPECT_EQ(failureKey(fontData("installed/broken.ttf"), 0), "kTypeUnsupportedFont");
    // A bitmap-only font opens but has no 100-point size.
    EXPECT_EQ(failureKey(fontData("installed/bitmap.bdf"), 0), "kTypeErrorFTSetChar");
}

} // namespace
} // namespace type
