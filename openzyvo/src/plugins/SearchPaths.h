#pragma once

#include <filesystem>
#include <vector>

namespace oz::plugins {

// Where the host looks for plug-in libraries and for host-side scripts, in
// order: folders the host added (its command-line flags), then the
// colon-separated ZYVO_PLUG_IN_PATH or ZYVO_SCRIPT_PATH, then the folders
// installed beside the running program (../plug-ins and ../scripts from the
// folder of its executable), so a fresh build needs no environment.
class SearchPaths {
public:
    static SearchPaths& instance();

    std::vector<std::filesystem::path> pluginFolders() const;
    std::vector<std::filesystem::path> scriptFolders() const;

    // Added folders come before the environment's and the defaults, in the
    // order added.
    void addPluginFolder(const std::filesystem::path& folder);
    void addScriptFolder(const std::filesystem::path& folder);

private:
    SearchPaths() = default;

    std::vector<std::filesystem::path> m_pluginFolders;
    std::vector<std::filesystem::path> m_scriptFolders;
};

// "a:b::c" to {a, b, c}.
std::vector<std::filesystem::path> splitSearchPath(const char* text);

} // namespace oz::plugins
