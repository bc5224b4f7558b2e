#include "fonts/FontMessages.h"
#include "plugin/TypeMessages.h"

#include <OpenZyvo/ZStringResource.h>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace {

using type::messages::text;

class TypeMessages : public ::testing::Test {
protected:
    void TearDown() override { ZStringResource::clearTranslations(); }
};

// Translation tables and the host's scripts know the texts by these keys, in
// this order of registration.
TEST_F(TypeMessages, RegistersTheCatalogueInOrderWithItsDefaultTexts) {
    const std::vector<std::pair<std::string, std::string>> expected = {
        {"kTypeName", "Type"},
        {"kTypeManipName", "Type Manipulator"},
        {"kTypeParseError", "assignShaderCommand:  Could not parse argument list"},
        {"kTypeMissingFlagsError", "assignShaderCommand:  Missing flag arguements"},
        {"kGroupIDArgsError", "assignShaderCommand:  Could not retrieve groupIdNode command argument"},
        {"kShaderGroupArgsError", "assignShaderCommand:  Could not retrieve shader group command argument"},
        {"kMeshArgsError", "assignShaderCommand:  Could not retrieve mesh command argument"},
        {"kInvalidTriError", "TypeTool:  No valid triangulation found."},
        {"kNoSVGFound", "No SVG file found."},
        {"kFileLoadError", "Failed to load file: "},
        {"kSVGParseError", "Error parsing SVG."},
        {"kSVGNbPointsError", "Unexpected number of points for SVG path."},
        {"kSVGEvenodd", "\"Evenodd\" fill-rule not supported."},
        {"kSVGImages", "Non-vector images not supported."},
        {"kSVGStrokes", "Strokes not supported."},
        {"kSVGOpacity", "Opacity not supported."},
        {"kSVGVisibility", "Hidden elements not supported."},
        {"kSVGSmall", "Artwork dimensions are small. There may be unexpected results."},
        {"kSVGOverlapholes", "Not fully contained holes are not supported."},
        {"kTypeManipHelp", "Move, Rotate, and Scale characters, words or lines."},
        {"kTypeManipConnectError", "Error connecting Type manipulator to selected object"},
        {"kDistanceField", "Distance Field"},
        {"kNormals", "Normals"},
        {"kTypeExtrudeNoMesh", "Node TypeExtrude cannot get input mesh\n"},
        {"kTypeSVGNoValidInput", "No valid input. Check the Script Editor for more info."},
        {"kSVGMultipleIssues", "SVG issues: Check the Script Editor for more info."},
    };
    ASSERT_TRUE(type::messages::typeToolInitStrings());
    const auto registered = type::messages::registeredMessages();
    ASSERT_EQ(registered.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const ZStringResourceId& id = *registered[i];
        EXPECT_EQ(id.pluginId(), "Type");
        EXPECT_EQ(id.key(), expected[i].first) << i;
        EXPECT_TRUE(ZStringResource::isRegistered(id)) << id.key();
        EXPECT_EQ(text(id).asStdString(), expected[i].second) << id.key();
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
