#include "plugins/PluginRegistry.h"
#include "plugins/SearchPaths.h"

#include <OpenZyvoHost/ZHostPlugins.h>

namespace ZHost {

namespace {

oz::plugins::PluginRegistry& registry() {
    return oz::plugins::PluginRegistry::instance();
}

std::vector<std::string> strings(const std::vector<std::filesystem::path>& paths) {
    return {paths.begin(), paths.end()};
}

} // namespace

ZStatus loadPlugin(const std::string& nameOrPath, std::string* name) {
    std::string loaded;
    const ZStatus status = registry().load(nameOrPath, loaded);
    if (name)
        *name = loaded;
    return status;
}

ZStatus unloadPlugin(const std::string& name) {
    return registry().unload(name);
}

bool isPluginLoaded(const std::string& name) {
    return registry().find(name) != nullptr;
}

std::string pluginLibrary(const std::string& name) {
    const auto plugin = registry().find(name);
    return plugin ? plugin->library.string() : std::string();
}

std::vector<std::string> pluginFolders() {
    return strings(oz::plugins::SearchPaths::instance().pluginFolders());
}

std::vector<std::string> scriptFolders() {
    return strings(oz::plugins::SearchPaths::instance().scriptFolders());
}

} // namespace ZHost
