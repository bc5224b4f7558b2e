#pragma once

#include "plugins/Plugin.h"
#include "plugins/SharedLibrary.h"

#include <OpenZyvo/ZStatus.h>
#include <memory>
#include <string>
#include <vector>

namespace oz::plugins {

// The loaded plug-ins, in the order they were loaded. Plug-ins load and
// unload on the main thread; every failure is shown in the message log.
class PluginRegistry {
public:
    static PluginRegistry& instance();

    // Finds the library (see locatePlugin), opens it, checks its ZApiVersion
    // and entry points, imports its scripts and calls initializePlugin. A
    // failed initialisation removes whatever the plug-in registered; the
    // library stays mapped, since it may have installed callbacks. `name` gets the plug-in's name; loading a
    // plug-in already loaded from the same library does nothing more.
    ZStatus load(const std::string& nameOrPath, std::string& name);
    // Refused while nodes of the plug-in's types exist or a node computes. Calls
    // uninitializePlugin, removes what the plug-in left registered and closes
    // its library. A failing uninitializePlugin still unloads the plug-in
    // (and fails), but leaves its library mapped.
    ZStatus unload(const std::string& name);
    // Unloads every plug-in, latest first. The scene must hold no node of
    // theirs any more (see shutdownRuntime).
    ZStatus unloadAll();

    std::shared_ptr<Plugin> find(const std::string& name) const;
    std::vector<std::string> names() const;

private:
    PluginRegistry() = default;
    ~PluginRegistry();

    using EntryPoint = ZStatus (*)(ZObject);

    struct Loaded {
        std::shared_ptr<Plugin> plugin;
        SharedLibrary library;
        EntryPoint uninitialize = nullptr;
    };

    // Takes a loaded plug-in out of the list. Looked up by name, since the
    // plug-in's own code may have loaded or unloaded others meanwhile.
    Loaded take(const std::string& name);
    // Removes the plug-in's registrations and closes the library, unless
    // node types of it had to stay.
    void release(Loaded& loaded);

    std::vector<Loaded> m_plugins;
};

} // namespace oz::plugins
