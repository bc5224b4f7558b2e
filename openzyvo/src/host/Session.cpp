#include "plugins/ApiVersion.h"
#include "plugins/RuntimeShutdown.h"
#include "plugins/SearchPaths.h"
#include "python/PythonRuntime.h"

#include <OpenZyvo/ZApiVersion.h>
#include <OpenZyvoHost/ZHostMessages.h>
#include <OpenZyvoHost/ZHostSession.h>
#include <filesystem>

namespace ZHost {

Session::Session(const SessionOptions& options) {
    showMessages(options.showMessages);
    auto& paths = oz::plugins::SearchPaths::instance();
    for (const std::string& folder : options.pluginFolders)
        paths.addPluginFolder(folder);
    for (const std::string& folder : options.scriptFolders)
        paths.addScriptFolder(folder);
    // Scripts and Python code import from every script folder, not only
    // plug-ins' own; the interpreter takes them when it starts.
    for (const auto& folder : paths.scriptFolders())
        if (std::error_code error; std::filesystem::is_directory(folder, error))
            oz::python::addScriptFolder(folder.string());
}

Session::~Session() {
    shutdown();
    oz::python::shutdown();
}

ZStatus Session::shutdown() {
    if (m_shutDown)
        return ZStatus::kSuccess;
    m_shutDown = true;
    return oz::plugins::shutdownRuntime();
}

std::string apiVersionText() {
    return oz::plugins::formatApiVersion(OPENZYVO_API_VERSION);
}

} // namespace ZHost
