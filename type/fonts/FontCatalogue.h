#pragma once

#include "fonts/FontEntry.h"

#include <OpenZyvo/ZStringArray.h>
#include <cstddef>
#include <map>
#include <optional>

namespace type {

// The fonts a type node can use, keyed by family name. Names compare exactly:
// case-sensitive, without Unicode normalisation.
class FontCatalogue {
public:
    // Adds the entry unless its family and style are already present, so the
    // first file found for a family/style wins. Returns whether it was added.
    bool add(const FontEntry& entry);

    bool isEmpty() const { return m_entries.empty(); }
    std::size_t size() const { return m_entries.size(); }

    // Family, style, family, style, ... in the order the entries were added
    // (the node's "fontStyleList").
    const ZStringArray& fontStyleList() const { return m_fontStyleList; }

    // The distinct families in name order, and the styles of one family in the
    // order they were added, for the node's font and style pickers.
    ZStringArray familyNames() const;
    ZStringArray styleNames(const ZString& family) const;

    struct Match {
        ZString path;
        std::uint32_t faceIndex = 0;
        bool exactStyle = false;
    };

    // The entry of this family and style; when the style is not there, the
    // family's entry of the smallest face index (the first added among equals),
    // flagged as a different style. Nothing when the family is unknown.
    std::optional<Match> find(const ZString& family, const ZString& style) const;

private:
    // Entries of one family keep the order they were added in.
    std::multimap<ZString, FontEntry> m_entries;
    ZStringArray m_fontStyleList;
};

} // namespace type
