#include "SceneTest.h"
#include "commands/SourceFile.h"

#include <sys/stat.h>

namespace {

// Only regular files are read as scenes; anything else is refused by name
// and the scene open before stays as it was.
class SceneFileKinds : public SceneTest {
protected:
    void SetUp() override {
        SceneTest::SetUp();
        run("createNode transform -n kept");
        log().clear();
    }
    void expectRefused(const std::string& file, const std::string& why) {
        EXPECT_EQ(ZFileIO::open(ZString(file)), ZStatus::kNotFound);
        EXPECT_EQ(errors(), std::vector<std::string>{"Cannot open the scene file \"" + file + "\": " + why});
        EXPECT_EQ(run("objExists kept"), "true");
    }
};

TEST_F(SceneFileKinds, ADeviceIsRefusedInsteadOfReadForEver) {
    expectRefused("/dev/zero", "it is not a regular file");
}

TEST_F(SceneFileKinds, APipeIsRefusedWithoutWaitingForAWriter) {
    ASSERT_EQ(::mkfifo(path("pipe.zya").c_str(), 0600), 0);
    expectRefused(path("pipe.zya"), "it is not a regular file");
}

TEST_F(SceneFileKinds, AFolderIsRefused) {
    std::filesystem::create_directories(path("folder.zya"));
    expectRefused(path("folder.zya"), "it is not a regular file");
}

TEST_F(SceneFileKinds, AFileBeyondTheSizeBoundIsRefused) {
    write("huge.zya", "");
    std::filesystem::resize_file(path("huge.zya"), oz::cmd::kMaxSourceFileBytes + 1);
    expectRefused(path("huge.zya"), "it is larger than 512 MB, the most a script or scene file may hold");
}

TEST_F(SceneFileKinds, AMissingFileIsRefusedWithTheReason) {
    expectRefused(path("missing.zya"), "No such file or directory");
}

} // namespace
