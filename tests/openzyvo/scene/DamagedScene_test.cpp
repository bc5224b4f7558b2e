#include "SceneTest.h"

#include <algorithm>

namespace {

constexpr const char* kDamaged = "//Zyvo ASCII scene\n"                                // 1
                                 "fileInfo \"version\" \"211\";\n"                     // 2
                                 "createNode sceneTestNode -n good;\n"                 // 3
                                 "setAttr \"good.weight\" 4;\n"                        // 4
                                 "createNode mysteryNode -n odd;\n"                    // 5
                                 "setAttr \"odd.size\" 3;\n"                           // 6
                                 "connectAttr \"odd.out\" \"good.input\";\n"           // 7
                                 "setAttr \"good.mode\" 7;\n"                          // 8
                                 "setAttr \"good.label\" -type \"string\" \"fine\";\n" // 9
                                 "connectAttr \"ghost.output\" \"good.input\";\n"      // 10
                                 "setAttr \"good.input\" 1 2 );\n"                     // 11
                                 "createNode sceneTestNode -n second;\n"               // 12
                                 "setAttr \"second.label\" -type \"string\" \"open;\n" // 13
                                 "setAttr \"second.weight\" 6;\n"                      // 14
                                 "connectAttr \"good.output\" \"second.input\";\n"     // 15
                                 "setAttr \"second.mode\" ";                           // 16

class DamagedScene : public SceneTest {
protected:
    // The error about `line` of the file, or an empty text.
    std::string errorAt(const std::string& file, int line) const {
        const std::string where = path(file) + ": line " + std::to_string(line) + ", ";
        for (const std::string& error : errors())
            if (error.starts_with(where))
                return error.substr(error.find(": ", where.size()) + 2);
        return {};
    }
};

TEST_F(DamagedScene, EachProblemIsReportedWithItsLineAndTheSoundRestLoads) {
    write("damaged.zya", kDamaged);
    EXPECT_EQ(ZFileIO::open(ZString(path("damaged.zya"))), ZStatus::kFailure);

    EXPECT_EQ(errorAt("damaged.zya", 5), "createNode: Unknown node type: mysteryNode");
    EXPECT_EQ(errorAt("damaged.zya", 6), "") << "statements about a node that was not made are skipped";
    EXPECT_EQ(errorAt("damaged.zya", 8), "setAttr: 'good.mode' has no field 7 (fields: Off=0, On=1, Auto=5)");
    EXPECT_EQ(errorAt("damaged.zya", 10), "connectAttr: No object matches name: ghost.output");
    EXPECT_EQ(errorAt("damaged.zya", 11), "syntax error: expected an argument or ';', found ')' ')'");
    EXPECT_EQ(errorAt("damaged.zya", 13), "syntax error: unterminated string");
    EXPECT_EQ(errorAt("damaged.zya", 16),
              "the file ends inside this statement (is it cut off?); it was not run");
    const auto warned = warnings();
    EXPECT_TRUE(std::any_of(warned.begin(), warned.end(), [](const std::string& w) {
        return w.ends_with("2 statements about nodes that could not be made were skipped");
    }));
    EXPECT_EQ(errors().back(), path("damaged.zya") + ": 6 errors while reading; everything else was loaded");

    EXPECT_EQ(run("getAttr good.weight"), "4");
    EXPECT_EQ(run("getAttr good.mode"), "1");
    EXPECT_EQ(run("getAttr good.label"), "fine");
    EXPECT_EQ(run("getAttr second.weight"), "6");
    EXPECT_EQ(strings("listConnections -p true second.input"), std::vector<std::string>{"good.output"});
    EXPECT_EQ(strings("ls -type sceneTestNode"), (std::vector<std::string>{"good", "second"}));
}

TEST_F(DamagedScene, ColumnsAreCountedWithinTheLine) {
    write("columns.zya", "createNode transform -n a;   setAttr \"a.translateX\" \"far\";\n");
    ZFileIO::open(ZString(path("columns.zya")));
    const auto reported = errors();
    EXPECT_TRUE(std::any_of(reported.begin(), reported.end(), [&](const std::string& e) {
        return e == path("columns.zya") +
                        ": line 1, column 30: setAttr: 'a.translateX' takes numbers, found \"far\"";
    })) << ::testing::PrintToString(reported);
}

TEST_F(DamagedScene, UnfinishedCompoundsAreReported) {
    write("compound.zya",
          "createNode transform -n a;\naddAttr -ln pos -at double3 a;\naddAttr -ln posX -p pos a;\n");
    EXPECT_FALSE(ZFileIO::open(ZString(path("compound.zya"))));
    EXPECT_EQ(errors()[errors().size() - 2],
              path("compound.zya") +
                  ": the compound attribute 'pos' of 'a' never got all its children and was not added");
    EXPECT_EQ(run("objExists a.posX"), "false");
    run("addAttr -ln pos -at double a");
}

TEST_F(DamagedScene, GarbageNeverCrashesOrHangs) {
    static constexpr char kAlphabet[] = "ab.;\"()[]-1e5,\n\\/* \0\xff";
    const std::string_view alphabet(kAlphabet, sizeof kAlphabet - 1);
    unsigned int seed = 12345;
    for (int round = 0; round < 40; ++round) {
        std::string text = round % 2 ? "createNode sceneTestNode -n n;\nsetAttr n.weight " : "";
        for (int i = 0; i < 400; ++i) {
            seed = seed * 1103515245u + 12345u;
            text += alphabet[(seed >> 16) % alphabet.size()];
        }
        write("garbage.zya", text);
        ZFileIO::open(ZString(path("garbage.zya")));
    }
    std::string deep;
    for (int i = 0; i < 5000; ++i)
        deep += "f(";
    write("deep.zya", deep + ";\ncreateNode transform -n survivor;");
    ZFileIO::open(ZString(path("deep.zya")));
    EXPECT_EQ(run("objExists survivor"), "true");
}

TEST_F(DamagedScene, AFileCannotReplaceTheSceneItIsReadInto) {
    write("self.zya", "createNode transform -n before;\nfile -f -open \"" + path("self.zya") +
                          "\";\nfile -f -new;\ncreateNode transform -n after;\n");
    EXPECT_FALSE(ZFileIO::open(ZString(path("self.zya"))));
    EXPECT_EQ(strings("ls -type transform"), (std::vector<std::string>{"before", "after"}));
    EXPECT_EQ(errorAt("self.zya", 2), "The scene cannot be replaced while a scene file is being read");
    EXPECT_EQ(errorAt("self.zya", 3), "The scene cannot be replaced while a scene file is being read");
}

} // namespace
