#include "fonts/FontCatalogue.h"

namespace type {

bool FontCatalogue::add(const FontEntry& entry) {
    const auto [first, last] = m_entries.equal_range(entry.family);
    for (auto it = first; it != last; ++it) {
        if (it->second.style == entry.style)
            return false;
    }
    m_entries.emplace(entry.family, entry);
    m_fontStyleList.append(entry.family);
    m_fontStyleList.append(entry.style);
    return true;
}

ZStringArray FontCatalogue::familyNames() const {
    ZStringArray families;
    for (auto it = m_entries.begin(); it != m_entries.end(); it = m_entries.upper_bound(it->first))
        families.append(it->first);
    return families;
}

ZStringArray FontCatalogue::styleNames(const ZString& family) const {
    ZStringArray styles;
    const auto [first, last] = m_entries.equal_range(family);
    for (auto it = first; it != last; ++it)
        styles.append(it->second.style);
    return styles;
}

std::optional<FontCatalogue::Match> FontCatalogue::find(const ZString& family, const ZString& style) const {
    const auto [first, last] = m_entries.equal_range(family);
    if (first == last)
        return std::nullopt;
    auto lowest = first;
    for (auto it = first; it != last; ++it) {
        if (it->second.style == style)
            return Match{it->second.path, it->second.faceIndex, true};
        if (it->second.faceIndex < lowest->second.faceIndex)
            lowest = it;
    }
    return Match{lowest->second.path, lowest->second.faceIndex, false};
}

} // namespace type
