#pragma once

#include "mesh/Vec3.h"

#include <cstdint>
#include <span>
#include <vector>

namespace oz::mesh {

// Spatial hash over points for "reuse a vertex within tolerance" lookups. Cells are at least the
// tolerance wide, so a match can only sit in the 27 cells around a query point: lookups cost
// O(1) on average instead of a scan over every vertex.
class VertexMergeIndex {
public:
    explicit VertexMergeIndex(double tolerance);

    double tolerance() const { return tolerance_; }
    // Number of leading points of the indexed array that have been inserted.
    int32_t indexedCount() const { return indexedCount_; }

    // Inserts points[indexedCount() ..]: the index follows a point array that only grows.
    void extend(std::span<const Point3> points);
    // The indexed point closest to `p` within the tolerance (the lowest id on ties), or -1.
    int32_t find(Point3 p, std::span<const Point3> points) const;

private:
    struct Cell {
        int64_t x, y, z;
        friend bool operator==(const Cell&, const Cell&) = default;
    };
    struct Slot {
        Cell cell;
        int32_t head = -1; // first point id in the cell, -1 for an empty slot
    };

    Cell cellOf(Point3 p) const;
    size_t slotOf(const Cell& cell) const;
    void insert(int32_t id, Point3 p);
    void grow();

    double tolerance_;
    double inverseCellSize_;
    int32_t indexedCount_ = 0;
    int32_t usedSlots_ = 0;
    std::vector<Slot> slots_;
    std::vector<int32_t> next_; // next point id in the same cell, -1 at the end
};

} // namespace oz::mesh
