#pragma once

#include <string>

namespace oz::scene {

// What scene files need to know about plug-ins, asked through the plug-in
// commands when they are registered (loadPlugin, pluginInfo -query
// -loaded / -version).

// Loaded, or at least providing node types to the scene.
bool pluginLoaded(const std::string& name);
// The version the plug-in registered with; "unknown" when it cannot be told.
std::string pluginVersion(const std::string& name);
// Loads the plug-in; false (its errors in the message log) when it cannot,
// or when there is no loadPlugin command.
bool loadPlugin(const std::string& name);
bool canLoadPlugins();

} // namespace oz::scene
