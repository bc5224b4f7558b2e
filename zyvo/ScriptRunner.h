#pragma once

#include <OpenZyvo/ZStatus.h>
#include <filesystem>
#include <string>
#include <vector>

namespace zyvo {

// How a file is run, told by its extension.
enum class FileKind {
    CommandScript, // .zys: the host's command language
    Python,        // .py
    Scene,         // .zya: opened as the scene
    Unknown,
};

FileKind fileKindOf(const std::filesystem::path& file);

// Runs a file of any kind; errors (with their lines) go to the message log.
// `echo` shows each command of a command script as it runs.
ZStatus runFile(const std::filesystem::path& file, bool echo);

// Runs a Python file as __main__, with `arguments` after it in sys.argv.
ZStatus runPythonFile(const std::filesystem::path& file, const std::vector<std::string>& arguments);

// Runs Python code; an expression's value is printed.
ZStatus runPythonCode(const std::string& code);

} // namespace zyvo
