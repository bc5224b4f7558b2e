#include "ui/ToolManager.h"

#include "commands/ContextCommands.h"

#include <OpenZyvo/ZSceneMessage.h>

namespace oz::ui {

namespace {

// A plug-in's manipulators and contexts must go before its code does.
void putToolAway(void*) {
    ToolManager::instance().setTool({});
}

} // namespace

ToolManager& ToolManager::instance() {
    // Never destroyed: at exit the contexts' code (a plug-in's) and the graph
    // their manipulators live in may be gone already.
    static ToolManager* manager = new ToolManager;
    return *manager;
}

ToolManager::ToolManager() {
    cmd::ContextCommands::instance().setHooks(
        [](const std::string& name, ZPxContext* context) { instance().adopt(name, context); },
        [](const std::string& name, ZPxContext*) { instance().release(name); });
    ZSceneMessage::addCallback(ZSceneMessage::kBeforePluginUnload, putToolAway);
    ZSceneMessage::addCallback(ZSceneMessage::kBeforeNew, putToolAway);
    ZSceneMessage::addCallback(ZSceneMessage::kBeforeOpen, putToolAway);
}

void ToolManager::adopt(const std::string& name, ZPxContext* context) {
    m_contexts[name].reset(context);
}

void ToolManager::release(const std::string& name) {
    if (name == m_current)
        setTool({});
    m_contexts.erase(name);
}

ZStatus ToolManager::setTool(const std::string& name) {
    if (!name.empty() && !has(name))
        return ZStatus::kNotFound;
    if (ZPxContext* previous = current()) {
        m_current.clear();
        previous->toolOffCleanup();
    }
    m_lastClick.reset();
    m_current = name;
    if (ZPxContext* next = current())
        next->toolOnSetup();
    return ZStatus::kSuccess;
}

ZPxContext* ToolManager::current() const {
    const auto it = m_contexts.find(m_current);
    return it == m_contexts.end() ? nullptr : it->second.get();
}

// The hooks must be in place before any context command runs.
namespace {
const bool g_installed = (ToolManager::instance(), true);
} // namespace

} // namespace oz::ui
