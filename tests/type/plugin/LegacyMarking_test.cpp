#include "PluginTesting.h"

namespace typetest {
namespace {

// A scene of `version` with a type node and an svgToPoly node.
std::string sceneOfVersion(int version) {
    return "//Zyvo ASCII scene\n"
           "fileInfo \"version\" \"" +
           std::to_string(version) +
           "\";\n"
           "requires \"Type\" \"2.0a\";\n"
           "createNode type -n \"text1\";\n"
           "createNode svgToPoly -n \"art1\";\n";
}

class LegacyMarking : public TypePluginTest {
protected:
    void open(int version) {
        const auto path = writeFile("scene" + std::to_string(version) + ".zya", sceneOfVersion(version));
        ASSERT_TRUE(run("file -open -f \"" + path.string() + "\"")) << version;
    }

    static int flag(const std::string& plug) { return number("getAttr " + plug); }
};

TEST_F(LegacyMarking, Version201KeepsBothOldDecompositions) {
    open(201);
    EXPECT_EQ(flag("text1.legacyDecomposition"), 1);
    EXPECT_EQ(flag("text1.preTLDecompose"), 1);
    EXPECT_EQ(flag("art1.legacy2018"), 0);
}

TEST_F(LegacyMarking, Version205KeepsOnlyThePreLayoutDecomposition) {
    open(205);
    EXPECT_EQ(flag("text1.legacyDecomposition"), 0);
    EXPECT_EQ(flag("text1.preTLDecompose"), 1);
    EXPECT_EQ(flag("art1.legacy2018"), 0);
}

// 210 is below 211, yet nothing is marked: the outer test stops at 210.
TEST_F(LegacyMarking, Version210AndLaterMarkNothing) {
    for (int version : {210, 211}) {
        open(version);
        EXPECT_EQ(flag("text1.legacyDecomposition"), 0) << version;
        EXPECT_EQ(flag("text1.preTLDecompose"), 0) << version;
        EXPECT_EQ(flag("art1.legacy2018"), 0) << version;
    }
}

// The list of nodes read is emptied after each read: a node made after an old
// file was opened, and the nodes of a newer file opened next, stay unmarked.
TEST_F(LegacyMarking, OnlyNodesOfTheFileBeingReadAreMarked) {
    open(201);
    ASSERT_EQ(text("createNode type -n later1"), "later1");
    EXPECT_EQ(flag("later1.legacyDecomposition"), 0);
    EXPECT_EQ(flag("later1.preTLDecompose"), 0);

    open(211);
    EXPECT_EQ(flag("text1.legacyDecomposition"), 0);
    EXPECT_EQ(flag("text1.preTLDecompose"), 0);
}

// A saved flag is a value of the scene like any other.
TEST_F(LegacyMarking, MarkedNodesKeepTheirFlagsWhenSavedAgain) {
    open(201);
    const auto resaved = testFolder() / "resaved.zya";
    ASSERT_TRUE(run("file -rename \"" + resaved.string() + "\""));
    ASSERT_TRUE(run("file -save"));
    ASSERT_TRUE(run("file -open -f \"" + resaved.string() + "\""));
    EXPECT_EQ(flag("text1.legacyDecomposition"), 1);
    EXPECT_EQ(flag("text1.preTLDecompose"), 1);
}

} // namespace
} // namespace typetest
