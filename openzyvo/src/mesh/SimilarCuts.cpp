#include "mesh/SimilarCuts.h"

#include <algorithm>

namespace oz::mesh {

namespace {

uint64_t mix(uint64_t hash, uint64_t value) {
    return hash ^ (value + 0x9e3779b97f4a7c15ULL + (hash << 6) + (hash >> 2));
}

// Whether loop `l` of a well-formed face is a hole running counter-clockwise, which the cutter
// turns round before joining it.
bool reversedHole(const PlanarFace& face, int32_t l) {
    return l > 0 && face.twiceArea[l] > 0.0;
}

// A key for the faces alike in loops, holes and reflex corners. It only names candidates: the
// loops are compared in full, and a cut is taken only once proven to fit.
uint64_t familyKey(const PlanarFace& face) {
    uint64_t hash = static_cast<uint64_t>(face.loopCount());
    for (int32_t l = 0; l < face.loopCount(); ++l)
        hash = mix(hash, static_cast<uint64_t>(face.loopSize(l)) * 2 + (reversedHole(face, l) ? 1 : 0));
    // One bit per corner, 64 at a time.
    uint64_t reflex = 0;
    for (size_t i = 0; i < face.turn.size(); ++i) {
        reflex |= static_cast<uint64_t>(face.turn[i] <= 0) << (i % 64);
        if (i % 64 == 63) {
            hash = mix(hash, reflex);
            reflex = 0;
        }
    }
    return mix(hash, reflex);
}

} // namespace

bool cutFits(const PlanarFace& face, std::span<const Triangle> cut) {
    const auto& p = face.points;
    return std::all_of(cut.begin(), cut.end(),
                       [&](const Triangle& t) { return orientation(p[t[0]], p[t[1]], p[t[2]]) > 0; });
}

bool SimilarCuts::sameLoops(const Entry& entry, const PlanarFace& face) {
    if (!std::equal(entry.loopStart.begin(), entry.loopStart.end(), face.loopStart.begin(),
                    face.loopStart.end()))
        return false;
    for (int32_t l = 0; l < face.loopCount(); ++l) {
        if (entry.reversed[static_cast<size_t>(l)] != reversedHole(face, l))
            return false;
    }
    return true;
}

std::span<const Triangle> SimilarCuts::find(const PlanarFace& face) {
    const auto found = entries_.find(familyKey(face));
    if (found == entries_.end() || !sameLoops(found->second, face) || !cutFits(face, found->second.cut))
        return {};
    return found->second.cut;
}

void SimilarCuts::keep(const PlanarFace& face, std::span<const Triangle> cut) {
    Entry& entry = entries_[familyKey(face)];
    entry.loopStart = face.loopStart;
    entry.reversed.resize(static_cast<size_t>(face.loopCount()));
    for (int32_t l = 0; l < face.loopCount(); ++l)
        entry.reversed[static_cast<size_t>(l)] = reversedHole(face, l);
    entry.cut.assign(cut.begin(), cut.end());
}

} // namespace oz::mesh
