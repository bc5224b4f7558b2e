#include "../GoldenTable.h"
#include "fonts/FontMessages.h"
#include "plugin/TypeMessages.h"

#include <OpenZyvo/ZStringResource.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

using type::messages::text;

class TypeMessages : public ::testing::Test {
protected:
    void TearDown() override { ZStringResource::clearTranslations(); }
};

// The catalogue the plug-in registers is exactly the golden one: every key in
// the same order of registration, with the same default text.
TEST_F(TypeMessages, RegistersTheGoldenCatalogueInOrderWithItsDefaultTexts) {
    const std::vector<typetest::GoldenRow> expected = typetest::readGoldenTable("messages.tsv", 2);
    ASSERT_TRUE(type::messages::typeToolInitStrings());
    const auto registered = type::messages::registeredMessages();
    ASSERT_EQ(registered.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const ZStringResourceId& id = *registered[i];
        EXPECT_EQ(id.pluginId(), "Type");
        EXPECT_EQ(id.key(), expected[i][0]) << i;
        EXPECT_TRUE(ZStringResource::isRegistered(id)) << id.key();
        EXPECT_EQ(text(id).asStdString(), expected[i][1]) << id.key();
    }
}

TEST_F(TypeMessages, FillsTheFontNameIntoFontNotFound) {
    EXPECT_EQ(
        text(type::fontMessages::kTypeFontNotFound, "Arial"),
        "The current font (Arial) is missing or not suitable for Type. Please select a different font.");
    EXPECT_EQ(text(type::fontMessages::kTypeMissingFont), "No font specified.");
}

// Texts are fetched anew each time, so a translation loaded after start-up
// shows at once, placeholders and all.
TEST_F(TypeMessages, HonoursATranslationLoadedLater) {
    ASSERT_TRUE(type::messages::typeToolInitStrings());
    EXPECT_EQ(text(type::messages::kTypeManipName), "Type Manipulator");
    ASSERT_TRUE(ZStringResource::loadTranslation("Type.kTypeManipName = Typo-Manipulator\n"
                                                 "Type.kTypeFontNotFound = Schrift ^1s fehlt.\n"));
    EXPECT_EQ(text(type::messages::kTypeManipName), "Typo-Manipulator");
    EXPECT_EQ(text(type::fontMessages::kTypeFontNotFound, "Arial"), "Schrift Arial fehlt.");
}

} // namespace
