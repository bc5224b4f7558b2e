#include "plugins/PluginRegistry.h"

#include "graph/Callbacks.h"
#include "core/EvaluationScope.h"
#include "graph/SceneMessages.h"
#include "plugins/ApiVersion.h"
#include "plugins/PluginLocator.h"
#include "plugins/PluginResources.h"
#include "plugins/PluginScope.h"
#include "plugins/PluginScripts.h"

#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZStringArray.h>
#include <algorithm>
#include <exception>

namespace oz::plugins {

namespace {

void reportError(const std::string& text) {
    ZGlobal::displayError(ZString(text));
}

std::string joined(const std::vector<std::string>& names) {
    constexpr std::size_t kShown = 5;
    std::string text;
    for (std::size_t i = 0; i < names.size() && i < kShown; ++i)
        text += (i ? ", " : "") + names[i];
    if (names.size() > kShown)
        text += " and " + std::to_string(names.size() - kShown) + " more";
    return text;
}

void notify(ZSceneMessage::Message message, const Plugin& plugin) {
    ZStringArray strings;
    strings.append(ZString(plugin.library.string()));
    strings.append(ZString(plugin.name));
    notifySceneMessage(message, strings);
}

// Exceptions must not unwind out of plug-in code into the host.
template <typename EntryPoint>
ZStatus callEntryPoint(EntryPoint entry, const std::shared_ptr<Plugin>& plugin, const char* entryName) {
    PluginScope scope(plugin->name);
    try {
        return entry(ObjectAccess::wrap(plugin));
    } catch (const std::exception& error) {
        reportError("Plug-in " + plugin->name + ": " + entryName + " threw an exception: " + error.what());
    } catch (...) {
        reportError("Plug-in " + plugin->name + ": " + entryName + " threw an exception");
    }
    return ZStatus::kFailure;
}

bool sameFile(const std::filesystem::path& a, const std::filesystem::path& b) {
    std::error_code error;
    return std::filesystem::equivalent(a, b, error);
}

} // namespace

PluginRegistry& PluginRegistry::instance() {
    static PluginRegistry registry;
    return registry;
}

PluginRegistry::~PluginRegistry() {
    // Reached only when the host did not unload its plug-ins before exiting:
    // objects of their code may still exist in registries destroyed after
    // this one, so the libraries stay mapped until the process ends.
    for (Loaded& loaded : m_plugins)
        loaded.library.keepMapped();
}

ZStatus PluginRegistry::load(const std::string& nameOrPath, std::string& name) {
    std::string error;
    const auto path = locatePlugin(nameOrPath, error);
    if (!path) {
        reportError(error);
        return ZStatus::kNotFound;
    }
    name = pluginNameOf(*path);
    if (const auto existing = find(name)) {
        if (sameFile(existing->library, *path))
            return ZStatus::kSuccess;
        reportError("Cannot load plug-in " + name + " from " + path->string() +
                    ": a plug-in of that name is already loaded from " + existing->library.string());
        return ZStatus::kInvalidParameter;
    }

    const std::string refusal = "Cannot load plug-in " + name + " (" + path->string() + "): ";
    SharedLibrary library = SharedLibrary::open(*path, error);
    if (!library.isOpen()) {
        reportError(refusal + error);
        return ZStatus::kFailure;
    }
    const auto* apiVersion = static_cast<const int*>(library.symbol("ZApiVersion"));
    if (!apiVersion) {
        reportError(refusal + "the library does not export ZApiVersion, so it is not a plug-in of this host");
        return ZStatus::kFailure;
    }
    if (const std::string why = apiIncompatibility(*apiVersion); !why.empty()) {
        reportError(refusal + why);
        return ZStatus::kFailure;
    }
    const auto initialize = reinterpret_cast<EntryPoint>(library.symbol("initializePlugin"));
    const auto uninitialize = reinterpret_cast<EntryPoint>(library.symbol("uninitializePlugin"));
    if (!initialize || !uninitialize) {
        reportError(refusal + "the library does not export " +
                    (initialize ? "uninitializePlugin" : "initializePlugin"));
        return ZStatus::kFailure;
    }

    auto plugin = std::make_shared<Plugin>(name, *path, *apiVersion);
    m_plugins.push_back({plugin, std::move(library), uninitialize});
    notify(ZSceneMessage::kBeforePluginLoad, *plugin);
    ZStatus status;
    {
        PluginScope scope(name);
        status = importPluginScripts(name);
    }
    if (!status)
        reportError(refusal + "its scripts could not be imported");
    else if (status = callEntryPoint(initialize, plugin, "initializePlugin"); !status)
        reportError(refusal + "initializePlugin failed (" + status.errorString().asStdString() + ")");
    if (!status) {
        forgetPluginScripts(name);
        Loaded failed = take(name);
        // Callbacks it installed before it failed are out of the host's
        // reach; its code stays mapped so that they never dangle.
        failed.library.keepMapped();
        release(failed);
        return status;
    }
    notify(ZSceneMessage::kAfterPluginLoad, *plugin);
    return ZStatus::kSuccess;
}

ZStatus PluginRegistry::unload(const std::string& name) {
    const auto it = std::find_if(m_plugins.begin(), m_plugins.end(),
                                 [&](const Loaded& loaded) { return loaded.plugin->name == name; });
    if (it == m_plugins.end()) {
        reportError("Cannot unload plug-in " + name + ": it is not loaded");
        return ZStatus::kNotFound;
    }
    if (const ZStatus refused = refuseDuringEvaluation("unload plug-in " + name); !refused)
        return refused;
    if (const auto nodes = liveNodesOf(name); !nodes.empty()) {
        reportError("Cannot unload plug-in " + name + ": nodes of its types exist (" + joined(nodes) + ")");
        return ZStatus::kFailure;
    }
    const std::shared_ptr<Plugin> plugin = it->plugin;
    const EntryPoint uninitialize = it->uninitialize;
    notify(ZSceneMessage::kBeforePluginUnload, *plugin);
    const ZStatus status = callEntryPoint(uninitialize, plugin, "uninitializePlugin");
    forgetPluginScripts(name);
    Loaded unloaded = take(name);
    if (!status) {
        // It may have stopped half way, leaving callbacks the host cannot
        // find; its code stays mapped so that they never dangle.
        reportError("Plug-in " + name + ": uninitializePlugin failed (" + status.errorString().asStdString() +
                    "); what it left registered is removed and its library stays in memory");
        unloaded.library.keepMapped();
    }
    release(unloaded);
    notify(ZSceneMessage::kAfterPluginUnload, *plugin);
    return status;
}

PluginRegistry::Loaded PluginRegistry::take(const std::string& name) {
    const auto it = std::find_if(m_plugins.begin(), m_plugins.end(),
                                 [&](const Loaded& loaded) { return loaded.plugin->name == name; });
    Loaded taken = std::move(*it);
    m_plugins.erase(it);
    return taken;
}

ZStatus PluginRegistry::unloadAll() {
    ZStatus status;
    // Latest first: a plug-in may use what an earlier one registered. One
    // that refuses stays loaded, and mapped for the rest of the process.
    const std::vector<std::string> loaded = names();
    for (auto name = loaded.rbegin(); name != loaded.rend(); ++name)
        if (find(*name))
            if (const ZStatus unloaded = unload(*name); !unloaded)
                status = unloaded;
    return status;
}

void PluginRegistry::release(Loaded& loaded) {
    loaded.plugin->loaded = false;
    if (const auto kept = removeOwnedBy(*loaded.plugin); !kept.empty()) {
        reportError("Plug-in " + loaded.plugin->name + " stays in memory: its node types " + joined(kept) +
                    " have nodes in the scene");
        loaded.library.keepMapped();
    }
    const std::size_t leftOver = Callbacks::instance().removeWhereCode(
        [&](const void* code) { return loaded.library.contains(code); });
    if (leftOver > 0)
        ZGlobal::displayWarning(ZString("Plug-in " + loaded.plugin->name + " left " +
                                        std::to_string(leftOver) +
                                        " callback(s) installed; they were removed with it"));
}

std::shared_ptr<Plugin> PluginRegistry::find(const std::string& name) const {
    for (const Loaded& loaded : m_plugins)
        if (loaded.plugin->name == name)
            return loaded.plugin;
    return nullptr;
}

std::vector<std::string> PluginRegistry::names() const {
    std::vector<std::string> names;
    for (const Loaded& loaded : m_plugins)
        names.push_back(loaded.plugin->name);
    return names;
}

} // namespace oz::plugins
