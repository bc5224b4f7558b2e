#include "plugins/SearchPaths.h"

#include <cstdlib>
#include <sstream>
#include <string>

namespace oz::plugins {

namespace {

std::filesystem::path executableFolder() {
    std::error_code error;
    const std::filesystem::path executable = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::filesystem::path() : executable.parent_path();
}

std::vector<std::filesystem::path> searchPath(const std::vector<std::filesystem::path>& added,
                                              const char* variable, const char* besideExecutable) {
    std::vector<std::filesystem::path> folders = added;
    for (const auto& folder : splitSearchPath(std::getenv(variable)))
        folders.push_back(folder);
    const std::filesystem::path executable = executableFolder();
    if (!executable.empty())
        folders.push_back((executable / ".." / besideExecutable).lexically_normal());
    return folders;
}

std::filesystem::path absoluteFolder(const std::filesystem::path& folder) {
    std::error_code error;
    const std::filesystem::path result = std::filesystem::absolute(folder, error);
    return error ? folder : result.lexically_normal();
}

} // namespace

SearchPaths& SearchPaths::instance() {
    static SearchPaths paths;
    return paths;
}

std::vector<std::filesystem::path> SearchPaths::pluginFolders() const {
    return searchPath(m_pluginFolders, "ZYVO_PLUG_IN_PATH", "plug-ins");
}

std::vector<std::filesystem::path> SearchPaths::scriptFolders() const {
    return searchPath(m_scriptFolders, "ZYVO_SCRIPT_PATH", "scripts");
}

void SearchPaths::addPluginFolder(const std::filesystem::path& folder) {
    m_pluginFolders.push_back(absoluteFolder(folder));
}

void SearchPaths::addScriptFolder(const std::filesystem::path& folder) {
    m_scriptFolders.push_back(absoluteFolder(folder));
}

std::vector<std::filesystem::path> splitSearchPath(const char* text) {
    std::vector<std::filesystem::path> folders;
    if (!text)
        return folders;
    std::istringstream stream(text);
    std::string folder;
    while (std::getline(stream, folder, ':'))
        if (!folder.empty())
            folders.emplace_back(folder);
    return folders;
}

} // namespace oz::plugins
