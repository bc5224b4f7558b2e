#include "mesh/VertexMerge.h"

#include <algorithm>
#include <cmath>
#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

namespace oz::mesh {

namespace {

// Cells narrower than this would push cell coordinates of ordinary scene values past 64 bits.
constexpr double kMinCellSize = 1e-9;
constexpr double kMaxCellCoordinate = 4e18;
// A cell four tolerances wide: the tolerance ball around a query point crosses into the
// neighbour along an axis only when the point lies within a quarter cell of that side, so a
// lookup probes about three cells on average instead of eight.
constexpr double kCellsPerTolerance = 4.0;
// A first batch of at least this many points is sorted into tiles rather than hashed.
constexpr int32_t kTiledFrom = 1024;

int64_t cellCoordinate(double value) {
    const double c = std::floor(value);
    if (!(c > -kMaxCellCoordinate)) // also catches NaN
        return static_cast<int64_t>(-kMaxCellCoordinate);
    return static_cast<int64_t>(std::min(c, kMaxCellCoordinate));
}

// Murmur3's finaliser: every input bit reaches every output bit, so the neighbouring cells of a
// grid do not pile up in neighbouring slots under linear probing.
uint64_t mix(uint64_t v) {
    v ^= v >> 33;
    v *= 0xff51afd7ed558ccdull;
    v ^= v >> 33;
    v *= 0xc4ceb9fe1a85ec53ull;
    v ^= v >> 33;
    return v;
}

} // namespace

VertexMergeIndex::VertexMergeIndex(double tolerance)
    : tolerance_(tolerance)
    , inverseCellSize_(1.0 / std::max(kCellsPerTolerance * tolerance, kMinCellSize))
    , reach_(tolerance * inverseCellSize_)
    , slots_(64) {}

VertexMergeIndex::Cell VertexMergeIndex::cellOf(Point3 p) const {
    return {cellCoordinate(p.x * inverseCellSize_), cellCoordinate(p.y * inverseCellSize_),
            cellCoordinate(p.z * inverseCellSize_)};
}

VertexMergeIndex::Reach VertexMergeIndex::reachOf(Point3 p) const {
    const auto side = [&](double value, int64_t& cell) {
        const double scaled = value * inverseCellSize_;
        const double fraction = scaled - std::floor(scaled);
        const bool lower = fraction < 0.5;
        cell = cellCoordinate(scaled) + (lower ? -1 : 1);
        // Rounding of the scaled coordinate is allowed for generously: a neighbour probed in vain
        // costs a lookup, one skipped wrongly a missed merge.
        const double slack = 1e-6 + std::abs(scaled) * 1e-12;
        return (lower ? fraction : 1.0 - fraction) <= reach_ + slack;
    };
    Reach r;
    r.crosses[0] = side(p.x, r.near.x);
    r.crosses[1] = side(p.y, r.near.y);
    r.crosses[2] = side(p.z, r.near.z);
    return r;
}

// Keys are the low 32 bits of a cell's hash and pick the home slot by themselves, so a table can
// be rehashed from its keys alone, and cells whose keys collide always share one chain.
uint32_t keyOf(int64_t x, int64_t y, int64_t z) {
    // Odd multipliers spread each coordinate over the word before one finaliser mixes them.
    return static_cast<uint32_t>(mix(static_cast<uint64_t>(x) * 0x9e3779b97f4a7c15ull ^
                                     static_cast<uint64_t>(y) * 0xc2b2ae3d27d4eb4full ^
                                     static_cast<uint64_t>(z) * 0x165667b19e3779f9ull));
}

size_t VertexMergeIndex::slotOf(uint32_t key) const {
    const size_t mask = slots_.size() - 1;
    size_t slot = key & mask;
    while (slots_[slot].head >= 0 && slots_[slot].key != key)
        slot = (slot + 1) & mask;
    return slot;
}

void VertexMergeIndex::reserve(size_t cells) {
    size_t size = slots_.size();
    while (size < 2 * cells)
        size *= 2;
    if (size == slots_.size())
        return;
    std::vector<Slot> old(size);
    old.swap(slots_);
    for (const Slot& s : old) {
        if (s.head >= 0)
            slots_[slotOf(s.key)] = s;
    }
}

void VertexMergeIndex::insert(int32_t id, uint32_t key) {
    Slot& slot = slots_[slotOf(key)];
    if (slot.head < 0) {
        slot.key = key;
        ++usedSlots_;
    }
    nextOf(id) = slot.head;
    slot.head = id;
}

void VertexMergeIndex::extend(std::span<const Point3> points) {
    const auto count = static_cast<int32_t>(points.size());
    if (count <= indexedCount_)
        return;
    if (indexedCount_ == 0 && count >= kTiledFrom) {
        tiles_.emplace(points, 1.0 / inverseCellSize_);
        indexedCount_ = tiledCount_ = count;
        return;
    }
    next_.resize(points.size() - static_cast<size_t>(tiledCount_), -1);
    reserve(static_cast<size_t>(usedSlots_) + static_cast<size_t>(count - indexedCount_));

    // A later batch can still be large (a mesh merged into another), and each insert lands on a
    // random slot of a table that may be far larger than the cache. The keys are worked out first
    // (on all cores), so that each insert can fetch the home slot of one a little ahead and the
    // misses overlap instead of queueing.
    constexpr int32_t kAhead = 16;
    std::vector<uint32_t> keys(static_cast<size_t>(count - indexedCount_));
    const int32_t first = indexedCount_;
    tbb::parallel_for(tbb::blocked_range<int32_t>(first, count, 16384),
                      [&](const tbb::blocked_range<int32_t>& ids) {
                          for (int32_t id = ids.begin(); id != ids.end(); ++id) {
                              const Cell cell = cellOf(points[id]);
                              keys[static_cast<size_t>(id - first)] = keyOf(cell.x, cell.y, cell.z);
                          }
                      });
    const size_t mask = slots_.size() - 1;
    for (int32_t id = indexedCount_; id < count; ++id) {
        const auto at = static_cast<size_t>(id - indexedCount_);
        if (at + kAhead < keys.size())
            __builtin_prefetch(&slots_[keys[at + kAhead] & mask], 1);
        if (isFinite(points[id]))
            insert(id, keys[at]);
    }
    indexedCount_ = count;
}

int32_t VertexMergeIndex::find(Point3 p, std::span<const Point3> points) const {
    if (!isFinite(p))
        return -1;
    int32_t best = -1;
    double bestDistance = tolerance_ * tolerance_;
    const auto consider = [&](int32_t id) {
        const Vec3 d = points[id] - p;
        const double distance = dot(d, d);
        if (distance < bestDistance || (distance == bestDistance && (best < 0 || id < best))) {
            best = id;
            bestDistance = distance;
        }
    };
    if (tiles_) {
        // A point on p is the best a tile can hold after its lower ids: a solid's holes are put
        // back onto its own vertices, so most lookups end part way through a tile.
        tiles_->forEachNear(p, tolerance_, [&](int32_t id) {
            consider(id);
            return !(bestDistance == 0.0 && best >= 0 && best <= id);
        });
    }
    if (indexedCount_ == tiledCount_)
        return best;
    const Cell own = cellOf(p);
    const Reach reach = reachOf(p);
    for (int i = 0; i < (reach.crosses[0] ? 2 : 1); ++i) {
        const int64_t x = i == 0 ? own.x : reach.near.x;
        for (int j = 0; j < (reach.crosses[1] ? 2 : 1); ++j) {
            const int64_t y = j == 0 ? own.y : reach.near.y;
            for (int k = 0; k < (reach.crosses[2] ? 2 : 1); ++k) {
                const int64_t z = k == 0 ? own.z : reach.near.z;
                const Slot& slot = slots_[slotOf(keyOf(x, y, z))];
                for (int32_t id = slot.head; id >= 0; id = nextOf(id))
                    consider(id);
            }
        }
    }
    return best;
}

} // namespace oz::mesh
