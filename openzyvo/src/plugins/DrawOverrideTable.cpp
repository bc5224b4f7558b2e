#include "plugins/DrawOverrideTable.h"

#include <algorithm>

namespace oz::plugins {

DrawOverrideTable& DrawOverrideTable::instance() {
    static DrawOverrideTable table;
    return table;
}

ZStatus DrawOverrideTable::add(const std::string& classification, const std::string& registrant,
                               Creator creator, const std::string& owner) {
    if (classification.empty() || registrant.empty() || !creator)
        return ZStatus::kInvalidParameter;
    std::lock_guard lock(m_mutex);
    const bool taken = std::any_of(m_entries.begin(), m_entries.end(), [&](const Entry& entry) {
        return entry.classification == classification && entry.registrant == registrant;
    });
    if (taken)
        return ZStatus::kInvalidParameter;
    m_entries.push_back({classification, registrant, creator, owner});
    return ZStatus::kSuccess;
}

ZStatus DrawOverrideTable::remove(const std::string& classification, const std::string& registrant) {
    std::lock_guard lock(m_mutex);
    const auto removed = std::erase_if(m_entries, [&](const Entry& entry) {
        return entry.classification == classification && entry.registrant == registrant;
    });
    return removed ? ZStatus::kSuccess : ZStatus::kNotFound;
}

std::vector<std::pair<std::string, std::string>> DrawOverrideTable::removeOwnedBy(const std::string& owner) {
    std::lock_guard lock(m_mutex);
    std::vector<std::pair<std::string, std::string>> removed;
    std::erase_if(m_entries, [&](const Entry& entry) {
        if (entry.owner != owner)
            return false;
        removed.emplace_back(entry.classification, entry.registrant);
        return true;
    });
    return removed;
}

DrawOverrideTable::Creator DrawOverrideTable::find(const std::string& classification) const {
    std::lock_guard lock(m_mutex);
    const auto latest = std::find_if(m_entries.rbegin(), m_entries.rend(), [&](const Entry& entry) {
        return entry.classification == classification;
    });
    return latest == m_entries.rend() ? nullptr : latest->creator;
}

} // namespace oz::plugins
