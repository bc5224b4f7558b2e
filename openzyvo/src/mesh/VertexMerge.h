#pragma once

#include "mesh/PointTiles.h"
#include "mesh/Vec3.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace oz::mesh {

// Spatial index over points for "reuse a vertex within tolerance" lookups. A large point array
// indexed at once (a whole mesh, on its first merge) is sorted into tiles (PointTiles); points
// added after that go into a spatial hash. Its cells are at least twice the tolerance wide, so
// the tolerance ball around a query point touches at most two cells per axis (its own and the
// nearer neighbour, when the ball reaches it): a lookup probes at most 8 cells, O(1) on average
// instead of a scan over every vertex.
class VertexMergeIndex {
public:
    explicit VertexMergeIndex(double tolerance);

    double tolerance() const { return tolerance_; }

    // Inserts points[indexedCount() ..]: the index follows a point array that only grows.
    void extend(std::span<const Point3> points);
    // The indexed point closest to `p` within the tolerance (the lowest id on ties), or -1.
    int32_t find(Point3 p, std::span<const Point3> points) const;

private:
    struct Cell {
        int64_t x, y, z;
    };
    // A slot is keyed by a 32-bit hash of its cell, not the cell itself. Two cells whose keys
    // collide share one chain, which costs a few distance checks but never a wrong answer, and
    // keeps slots at 8 bytes: the table is probed at random, so its size decides how often a
    // probe misses the cache.
    struct Slot {
        uint32_t key = 0;
        int32_t head = -1; // first point id in the cell, -1 for an empty slot
    };

    Cell cellOf(Point3 p) const;
    // Per axis, the neighbour of p's cell on the side p is nearer to, and whether the tolerance
    // ball around p reaches into it.
    struct Reach {
        Cell near;
        bool crosses[3];
    };
    Reach reachOf(Point3 p) const;
    size_t slotOf(uint32_t key) const;
    void insert(int32_t id, uint32_t key);
    void reserve(size_t cells);
    int32_t& nextOf(int32_t id) { return next_[static_cast<size_t>(id - tiledCount_)]; }
    int32_t nextOf(int32_t id) const { return next_[static_cast<size_t>(id - tiledCount_)]; }

    double tolerance_;
    double inverseCellSize_;
    double reach_; // the tolerance in cell widths
    int32_t indexedCount_ = 0;
    std::optional<PointTiles> tiles_; // points [0, tiledCount_)
    int32_t tiledCount_ = 0;
    int32_t usedSlots_ = 0;
    std::vector<Slot> slots_;
    std::vector<int32_t> next_; // per hashed point, the next id in the same cell, -1 at the end
};

} // namespace oz::mesh
