#include <OpenZyvo/ZStringResource.h>
#include <gtest/gtest.h>

namespace {
const ZStringResourceId kNotFound("Type", "kTypeFontNotFound",
                                  "The current font (^1s) is missing or not suitable for Type.");
const ZStringResourceId kOther("Type", "kTypeName", "Type");
} // namespace

TEST(ZStringResource, ReturnsTheDefaultUntilATranslationIsLoaded) {
    ZStringResource::clearTranslations();
    ZStatus status;
    EXPECT_EQ(ZStringResource::getString(kNotFound, status), kNotFound.defaultText());
    EXPECT_TRUE(status);

    ASSERT_TRUE(ZStringResource::loadTranslation("# German\n"
                                                 "Type.kTypeFontNotFound = Die Schrift (^1s) fehlt.\\n\n"));
    EXPECT_EQ(ZStringResource::getString(kNotFound, status), "Die Schrift (^1s) fehlt.\n");
    EXPECT_EQ(ZStringResource::getString(kOther, status), "Type");

    ZStringResource::clearTranslations();
    EXPECT_EQ(ZStringResource::getString(kNotFound, status), kNotFound.defaultText());
}

TEST(ZStringResource, RejectsAMalformedTableWithoutPartialLoads) {
    ZStringResource::clearTranslations();
    EXPECT_FALSE(ZStringResource::loadTranslation("Type.kTypeName = Typ\nno equals sign here\n"));
    ZStatus status;
    EXPECT_EQ(ZStringResource::getString(kOther, status), "Type");
}

TEST(ZStringResource, RegistrationIsRecorded) {
    EXPECT_TRUE(ZStringResource::registerString(kOther));
    EXPECT_TRUE(ZStringResource::isRegistered(kOther));
    EXPECT_FALSE(ZStringResource::registerString(ZStringResourceId("Type", "", "x")));
}
