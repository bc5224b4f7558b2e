#include "commands/ArgListData.h"
#include "commands/Executor.h"
#include "commands/Interpreter.h"
#include "commands/SourceFile.h"
#include "python/PythonRuntime.h"

#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvoHost/ZHostScripts.h>
#include <cstdio>

namespace ZHost {

namespace {

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

} // namespace

ZStatus runCommandScript(const std::string& source, bool echo, const std::string& file) {
    return oz::cmd::runScript(source, {echo, true}, file).status;
}

ZStatus runCommandFile(const std::string& path, bool echo) {
    std::string why;
    const std::optional<std::string> text = oz::cmd::readSourceFile(path, why);
    if (!text) {
        ZGlobal::displayError(ZString("Cannot read the script " + path + ": " + why));
        return ZStatus::kNotFound;
    }
    return runCommandScript(*text, echo, path);
}

ZStatus callProcedure(const std::string& name, const std::vector<std::string>& arguments,
                      std::vector<std::string>& result) {
    std::vector<oz::cmd::ArgItem> items;
    for (const std::string& argument : arguments)
        items.push_back({oz::cmd::Value(argument), false});
    oz::cmd::Value value;
    const ZStatus status = oz::cmd::Executor::invoke(name, items, value);
    result.clear();
    if (const auto* strings = std::get_if<std::vector<std::string>>(&value))
        result = *strings;
    else if (!oz::cmd::isEmpty(value))
        result.push_back(oz::cmd::toText(value));
    return status;
}

PythonResult runPython(const std::string& code) {
    const oz::python::RunOutcome outcome = oz::python::run(code);
    return {outcome.status, outcome.hasResult, outcome.result};
}

ZStatus runPythonFile(const std::string& path, const std::vector<std::string>& arguments) {
    std::string argv = "[" + pythonLiteral(path);
    for (const std::string& argument : arguments)
        argv += ", " + pythonLiteral(argument);
    argv += "]";
    // runpy gives the file its own __main__ and its name in tracebacks.
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

} // namespace ZHost
