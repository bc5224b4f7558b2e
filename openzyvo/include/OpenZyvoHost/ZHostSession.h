#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZStatus.h>
#include <string>
#include <vector>

namespace ZHost {

struct SessionOptions {
    // Show messages on the terminal as they come; a quiet host turns this off
    // and reads the errors back from the message log (see ZHostMessages.h).
    bool showMessages = true;
    // Searched before ZYVO_PLUG_IN_PATH / ZYVO_SCRIPT_PATH and the folders
    // installed beside the program.
    std::vector<std::string> pluginFolders;
    std::vector<std::string> scriptFolders;
};

// One run of the runtime in a host program. There is one scene per process,
// so a host makes one session, in main, and ends it before it exits: not as
// a static, which would end after parts of the runtime are gone.
class OZ_API Session {
public:
    explicit Session(const SessionOptions& options);
    // Shuts down when the host has not, then stops the Python interpreter.
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // Ends the scene in the one order that keeps a plug-in's code mapped for
    // as long as anything made by it exists: idle work, the undo queue, the
    // nodes, then the plug-ins, latest first. Only the first call does
    // anything; the interpreter still runs afterwards.
    ZStatus shutdown();

private:
    bool m_shutDown = false;
};

// The version of the API this runtime implements, as "2.0.0".
OZ_API std::string apiVersionText();

} // namespace ZHost
