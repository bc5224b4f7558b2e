#include "SceneTest.h"

namespace {

using FailingSceneStatements = SceneTest;

// Each failing statement of a damaged file used to copy the whole message
// log to see whether its error named the line, so a file of many failing
// statements took quadratic time. Reading one must not copy the log at all.
TEST_F(FailingSceneStatements, ReportingAFailureDoesNotCopyTheLog) {
    std::string text = "fileInfo \"version\" \"211\";\ncreateNode transform -n a;\n";
    for (int i = 0; i < 50; ++i)
        text += "noSuchCommand 1;\nsetAttr \"a.translate[-1]\" 1;\nsetAttr \"a.translateX\" \"far\";\n";
    write("failing.zya", text);
    const std::size_t copiesBefore = log().copiesMade();
    const std::size_t errorsBefore = log().errorCount();
    EXPECT_EQ(ZFileIO::open(ZString(path("failing.zya"))), ZStatus::kFailure);
    EXPECT_EQ(log().copiesMade(), copiesBefore);
    EXPECT_EQ(log().errorCount() - errorsBefore, 151u) << "one error a statement, and the summary";
}

} // namespace
