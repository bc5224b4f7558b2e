#include "mesh/SimilarCuts.h"

#include "mesh/ShapeMemo.h"

#include <algorithm>

namespace oz::mesh {

namespace {

// Which way `cut` runs along the first edge of loop `l`, through the one triangle that borders
// it: 1 from its first point to its second, -1 back, 0 when no triangle has that edge (a cut that
// leaves a loop edge out fits no face).
int runOfFirstEdge(const PlanarFace& face, int32_t l, std::span<const Triangle> cut) {
    const int32_t first = face.loopStart[l];
    const int32_t second = first + 1;
    for (const Triangle& t : cut) {
        for (int k = 0; k < 3; ++k) {
            const int32_t from = t[k];
            const int32_t to = t[(k + 1) % 3];
            if (from == first && to == second)
                return 1;
            if (from == second && to == first)
                return -1;
        }
    }
    return 0;
}

} // namespace

bool cutFits(const PlanarFace& face, std::span<const Triangle> cut) {
    // Ear clipping makes two more triangles per hole than points less two; a face that lost a
    // point when laid flat was cut with fewer.
    const auto holes = static_cast<size_t>(face.loopCount() - 1);
    if (cut.size() + 2 != face.points.size() + 2 * holes)
        return false;
    for (int32_t l = 0; l < face.loopCount(); ++l) {
        // The outer loop runs counter-clockwise, holes were turned clockwise.
        const int run = l == 0 || face.twiceArea[l] < 0.0 ? 1 : -1;
        if (runOfFirstEdge(face, l, cut) != run)
            return false;
    }
    const auto& p = face.points;
    return std::all_of(cut.begin(), cut.end(),
                       [&](const Triangle& t) { return orientation(p[t[0]], p[t[1]], p[t[2]]) > 0; });
}

bool SimilarCuts::sameSizes(const Entry& entry, const FaceLoops& faces, int32_t face) {
    if (entry.loopSizes.size() != static_cast<size_t>(faces.faceLoopCount(face)))
        return false;
    for (int32_t l = 0; l < faces.faceLoopCount(face); ++l) {
        if (entry.loopSizes[static_cast<size_t>(l)] != static_cast<int32_t>(faces.loop(face, l).size()))
            return false;
    }
    return true;
}

std::span<const Triangle> SimilarCuts::candidate(const FaceLoops& faces, int32_t face) const {
    const auto found = entries_.find(loopSizesHash(faces, face));
    if (found == entries_.end() || found->second.block != block_ || !sameSizes(found->second, faces, face))
        return {};
    return found->second.cut;
}

void SimilarCuts::keep(const FaceLoops& faces, int32_t face, std::span<const Triangle> cut) {
    Entry& entry = entries_[loopSizesHash(faces, face)];
    entry.loopSizes.resize(static_cast<size_t>(faces.faceLoopCount(face)));
    for (int32_t l = 0; l < faces.faceLoopCount(face); ++l)
        entry.loopSizes[static_cast<size_t>(l)] = static_cast<int32_t>(faces.loop(face, l).size());
    entry.block = block_;
    entry.cut.assign(cut.begin(), cut.end());
}

} // namespace oz::mesh
