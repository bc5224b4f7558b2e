#include "commands/CommandRegistry.h"
#include "commands/MessageLog.h"

#include <OpenZyvo/ZFileIO.h>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace {

// Scene files longer than this find nothing the shorter ones do not.
constexpr std::size_t kMaxSceneBytes = 16384;

// The file the bytes are written to, one per fuzzing process. A scene's
// statements may run any built-in command, except those that reach outside
// the process: other files on disk, Python, shared libraries.
const std::string& prepare() {
    static const std::string path = [] {
        oz::cmd::MessageLog::instance().setStreamOutput(false);
        for (const char* name : {"file", "python", "loadPlugin", "unloadPlugin"})
            oz::cmd::CommandRegistry::instance().remove(name);
        return (std::filesystem::temp_directory_path() /
                ("zyvo_scene_reader_fuzz_" + std::to_string(::getpid()) + ".zya"))
            .string();
    }();
    return path;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string& path = prepare();
    if (size > kMaxSceneBytes)
        return -1;
    {
        std::ofstream file(path, std::ios::binary | std::ios::trunc);
        file.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    }
    ZFileIO::open(ZString(path));
    ZFileIO::newFile(true);
    oz::cmd::MessageLog::instance().clear();
    return 0;
}
