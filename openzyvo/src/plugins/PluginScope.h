#pragma once

#include "commands/ProcedureRegistry.h"

#include <string>

namespace oz::plugins {

// Open while a plug-in's code runs on the host's behalf: its scripts being
// imported, initializePlugin and uninitializePlugin. What gets registered
// meanwhile without naming its plug-in (draw overrides, script procedures)
// belongs to this one.
class PluginScope {
public:
    explicit PluginScope(const std::string& plugin);
    ~PluginScope();
    PluginScope(const PluginScope&) = delete;
    PluginScope& operator=(const PluginScope&) = delete;

    // The plug-in of the innermost open scope; empty outside any.
    static const std::string& current();

private:
    std::string m_previous;
    cmd::ProcedureRegistry::OwnerScope m_procedures;
};

} // namespace oz::plugins
