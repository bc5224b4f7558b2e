#include "offset/DistanceFieldCache.h"

#include "offset/OutlineIdentity.h"

#include <tbb/parallel_for.h>

namespace type {

std::vector<DistanceFieldCache::Field>
DistanceFieldCache::fields(const std::vector<const FaceOutline*>& outlines,
                           const std::vector<std::vector<Mitre>>& mitres, int gridSize) {
    if (gridSize != m_gridSize)
        m_kept.clear();
    m_gridSize = gridSize;
    std::vector<Field> out(outlines.size());
    std::vector<uint64_t> hashes(outlines.size());
    std::vector<std::size_t> missing;
    for (std::size_t i = 0; i < outlines.size(); ++i) {
        hashes[i] = outlineHash(*outlines[i]);
        for (auto [it, end] = m_kept.equal_range(hashes[i]); it != end && !out[i]; ++it) {
            if (sameOutline(it->second.outline, *outlines[i]))
                out[i] = it->second.field;
        }
        if (!out[i])
            missing.push_back(i);
    }
    tbb::parallel_for(std::size_t{0}, missing.size(), [&](std::size_t m) {
        const std::size_t i = missing[m];
        out[i] = std::make_shared<const DistanceFieldOffset>(*outlines[i], mitres[i], gridSize);
    });

    std::unordered_multimap<uint64_t, Kept> kept;
    kept.reserve(outlines.size());
    for (std::size_t i = 0; i < outlines.size(); ++i)
        kept.emplace(hashes[i], Kept{*outlines[i], out[i]});
    m_kept = std::move(kept);
    return out;
}

} // namespace type
