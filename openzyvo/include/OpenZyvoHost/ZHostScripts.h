#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZStatus.h>
#include <string>
#include <vector>

namespace ZHost {

// Errors of scripts go to the message log and start with where they stand:
// "job.zys: line 2, column 1: " for a file, "line 2, column 1: " for text;
// Python errors with their traceback.

// Runs command-language source. `echo` shows each statement and its result
// in the message log; `file` names the source in its errors.
OZ_API ZStatus runCommandScript(const std::string& source, bool echo, const std::string& file = {});

// Reads and runs a command-script file; a file that cannot be read is an
// error that says why.
OZ_API ZStatus runCommandFile(const std::string& path, bool echo);

// Calls a command or script procedure by name with string arguments, as a
// script would, without writing them into source text, so that any text
// arrives exactly as given. `result` gets the items of what it returned
// (one item for a single value, none for nothing).
OZ_API ZStatus callProcedure(const std::string& name, const std::vector<std::string>& arguments,
                             std::vector<std::string>& result);

struct PythonResult {
    ZStatus status;
    bool hasValue = false; // the code was an expression with a value other than None
    std::string value;     // str() of that value
};

// Runs Python code in the namespace of __main__; a single expression yields
// its value.
OZ_API PythonResult runPython(const std::string& code);

// Runs a Python file as __main__, with `arguments` after it in sys.argv. A
// script that exits with status 0 has not failed.
OZ_API ZStatus runPythonFile(const std::string& path, const std::vector<std::string>& arguments = {});

} // namespace ZHost
