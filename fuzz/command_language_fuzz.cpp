#include "commands/CommandRegistry.h"
#include "commands/IdleQueue.h"
#include "commands/Interpreter.h"
#include "commands/MessageLog.h"
#include "commands/UndoQueue.h"

#include <OpenZyvo/ZFileIO.h>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace {

// Scripts longer than this find nothing the shorter ones do not, and keep
// every run quick enough that a slow input stands out.
constexpr std::size_t kMaxScriptBytes = 4096;

// The built-in commands stay registered, except those that reach outside
// the process: files on disk, Python, shared libraries.
bool prepare() {
    oz::cmd::MessageLog::instance().setStreamOutput(false);
    for (const char* name : {"file", "python", "loadPlugin", "unloadPlugin"})
        oz::cmd::CommandRegistry::instance().remove(name);
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const bool prepared = prepare();
    (void)prepared;
    if (size > kMaxScriptBytes)
        return -1;
    const std::string_view script(reinterpret_cast<const char*>(data), size);
    oz::cmd::runScript(script, {false, true}, "fuzz.zys");
    oz::cmd::UndoQueue::instance().clear();
    oz::cmd::IdleQueue::instance().clear();
    ZFileIO::newFile(true);
    oz::cmd::MessageLog::instance().clear();
    return 0;
}
