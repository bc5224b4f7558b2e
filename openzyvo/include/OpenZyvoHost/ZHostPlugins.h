#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZStatus.h>
#include <string>
#include <vector>

namespace ZHost {

// Loads a plug-in by name (found in the plug-in folders) or by its library's
// path, checks that it was built for this API, imports its scripts and
// initialises it. `name`, when given, gets the plug-in's name. Loading a
// plug-in already loaded from the same library does nothing more. Failures
// are shown in the message log.
OZ_API ZStatus loadPlugin(const std::string& nameOrPath, std::string* name = nullptr);

// Uninitialises the plug-in and closes its library; refused while nodes of
// its types exist.
OZ_API ZStatus unloadPlugin(const std::string& name);

OZ_API bool isPluginLoaded(const std::string& name);

// The library a loaded plug-in came from; empty for one not loaded.
OZ_API std::string pluginLibrary(const std::string& name);

// The folders searched for plug-ins and for host-side scripts, in order.
OZ_API std::vector<std::string> pluginFolders();
OZ_API std::vector<std::string> scriptFolders();

} // namespace ZHost
