#pragma once

#include "core/Object.h"

#include <filesystem>
#include <string>

namespace oz::plugins {

// What a plug-in's ZObject refers to: who the plug-in is. What it registered
// is filed under its name in each registry (node types, commands,
// procedures, undo entries, draw overrides).
class Plugin final : public Object {
public:
    Plugin(std::string name, std::filesystem::path library, int apiVersion)
        : name(std::move(name))
        , library(std::move(library))
        , apiVersion(apiVersion) {}

    ZFn::Type apiType() const override { return ZFn::kPlugin; }

    const std::string name;
    const std::filesystem::path library;
    const int apiVersion;
    std::string vendor = "Unknown";
    std::string version = "Unknown";
    // Deleted nodes kept for undo may be of its types, even of types it has
    // deregistered itself.
    bool hadNodeTypes = false;
    // False once unloaded: handles the plug-in kept register nothing more.
    bool loaded = true;
};

// The plug-in a ZObject refers to while it is loaded, else null.
Plugin* loadedPlugin(const ZObject& object);

} // namespace oz::plugins
