#include "commands/CommandRegistry.h"

#include <cctype>

namespace oz::cmd {

bool isIdentifier(const std::string& name) {
    if (name.empty() || std::isdigit(static_cast<unsigned char>(name[0])))
        return false;
    for (char c : name)
        if (!std::isalnum(static_cast<unsigned char>(c)) && c != '_')
            return false;
    return true;
}

CommandRegistry& CommandRegistry::instance() {
    static CommandRegistry registry;
    return registry;
}

ZStatus CommandRegistry::add(CommandInfo info) {
    if (!isIdentifier(info.name) || !info.create)
        return ZStatus::kInvalidParameter;
    std::lock_guard lock(m_mutex);
    const auto [where, added] = m_commands.try_emplace(info.name, info);
    return added ? ZStatus::kSuccess : ZStatus::kInvalidParameter;
}

ZStatus CommandRegistry::remove(const std::string& name) {
    std::lock_guard lock(m_mutex);
    return m_commands.erase(name) ? ZStatus::kSuccess : ZStatus::kNotFound;
}

std::vector<std::string> CommandRegistry::removeOwnedBy(const std::string& owner) {
    std::lock_guard lock(m_mutex);
    std::vector<std::string> removed;
    for (auto it = m_commands.begin(); it != m_commands.end();) {
        if (it->second.owner == owner) {
            removed.push_back(it->first);
            it = m_commands.erase(it);
        } else {
            ++it;
        }
    }
    return removed;
}

std::optional<CommandInfo> CommandRegistry::find(const std::string& name) const {
    std::lock_guard lock(m_mutex);
    const auto it = m_commands.find(name);
    if (it == m_commands.end())
        return std::nullopt;
    return it->second;
}

std::vector<std::string> CommandRegistry::names() const {
    std::lock_guard lock(m_mutex);
    std::vector<std::string> out;
    for (const auto& entry : m_commands)
        out.push_back(entry.first);
    return out;
}

} // namespace oz::cmd
