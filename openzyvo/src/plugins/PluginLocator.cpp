#include "plugins/PluginLocator.h"

#include "plugins/SearchPaths.h"

namespace oz::plugins {

namespace {

constexpr const char* kExtension = ".so";

bool isFile(const std::filesystem::path& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

std::optional<std::filesystem::path> fileOrWithExtension(const std::filesystem::path& path) {
    if (isFile(path))
        return std::filesystem::absolute(path).lexically_normal();
    std::filesystem::path withExtension = path;
    withExtension += kExtension;
    if (isFile(withExtension))
        return std::filesystem::absolute(withExtension).lexically_normal();
    return std::nullopt;
}

std::string describe(const std::vector<std::filesystem::path>& folders) {
    std::string text;
    for (const auto& folder : folders)
        text += (text.empty() ? "" : ":") + folder.string();
    return text.empty() ? "(empty)" : text;
}

} // namespace

std::optional<std::filesystem::path> locatePlugin(const std::string& nameOrPath, std::string& error) {
    if (nameOrPath.empty()) {
        error = "No plug-in name was given";
        return std::nullopt;
    }
    if (nameOrPath.find('/') != std::string::npos) {
        auto found = fileOrWithExtension(nameOrPath);
        if (!found)
            error = "Plug-in file not found: " + nameOrPath;
        return found;
    }
    const std::vector<std::filesystem::path> folders = SearchPaths::instance().pluginFolders();
    // A bare name means a library, so "Type" is Type.so before a file called Type.
    const bool hasExtension = std::filesystem::path(nameOrPath).extension() == kExtension;
    const std::string file = hasExtension ? nameOrPath : nameOrPath + kExtension;
    for (const auto& folder : folders)
        if (isFile(folder / file))
            return std::filesystem::absolute(folder / file).lexically_normal();
    error = "Cannot find plug-in \"" + nameOrPath + "\" in the plug-in path " + describe(folders) +
            " (set ZYVO_PLUG_IN_PATH or give the library's path)";
    return std::nullopt;
}

std::string pluginNameOf(const std::filesystem::path& library) {
    const std::filesystem::path file = library.filename();
    return file.extension() == kExtension ? file.stem().string() : file.string();
}

} // namespace oz::plugins
