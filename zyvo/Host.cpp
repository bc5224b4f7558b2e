#include "Host.h"

#include "commands/MessageLog.h"
#include "plugins/PluginRegistry.h"
#include "plugins/RuntimeShutdown.h"
#include "plugins/SearchPaths.h"
#include "python/PythonRuntime.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

namespace zyvo {

namespace {

oz::cmd::MessageLog& messageLog() {
    return oz::cmd::MessageLog::instance();
}

} // namespace

Host::Host(const HostOptions& options)
    : m_options(options) {
    // Quiet runs show their errors themselves (flushErrors), since the log
    // streams everything or nothing.
    messageLog().setStreamOutput(!options.quiet);
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

Host::~Host() {
    shutdown();
    flushErrors();
    oz::python::shutdown();
}

void Host::shutdown() {
    if (m_shutDown)
        return;
    m_shutDown = true;
    oz::plugins::shutdownRuntime();
}

ZStatus Host::loadPlugins() {
    for (const std::string& plugin : m_options.plugins) {
        std::string name;
        if (const ZStatus status = oz::plugins::PluginRegistry::instance().load(plugin, name); !status)
            return status;
        if (m_options.verbose)
            info("Loaded plug-in " + name + " from " +
                 oz::plugins::PluginRegistry::instance().find(name)->library.string());
    }
    return ZStatus::kSuccess;
}

void Host::info(const std::string& text) const {
    if (!m_options.quiet)
        std::fprintf(stdout, "%s\n", text.c_str());
}

void Host::flushErrors() {
    const std::size_t count = messageLog().errorCount();
    if (m_options.quiet && count > m_errorsShown) {
        const auto errors = messageLog().texts(oz::cmd::MessageLog::Kind::Error);
        const std::size_t fresh = std::min(count - m_errorsShown, errors.size());
        for (std::size_t i = errors.size() - fresh; i < errors.size(); ++i)
            std::fprintf(stderr, "// Error: %s\n", errors[i].c_str());
    }
    m_errorsShown = count;
    std::fflush(stdout);
    std::fflush(stderr);
}

int Host::exitCode(ZStatus status) {
    flushErrors();
    return status && messageLog().errorCount() == 0 ? 0 : 1;
}

} // namespace zyvo
