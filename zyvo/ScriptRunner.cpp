#include "ScriptRunner.h"

#include <OpenZyvo/ZFileIO.h>
#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvoHost/ZHostScripts.h>
#include <cstdio>

namespace zyvo {

FileKind fileKindOf(const std::filesystem::path& file) {
    const std::string extension = file.extension().string();
    if (extension == ".zys")
        return FileKind::CommandScript;
    if (extension == ".py")
        return FileKind::Python;
    if (extension == ".zya")
        return FileKind::Scene;
    return FileKind::Unknown;
}

ZStatus runFile(const std::filesystem::path& file, bool echo) {
    switch (fileKindOf(file)) {
    case FileKind::CommandScript:
        return ZHost::runCommandFile(file.string(), echo);
    case FileKind::Python:
        return ZHost::runPythonFile(file.string());
    case FileKind::Scene:
        return ZFileIO::open(ZString(file.string()));
    case FileKind::Unknown:
        break;
    }
    ZGlobal::displayError(
        ZString("Cannot tell how to run " + file.string() +
                ": expected a command script (.zys), a Python file (.py) or a scene (.zya)"));
    return ZStatus::kInvalidParameter;
}

ZStatus runPythonCode(const std::string& code) {
    const ZHost::PythonResult outcome = ZHost::runPython(code);
    if (outcome.status && outcome.hasValue)
        std::fprintf(stdout, "%s\n", outcome.value.c_str());
    return outcome.status;
}

} // namespace zyvo
