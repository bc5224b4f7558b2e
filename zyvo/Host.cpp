#include "Host.h"

#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvoHost/ZHostMessages.h>
#include <OpenZyvoHost/ZHostPlugins.h>
#include <cstdio>

namespace zyvo {

namespace {

ZHost::SessionOptions sessionOptions(const HostOptions& options) {
    ZHost::SessionOptions session;
    // Quiet runs show their errors themselves (flushErrors), since the log
    // streams everything or nothing.
    session.showMessages = !options.quiet;
    session.pluginFolders = options.pluginFolders;
    session.scriptFolders = options.scriptFolders;
    return session;
}

} // namespace

Host::Host(const HostOptions& options)
    : m_options(options)
    , m_session(sessionOptions(options)) {}

Host::~Host() {
    shutdown();
    flushErrors();
}

void Host::shutdown() {
    m_session.shutdown();
}

ZStatus Host::loadPlugins() {
    for (const std::string& plugin : m_options.plugins) {
        std::string name;
        if (const ZStatus status = ZHost::loadPlugin(plugin, &name); !status)
            return status;
        if (m_options.verbose)
            info("Loaded plug-in " + name + " from " + ZHost::pluginLibrary(name));
    }
    return ZStatus::kSuccess;
}

void Host::info(const std::string& text) const {
    if (!m_options.quiet)
        std::fprintf(stdout, "%s\n", text.c_str());
}

void Host::refuseOption(const std::string& option, const std::string& why) {
    ZGlobal::displayError(ZString(option + ": " + why));
    m_optionRefused = true;
}

void Host::flushErrors() {
    if (m_options.quiet)
        for (const std::string& error : ZHost::errorsSince(m_errorsShown))
            std::fprintf(stderr, "// Error: %s\n", error.c_str());
    m_errorsShown = ZHost::errorCount();
    std::fflush(stdout);
    std::fflush(stderr);
}

int Host::exitCode(ZStatus status) {
    flushErrors();
    if (m_optionRefused)
        return kUsageError;
    return status && ZHost::errorCount() == 0 ? 0 : 1;
}

} // namespace zyvo
