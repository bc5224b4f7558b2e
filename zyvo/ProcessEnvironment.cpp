#include "ProcessEnvironment.h"

#include <QString>
#include <QtGlobal>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace zyvo {

namespace {

bool diagnosticsShown = false;

void toDebugChannel(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type != QtFatalMsg && !diagnosticsShown)
        return;
    std::fprintf(stderr, "// %s: %s\n", type == QtFatalMsg ? "Error" : "Debug", qUtf8Printable(message));
    std::fflush(stderr);
}

// The folder exists (made here or before), is a folder and not a link, is
// ours, and only we may use it: what the runtime folder's users require.
bool isPrivateFolder(const std::string& folder) {
    if (::mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST)
        return false;
    struct stat info {};
    if (::lstat(folder.c_str(), &info) != 0 || !S_ISDIR(info.st_mode) || info.st_uid != ::geteuid())
        return false;
    return (info.st_mode & 07777) == 0700 || ::chmod(folder.c_str(), 0700) == 0;
}

// Sessions without a login manager (services, containers, ssh without PAM)
// have no runtime folder; Qt would make one under the temporary folder and
// say so on every run. The host makes its own, one per user, instead. Left
// unset when that fails: Qt's complaint then goes to the debug channel.
void provideRuntimeFolder() {
    if (const char* given = std::getenv("XDG_RUNTIME_DIR"); given && *given)
        return;
    std::error_code error;
    const std::filesystem::path temporary = std::filesystem::temp_directory_path(error);
    if (error)
        return;
    const std::string folder = (temporary / ("zyvo-runtime-" + std::to_string(::geteuid()))).string();
    if (isPrivateFolder(folder))
        ::setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
}

} // namespace

void prepareProcess(bool showDiagnostics) {
    diagnosticsShown = showDiagnostics;
    qInstallMessageHandler(toDebugChannel);
    provideRuntimeFolder();
}

} // namespace zyvo
