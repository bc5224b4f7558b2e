#include "mesh/ShapeMemo.h"

#include "mesh/HashCombine.h"

#include <algorithm>
#include <bit>

namespace oz::mesh {

namespace {

constexpr size_t kHashedPoints = 4;

// A slot holds the high half of its entry's hash as a tag and the entry's index plus one.
constexpr uint64_t kTagBits = 0xffffffff00000000ULL;

uint64_t slotFor(uint64_t hash, size_t entry) {
    return (hash & kTagBits) | (static_cast<uint64_t>(entry) + 1);
}

uint64_t bitsOf(double value) {
    // +0 and -0 are one offset.
    return std::bit_cast<uint64_t>(value == 0.0 ? 0.0 : value);
}

} // namespace

bool exactDifference(double a, double b, double& difference) {
    difference = a - b;
    const double bVirtual = a - difference;
    const double aVirtual = difference + bVirtual;
    return (a - aVirtual) + (bVirtual - b) == 0.0;
}

uint64_t loopSizesHash(const FaceLoops& faces, int32_t face) {
    uint64_t hash = 0;
    for (int32_t l = 0; l < faces.faceLoopCount(face); ++l)
        hash = hashCombine(hash, faces.loop(face, l).size());
    return hash;
}

uint64_t shapeHash(const FaceLoops& faces, std::span<const Point3> points, int32_t face) {
    uint64_t hash = loopSizesHash(faces, face);
    // A sample of the offsets spreads the keys well enough; candidates are compared in full.
    const auto ids = faces.faceVertices(face);
    const Point3 origin = points[ids[0]];
    const size_t step = std::max<size_t>(1, ids.size() / kHashedPoints);
    for (size_t i = step; i < ids.size(); i += step) {
        const Vector3 d = points[ids[i]] - origin;
        hash = hashCombine(hashCombine(hashCombine(hash, bitsOf(d.x)), bitsOf(d.y)), bitsOf(d.z));
    }
    return hash;
}

bool offsetsExact(const FaceLoops& faces, std::span<const Point3> points, int32_t face) {
    const auto ids = faces.faceVertices(face);
    const Point3 origin = points[ids[0]];
    for (size_t i = 1; i < ids.size(); ++i) {
        const Point3 p = points[ids[i]];
        double d = 0.0;
        if (!exactDifference(p.x, origin.x, d) || !exactDifference(p.y, origin.y, d) ||
            !exactDifference(p.z, origin.z, d))
            return false;
    }
    return true;
}

bool sameOffsets(const FaceLoops& faces, std::span<const Point3> points, int32_t a, int32_t b) {
    const int32_t loops = faces.faceLoopCount(a);
    if (faces.faceLoopCount(b) != loops)
        return false;
    for (int32_t l = 0; l < loops; ++l) {
        if (faces.loop(a, l).size() != faces.loop(b, l).size())
            return false;
    }
    const auto idsA = faces.faceVertices(a);
    const auto idsB = faces.faceVertices(b);
    const Point3 originA = points[idsA[0]];
    const Point3 originB = points[idsB[0]];
    auto same = [](double a, double originA, double b, double originB) {
        double d = 0.0;
        return exactDifference(b, originB, d) && d == a - originA;
    };
    for (size_t i = 1; i < idsA.size(); ++i) {
        const Point3 p = points[idsA[i]];
        const Point3 q = points[idsB[i]];
        if (!same(p.x, originA.x, q.x, originB.x) || !same(p.y, originA.y, q.y, originB.y) ||
            !same(p.z, originA.z, q.z, originB.z))
            return false;
    }
    return true;
}

bool ShapeMemo::exact(Entry& entry, const FaceLoops& faces, std::span<const Point3> points) {
    if (entry.exact == Entry::Exact::Unknown)
        entry.exact = offsetsExact(faces, points, entry.face) ? Entry::Exact::Yes : Entry::Exact::No;
    return entry.exact == Entry::Exact::Yes;
}

std::optional<ShapeMemo::Found> ShapeMemo::find(const FaceLoops& faces, std::span<const Point3> points,
                                                int32_t face, uint64_t hash) {
    if (slots_.empty())
        return std::nullopt;
    std::optional<Found> found;
    const size_t mask = slots_.size() - 1;
    for (size_t s = hash & mask; slots_[s] != 0; s = (s + 1) & mask) {
        // A slot of another shape is told apart by its tag, without a look at its entry.
        if (((slots_[s] ^ hash) & kTagBits) != 0)
            continue;
        const auto index = static_cast<int32_t>((slots_[s] & ~kTagBits) - 1);
        Entry& entry = entries_[static_cast<size_t>(index)];
        const bool own = entry.block == block_;
        // Once a pattern cut afresh is found, only one of the current block can do better.
        if (entry.hash != hash || !(own || (entry.origin != Origin::Alike && !found)))
            continue;
        if (!exact(entry, faces, points) || !sameOffsets(faces, points, entry.face, face))
            continue;
        found = Found{entry.pattern, entry.origin, own, index};
        if (own)
            break;
    }
    return found;
}

void ShapeMemo::grow() {
    slots_.assign(std::max<size_t>(64, 2 * slots_.size()), 0);
    const size_t mask = slots_.size() - 1;
    for (size_t e = 0; e < entries_.size(); ++e) {
        size_t s = entries_[e].hash & mask;
        while (slots_[s] != 0)
            s = (s + 1) & mask;
        slots_[s] = slotFor(entries_[e].hash, e);
    }
}

void writePattern(std::span<const int32_t> ids, std::span<const Triangle> pattern, Triangle* out) {
    for (const auto& [a, b, c] : pattern)
        *out++ = {ids[a], ids[b], ids[c]};
}

ShapeMemo::Pattern ShapeMemo::store(int32_t face, uint64_t hash, std::span<const Triangle> pattern,
                                    Origin origin) {
    const Pattern stored{static_cast<int32_t>(patterns_.size()), static_cast<int32_t>(pattern.size())};
    entries_.push_back({hash, face, stored, Entry::Exact::Unknown, origin, block_});
    patterns_.insert(patterns_.end(), pattern.begin(), pattern.end());
    // At most half full, so that probes stay short.
    if (2 * entries_.size() > slots_.size()) {
        grow();
        return stored;
    }
    const size_t mask = slots_.size() - 1;
    size_t s = hash & mask;
    while (slots_[s] != 0)
        s = (s + 1) & mask;
    slots_[s] = slotFor(hash, entries_.size() - 1);
    return stored;
}

} // namespace oz::mesh
