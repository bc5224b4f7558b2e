#include "ProgramRunner.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

// The runtime folder the program's own Python sees, with the session's
// folder unset and the temporary folder given.
std::string runtimeFolderSeen(const TempFolder& temporary) {
    ProgramRun run;
    run.args = {"python", "-c", "import os; print(os.environ.get('XDG_RUNTIME_DIR', 'unset'))"};
    run.environment = {{"XDG_RUNTIME_DIR", ""}, {"TMPDIR", temporary.path().string()}};
    const ProgramResult result = runProgram(run);
    EXPECT_EQ(result.exitCode, 0) << result.err;
    return result.out.substr(0, result.out.find('\n'));
}

TEST(ProcessEnvironment, ASessionWithoutRuntimeFolderGetsAPrivateOne) {
    const TempFolder temporary;
    const fs::path folder = runtimeFolderSeen(temporary);
    ASSERT_EQ(folder.parent_path(), temporary.path()) << folder;
    struct stat info {};
    ASSERT_EQ(::lstat(folder.c_str(), &info), 0) << folder;
    EXPECT_TRUE(S_ISDIR(info.st_mode));
    EXPECT_EQ(info.st_mode & 07777, 0700u);
    EXPECT_EQ(info.st_uid, ::geteuid());

    // A later run takes the same folder and makes it private again.
    ASSERT_EQ(::chmod(folder.c_str(), 0755), 0);
    EXPECT_EQ(fs::path(runtimeFolderSeen(temporary)), folder);
    ASSERT_EQ(::lstat(folder.c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0700u);
}

TEST(ProcessEnvironment, ARuntimeFolderNameTakenByAnotherFileIsNotUsed) {
    const TempFolder temporary;
    const fs::path squatter = temporary.write("zyvo-runtime-" + std::to_string(::geteuid()), "not a folder");
    EXPECT_EQ(runtimeFolderSeen(temporary), "unset");
    EXPECT_EQ(readFile(squatter), "not a folder");
}

} // namespace
