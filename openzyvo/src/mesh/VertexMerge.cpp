#include "mesh/VertexMerge.h"

#include <algorithm>
#include <cmath>

namespace oz::mesh {

namespace {

// Cells narrower than this would push cell coordinates of ordinary scene values past 64 bits.
constexpr double kMinCellSize = 1e-9;
constexpr double kMaxCellCoordinate = 4e18;

int64_t cellCoordinate(double value) {
    const double c = std::floor(value);
    if (!(c > -kMaxCellCoordinate)) // also catches NaN
        return static_cast<int64_t>(-kMaxCellCoordinate);
    return static_cast<int64_t>(std::min(c, kMaxCellCoordinate));
}

} // namespace

VertexMergeIndex::VertexMergeIndex(double tolerance)
    : tolerance_(tolerance)
    , inverseCellSize_(1.0 / std::max(tolerance, kMinCellSize))
    , slots_(64) {}

VertexMergeIndex::Cell VertexMergeIndex::cellOf(Point3 p) const {
    return {cellCoordinate(p.x * inverseCellSize_), cellCoordinate(p.y * inverseCellSize_),
            cellCoordinate(p.z * inverseCellSize_)};
}

size_t VertexMergeIndex::slotOf(const Cell& cell) const {
    uint64_t h = static_cast<uint64_t>(cell.x) * 0x9E3779B97F4A7C15ull;
    h ^= static_cast<uint64_t>(cell.y) * 0xC2B2AE3D27D4EB4Full + (h << 6) + (h >> 2);
    h ^= static_cast<uint64_t>(cell.z) * 0x165667B19E3779F9ull + (h << 6) + (h >> 2);
    const size_t mask = slots_.size() - 1;
    size_t slot = (h ^ (h >> 29)) & mask;
    while (slots_[slot].head >= 0 && !(slots_[slot].cell == cell))
        slot = (slot + 1) & mask;
    return slot;
}

void VertexMergeIndex::grow() {
    std::vector<Slot> old(slots_.size() * 2);
    old.swap(slots_);
    for (const Slot& s : old) {
        if (s.head >= 0)
            slots_[slotOf(s.cell)] = s;
    }
}

void VertexMergeIndex::insert(int32_t id, Point3 p) {
    if (2 * (usedSlots_ + 1) > static_cast<int64_t>(slots_.size()))
        grow();
    const Cell cell = cellOf(p);
    Slot& slot = slots_[slotOf(cell)];
    if (slot.head < 0) {
        slot.cell = cell;
        ++usedSlots_;
    }
    next_[id] = slot.head;
    slot.head = id;
}

void VertexMergeIndex::extend(std::span<const Point3> points) {
    const auto count = static_cast<int32_t>(points.size());
    next_.resize(points.size(), -1);
    for (int32_t id = indexedCount_; id < count; ++id) {
        if (isFinite(points[id]))
            insert(id, points[id]);
    }
    indexedCount_ = std::max(indexedCount_, count);
}

int32_t VertexMergeIndex::find(Point3 p, std::span<const Point3> points) const {
    if (!isFinite(p))
        return -1;
    const Cell center = cellOf(p);
    int32_t best = -1;
    double bestDistance = tolerance_ * tolerance_;
    for (int64_t dx = -1; dx <= 1; ++dx) {
        for (int64_t dy = -1; dy <= 1; ++dy) {
            for (int64_t dz = -1; dz <= 1; ++dz) {
                const Slot& slot = slots_[slotOf({center.x + dx, center.y + dy, center.z + dz})];
                for (int32_t id = slot.head; id >= 0; id = next_[id]) {
                    const Vec3 d = points[id] - p;
                    const double distance = dot(d, d);
                    if (distance < bestDistance || (distance == bestDistance && (best < 0 || id < best))) {
                        best = id;
                        bestDistance = distance;
                    }
                }
            }
        }
    }
    return best;
}

} // namespace oz::mesh
