#pragma once

#include <OpenZyvo/ZStatus.h>
#include <OpenZyvoHost/ZHostSession.h>
#include <cstddef>
#include <string>
#include <vector>

namespace zyvo {

// The exit code of a usage error, as opposed to a failure of the work itself (1).
inline constexpr int kUsageError = 2;

struct HostOptions {
    bool quiet = false;   // errors only
    bool verbose = false; // echo the commands scripts run
    std::vector<std::string> pluginFolders;
    std::vector<std::string> scriptFolders;
    std::vector<std::string> plugins; // loaded before anything runs
};

// The runtime as the program drives it: where messages go, where plug-ins
// and scripts are found, and whether the run went well.
class Host {
public:
    explicit Host(const HostOptions& options);
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    const HostOptions& options() const { return m_options; }

    // Loads the plug-ins named on the command line, in order; stops at the
    // first that fails.
    ZStatus loadPlugins();

    // Ends the scene and unloads the plug-ins (see ZHost::Session); what
    // fails there counts in the exit code. Done at the latest when the host
    // goes, before the interpreter stops.
    void shutdown();

    // A note for the user, unless quiet.
    void info(const std::string& text) const;

    // Refuses an option's value that only the runtime can check, such as a
    // bound the plug-in sets: an error naming the option, and the run ends
    // as a usage error does.
    void refuseOption(const std::string& option, const std::string& why);

    // Shows the errors held back while quiet.
    void flushErrors();
    // 0 when `status` succeeded and no error was reported, kUsageError after
    // a refused option, else 1.
    int exitCode(ZStatus status);

private:
    HostOptions m_options;
    ZHost::Session m_session;
    std::size_t m_errorsShown = 0;
    bool m_optionRefused = false;
};

} // namespace zyvo
