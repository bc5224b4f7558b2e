#pragma once

#include "mesh/Vec3.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace oz::mesh {

// The ids of a point array sorted into a uniform grid of tiles over the points' bounding box,
// about a dozen points to a tile. It is built in a few streaming passes on all cores, which costs
// far less than inserting every point into a hash table one random slot at a time, and a lookup
// then scans a few neighbouring points that lie close together in memory as they do in space.
// Points that are not finite are left out.
class PointTiles {
public:
    // Tiles are at least `minTileSize` wide, so that a ball of that diameter spans at most two
    // tiles per axis.
    PointTiles(std::span<const Point3> points, double minTileSize);

    // Calls visit(id) for every point whose tile the cube of half-width `reach` around `p`
    // touches, in ascending id order within each tile; visit returns false to skip the rest of
    // the tile (the points of higher ids).
    template <class Visit> void forEachNear(Point3 p, double reach, Visit&& visit) const {
        std::array<int64_t, 3> lo{};
        std::array<int64_t, 3> hi{};
        for (int axis = 0; axis < 3; ++axis) {
            if (!tileRange(axis, p, reach, lo[axis], hi[axis]))
                return;
        }
        for (int64_t z = lo[2]; z <= hi[2]; ++z) {
            for (int64_t y = lo[1]; y <= hi[1]; ++y) {
                for (int64_t x = lo[0]; x <= hi[0]; ++x) {
                    const size_t tile = static_cast<size_t>((z * dims_[1] + y) * dims_[0] + x);
                    for (int32_t i = starts_[tile]; i < starts_[tile + 1]; ++i) {
                        if (!visit(ids_[static_cast<size_t>(i)]))
                            break;
                    }
                }
            }
        }
    }

private:
    // The tiles along `axis` that [p - reach, p + reach] overlaps; false when it misses them all.
    bool tileRange(int axis, Point3 p, double reach, int64_t& lo, int64_t& hi) const;

    std::array<double, 3> origin_{};
    double inverseTileSize_ = 0.0;
    std::array<int64_t, 3> dims_{1, 1, 1};
    std::vector<int32_t> starts_; // per tile, its first position in ids_; one more at the end
    std::vector<int32_t> ids_;
};

} // namespace oz::mesh
