#include "commands/ProcedureRegistry.h"

#include "commands/CommandRegistry.h"

#include <utility>

namespace oz::cmd {

ProcedureRegistry& ProcedureRegistry::instance() {
    static ProcedureRegistry registry;
    return registry;
}

ProcedureRegistry::OwnerScope::OwnerScope(std::string owner) {
    ProcedureRegistry& registry = instance();
    std::lock_guard lock(registry.m_mutex);
    m_previous = std::exchange(registry.m_owner, std::move(owner));
}

ProcedureRegistry::OwnerScope::~OwnerScope() {
    ProcedureRegistry& registry = instance();
    std::lock_guard lock(registry.m_mutex);
    registry.m_owner = std::move(m_previous);
}

ZStatus ProcedureRegistry::add(const std::string& name, Procedure procedure) {
    if (!isIdentifier(name) || !procedure)
        return ZStatus::kInvalidParameter;
    Entry replaced;
    std::lock_guard lock(m_mutex);
    Entry& entry = m_procedures[name];
    replaced = std::move(entry);
    entry = Entry{std::move(procedure), m_owner};
    return ZStatus::kSuccess;
}

ZStatus ProcedureRegistry::remove(const std::string& name) {
    Entry removed;
    std::lock_guard lock(m_mutex);
    const auto it = m_procedures.find(name);
    if (it == m_procedures.end())
        return ZStatus::kNotFound;
    removed = std::move(it->second);
    m_procedures.erase(it);
    return ZStatus::kSuccess;
}

std::vector<std::string> ProcedureRegistry::removeOwnedBy(const std::string& owner) {
    // Procedures are released outside the lock: releasing one may need the
    // interpreter that made it, whose own lock another thread may hold.
    std::vector<Entry> released;
    std::vector<std::string> removed;
    std::lock_guard lock(m_mutex);
    for (auto it = m_procedures.begin(); it != m_procedures.end();) {
        if (it->second.owner == owner) {
            removed.push_back(it->first);
            released.push_back(std::move(it->second));
            it = m_procedures.erase(it);
        } else {
            ++it;
        }
    }
    return removed;
}

void ProcedureRegistry::clear() {
    std::map<std::string, Entry> removed;
    {
        std::lock_guard lock(m_mutex);
        removed.swap(m_procedures);
    }
}

std::optional<Procedure> ProcedureRegistry::find(const std::string& name) const {
    std::lock_guard lock(m_mutex);
    const auto it = m_procedures.find(name);
    if (it == m_procedures.end())
        return std::nullopt;
    return it->second.procedure;
}

std::vector<std::string> ProcedureRegistry::names() const {
    std::lock_guard lock(m_mutex);
    std::vector<std::string> out;
    for (const auto& entry : m_procedures)
        out.push_back(entry.first);
    return out;
}

} // namespace oz::cmd
