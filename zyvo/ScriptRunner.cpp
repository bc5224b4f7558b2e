#include "ScriptRunner.h"

#include "commands/Interpreter.h"
#include "commands/SourceFile.h"
#include "python/PythonRuntime.h"

#include <OpenZyvo/ZFileIO.h>
#include <OpenZyvo/ZGlobal.h>
#include <cstdio>

namespace zyvo {

namespace {

void reportError(const std::string& text) {
    ZGlobal::displayError(ZString(text));
}

// A Python string literal holding `text` exactly.
std::string pythonLiteral(const std::string& text) {
    std::string literal = "'";
    for (const unsigned char c : text) {
        if (c == '\\' || c == '\'') {
            literal += '\\';
            literal += static_cast<char>(c);
        } else if (c < 0x20 || c == 0x7f) {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\x%02x", c);
            literal += escaped;
        } else {
            literal += static_cast<char>(c);
        }
    }
    return literal + "'";
}

ZStatus runCommandScript(const std::filesystem::path& file, bool echo) {
    std::string why;
    const std::optional<std::string> text = oz::cmd::readSourceFile(file.string(), why);
    if (!text) {
        reportError("Cannot read the script " + file.string() + ": " + why);
        return ZStatus::kNotFound;
    }
    return oz::cmd::runScript(*text, {echo, true}, file.string()).status;
}

} // namespace

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
        return runCommandScript(file, echo);
    case FileKind::Python:
        return runPythonFile(file, {});
    case FileKind::Scene:
        return ZFileIO::open(ZString(file.string()));
    case FileKind::Unknown:
        break;
    }
    reportError("Cannot tell how to run " + file.string() +
                ": expected a command script (.zys), a Python file (.py) or a scene (.zya)");
    return ZStatus::kInvalidParameter;
}

ZStatus runPythonFile(const std::filesystem::path& file, const std::vector<std::string>& arguments) {
    std::string argv = "[" + pythonLiteral(file.string());
    for (const std::string& argument : arguments)
        argv += ", " + pythonLiteral(argument);
    argv += "]";
    // runpy gives the file its own __main__ and its name in tracebacks; a
    // script that exits with status 0 has not failed.
    const std::string code = "import sys, runpy\n"
                             "sys.argv = " +
                             argv +
                             "\n"
                             "try:\n"
                             "    runpy.run_path(sys.argv[0], run_name='__main__')\n"
                             "except SystemExit as exit:\n"
                             "    if exit.code not in (None, 0):\n"
                             "        raise\n";
    return oz::python::run(code).status;
}

ZStatus runPythonCode(const std::string& code) {
    const oz::python::RunOutcome outcome = oz::python::run(code);
    if (outcome.status && outcome.hasResult)
        std::fprintf(stdout, "%s\n", outcome.result.c_str());
    return outcome.status;
}

} // namespace zyvo
