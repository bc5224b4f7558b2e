#include "SceneTest.h"

#include <algorithm>

namespace {

class SceneFileText : public SceneTest {
protected:
    bool reported(const std::string& error) const {
        const auto all = errors();
        return std::find(all.begin(), all.end(), error) != all.end();
    }
};

TEST_F(SceneFileText, AnUnterminatedCommentIsReportedNotSilentlyDropped) {
    write("open.zya", "createNode transform -n before;\n"
                      "  /* the rest\n"
                      "createNode transform -n after;\n");
    EXPECT_EQ(ZFileIO::open(ZString(path("open.zya"))), ZStatus::kFailure);
    EXPECT_TRUE(reported(path("open.zya") +
                         ": line 2, column 3: this comment is never closed; nothing after it was read"))
        << ::testing::PrintToString(errors());
    EXPECT_EQ(run("objExists before"), "true");

    write("inside.zya", "createNode transform -n a; createNode transform -n b /* open;\n"
                        "createNode transform -n c;\n");
    EXPECT_EQ(ZFileIO::open(ZString(path("inside.zya"))), ZStatus::kFailure);
    EXPECT_TRUE(reported(path("inside.zya") +
                         ": line 1, column 54: this comment is never closed; nothing after it was read"))
        << ::testing::PrintToString(errors());
    EXPECT_EQ(strings("ls -type transform"), std::vector<std::string>{"a"});
}

TEST_F(SceneFileText, CarriageReturnLineEndsLoadEveryStatement) {
    for (const std::string end : {"\r", "\r\n"}) {
        log().clear();
        write("ends.zya", "//Zyvo ASCII scene" + end + "fileInfo \"version\" \"211\";" + end +
                              "createNode transform -n a;" + end + "// a note" + end +
                              "setAttr \"a.translateX\" 2;" + end + "setAttr \"a.noSuchThing\" 1;" + end);
        EXPECT_EQ(ZFileIO::open(ZString(path("ends.zya"))), ZStatus::kFailure);
        EXPECT_EQ(number("getAttr a.translateX"), 2.0);
        ASSERT_EQ(errors().size(), 2u) << ::testing::PrintToString(errors());
        EXPECT_TRUE(errors()[0].starts_with(path("ends.zya") + ": line 6, column 1: setAttr: "))
            << errors()[0];
    }
}

TEST_F(SceneFileText, AByteOrderMarkIsNotACommand) {
    write("marked.zya", "\xEF\xBB\xBF//Zyvo ASCII scene\nfileInfo \"version\" \"211\";\n"
                        "createNode transform -n a;\n");
    EXPECT_TRUE(ZFileIO::open(ZString(path("marked.zya")))) << ::testing::PrintToString(errors());
    EXPECT_EQ(run("objExists a"), "true");
}

TEST_F(SceneFileText, AnEmptyFileOpensAsAnEmptyScene) {
    run("createNode transform -n old");
    write("empty.zya", "");
    EXPECT_TRUE(ZFileIO::open(ZString(path("empty.zya")))) << ::testing::PrintToString(errors());
    EXPECT_EQ(run("objExists old"), "false");
    EXPECT_EQ(ZFileIO::currentFile().asStdString(), path("empty.zya"));
}

} // namespace
