#pragma once

#include <OpenZyvo/ZStatus.h>
#include <filesystem>

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

// Runs Python code; an expression's value is printed.
ZStatus runPythonCode(const std::string& code);

} // namespace zyvo
