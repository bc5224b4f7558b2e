#include "mesh/ShapeMemo.h"

#include <algorithm>
#include <bit>

namespace oz::mesh {

namespace {

constexpr size_t kHashedPoints = 8;

// a - b when the difference is exact, which is when no bits of it were rounded away.
bool exactDifference(double a, double b, double& difference) {
    difference = a - b;
    const double bVirtual = a - difference;
    const double aVirtual = difference + bVirtual;
    return (a - aVirtual) + (bVirtual - b) == 0.0;
}

uint64_t mix(uint64_t hash, uint64_t value) {
    hash ^= value + 0x9e3779b97f4a7c15ULL + (hash << 6) + (hash >> 2);
    return hash;
}

uint64_t bitsOf(double value) {
    // +0 and -0 are one offset.
    return std::bit_cast<uint64_t>(value == 0.0 ? 0.0 : value);
}

} // namespace

bool makeShapeKey(const FaceLoops& faces, std::span<const Point3> points, int32_t face, ShapeKey& key) {
    key.loopSizes.clear();
    uint64_t hash = 0;
    for (int32_t l = 0; l < faces.faceLoopCount(face); ++l) {
        key.loopSizes.push_back(static_cast<int32_t>(faces.loop(face, l).size()));
        hash = mix(hash, static_cast<uint64_t>(key.loopSizes.back()));
    }
    const auto ids = faces.faceVertices(face);
    const Point3 origin = points[ids[0]];
    key.offsets.resize(ids.size());
    for (size_t i = 0; i < ids.size(); ++i) {
        const Point3 p = points[ids[i]];
        Vector3& d = key.offsets[i];
        if (!exactDifference(p.x, origin.x, d.x) || !exactDifference(p.y, origin.y, d.y) ||
            !exactDifference(p.z, origin.z, d.z))
            return false;
    }
    // A sample of the offsets spreads the keys well enough; equal keys are compared in full.
    const size_t step = std::max<size_t>(1, ids.size() / kHashedPoints);
    for (size_t i = 0; i < ids.size(); i += step) {
        const Vector3 d = key.offsets[i];
        hash = mix(mix(mix(hash, bitsOf(d.x)), bitsOf(d.y)), bitsOf(d.z));
    }
    key.hash = hash;
    return true;
}

bool ShapeMemo::matches(const Entry& entry, const ShapeKey& key) const {
    return entry.hash == key.hash && entry.loopCount == static_cast<int32_t>(key.loopSizes.size()) &&
           entry.offsetCount == static_cast<int32_t>(key.offsets.size()) &&
           std::equal(key.loopSizes.begin(), key.loopSizes.end(), loopSizes_.begin() + entry.loopBegin) &&
           std::equal(key.offsets.begin(), key.offsets.end(), offsets_.begin() + entry.offsetBegin);
}

std::span<const Triangle> ShapeMemo::find(const ShapeKey& key) const {
    if (slots_.empty())
        return {};
    const size_t mask = slots_.size() - 1;
    for (size_t s = key.hash & mask; slots_[s] != 0; s = (s + 1) & mask) {
        const Entry& entry = entries_[static_cast<size_t>(slots_[s]) - 1];
        if (matches(entry, key))
            return std::span<const Triangle>(patterns_).subspan(entry.patternBegin, entry.patternCount);
    }
    return {};
}

void ShapeMemo::grow() {
    slots_.assign(std::max<size_t>(64, 2 * slots_.size()), 0);
    const size_t mask = slots_.size() - 1;
    for (size_t e = 0; e < entries_.size(); ++e) {
        size_t s = entries_[e].hash & mask;
        while (slots_[s] != 0)
            s = (s + 1) & mask;
        slots_[s] = static_cast<int32_t>(e) + 1;
    }
}

void ShapeMemo::store(const ShapeKey& key, std::span<const Triangle> pattern) {
    entries_.push_back({key.hash, static_cast<int32_t>(loopSizes_.size()),
                        static_cast<int32_t>(key.loopSizes.size()), static_cast<int32_t>(offsets_.size()),
                        static_cast<int32_t>(key.offsets.size()), static_cast<int32_t>(patterns_.size()),
                        static_cast<int32_t>(pattern.size())});
    loopSizes_.insert(loopSizes_.end(), key.loopSizes.begin(), key.loopSizes.end());
    offsets_.insert(offsets_.end(), key.offsets.begin(), key.offsets.end());
    patterns_.insert(patterns_.end(), pattern.begin(), pattern.end());
    // At most half full, so that probes stay short.
    if (2 * entries_.size() > slots_.size()) {
        grow();
        return;
    }
    const size_t mask = slots_.size() - 1;
    size_t s = key.hash & mask;
    while (slots_[s] != 0)
        s = (s + 1) & mask;
    slots_[s] = static_cast<int32_t>(entries_.size());
}

} // namespace oz::mesh
