#include "plugins/ApiVersion.h"

#include <OpenZyvo/ZApiVersion.h>
#include <gtest/gtest.h>

namespace {

using namespace oz::plugins;

TEST(ApiVersion, LibrariesOfTheSameMajorVersionAndNoNewerLoad) {
    EXPECT_EQ(apiIncompatibility(OPENZYVO_API_VERSION), "");
    EXPECT_NE(apiIncompatibility(OPENZYVO_API_VERSION + 1), "")
        << "a newer patch may use what is missing here";
    EXPECT_NE(apiIncompatibility(OPENZYVO_API_VERSION + 10000), "");
    EXPECT_NE(apiIncompatibility(OPENZYVO_API_VERSION - 10000), "") << "an older major version";
    EXPECT_NE(apiIncompatibility(0), "");
}

TEST(ApiVersion, RequiredVersionsAreReadInEitherForm) {
    EXPECT_TRUE(meetsRequiredApi("Any"));
    EXPECT_TRUE(meetsRequiredApi("2.0"));
    EXPECT_TRUE(meetsRequiredApi("1.5.3"));
    EXPECT_TRUE(meetsRequiredApi(std::to_string(OPENZYVO_API_VERSION)));
    EXPECT_FALSE(meetsRequiredApi("2.1"));
    EXPECT_FALSE(meetsRequiredApi("3"));
    EXPECT_FALSE(meetsRequiredApi("2.x"));
    EXPECT_FALSE(meetsRequiredApi("2.0.0.1"));
    EXPECT_FALSE(meetsRequiredApi("latest"));
}

} // namespace
