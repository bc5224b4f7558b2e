#include "plugins/PluginScope.h"

#include <utility>

namespace oz::plugins {

namespace {

// Plug-ins load and unload on the main thread only.
std::string& currentPlugin() {
    static std::string name;
    return name;
}

} // namespace

PluginScope::PluginScope(const std::string& plugin)
    : m_previous(std::exchange(currentPlugin(), plugin))
    , m_procedures(plugin) {}

PluginScope::~PluginScope() {
    currentPlugin() = std::move(m_previous);
}

const std::string& PluginScope::current() {
    return currentPlugin();
}

} // namespace oz::plugins
