#include "layout/GlyphOutlineCache.h"

#include <tuple>

namespace type {

bool operator<(const GlyphOutlineKey& a, const GlyphOutlineKey& b) {
    return std::tie(a.glyphIndex, a.curveResolution, a.pixelSize, a.family, a.style) <
           std::tie(b.glyphIndex, b.curveResolution, b.pixelSize, b.family, b.style);
}

std::optional<GlyphShapes> GlyphOutlineCache::find(const GlyphOutlineKey& key) {
    const auto it = m_entries.find(key);
    if (it == m_entries.end())
        return std::nullopt;
    it->second.lastUse = m_evaluation;
    return it->second.shapes;
}

void GlyphOutlineCache::storeBlank(const GlyphOutlineKey& key) {
    m_entries[key] = Entry{nullptr, m_evaluation};
}

GlyphShapes GlyphOutlineCache::storeDecomposed(const GlyphOutlineKey& key, std::vector<Shape> shapes) {
    auto stored = std::make_shared<const std::vector<Shape>>(std::move(shapes));
    m_entries[key] = Entry{stored, m_evaluation};
    ++m_decompositions;
    return stored;
}

void GlyphOutlineCache::endEvaluation() {
    if (m_entries.size() > m_capacity)
        std::erase_if(m_entries, [this](const auto& entry) { return entry.second.lastUse != m_evaluation; });
    ++m_evaluation;
}

} // namespace type
