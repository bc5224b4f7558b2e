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
//
// Beside each id a tile keeps the point's coordinate along the axis the tiles cut most coarsely,
// rounded to a float. A solid stacks the rings of its walls and bevels at nearly the same x and y,
// so one tile holds a whole stack; the key lets a lookup pass over the rings at other depths
// reading only the tile itself, and fetch the points of those that can be in reach.
class PointTiles {
public:
    // Tiles are at least `minTileSize` wide, so that a ball of that diameter spans at most two
    // tiles per axis.
    PointTiles(std::span<const Point3> points, double minTileSize);

    // Calls visit(id) for every point in the tiles the cube of half-width `reach` around `p` touches,
    // leaving out only points whose key shows them out of reach along the key axis.
    template <class Visit> void forEachNear(Point3 p, double reach, Visit&& visit) const {
        std::array<int64_t, 3> lo{};
        std::array<int64_t, 3> hi{};
        for (int axis = 0; axis < 3; ++axis) {
            if (!tileRange(axis, p, reach, lo[axis], hi[axis]))
                return;
        }
        const KeyRange keys = keyRange(p, reach);
        for (int64_t z = lo[2]; z <= hi[2]; ++z) {
            for (int64_t y = lo[1]; y <= hi[1]; ++y) {
                for (int64_t x = lo[0]; x <= hi[0]; ++x) {
                    const size_t tile = static_cast<size_t>((z * dims_[1] + y) * dims_[0] + x);
                    const Entry* end = entries_.data() + starts_[tile + 1];
                    for (const Entry* e = entries_.data() + starts_[tile]; e != end; ++e) {
                        if (e->key >= keys.low && e->key <= keys.high)
                            visit(e->id);
                    }
                }
            }
        }
    }

private:
    struct Entry {
        float key; // the point's coordinate along keyAxis_
        int32_t id;
    };
    struct KeyRange {
        float low, high;
    };

    // The tiles along `axis` that [p - reach, p + reach] overlaps; false when it misses them all.
    bool tileRange(int axis, Point3 p, double reach, int64_t& lo, int64_t& hi) const;
    // Keys that points within `reach` of p along the key axis can have.
    KeyRange keyRange(Point3 p, double reach) const;
    int64_t tileOf(int axis, double value) const;

    std::array<double, 3> origin_{};
    double inverseTileSize_ = 0.0;
    std::array<int64_t, 3> dims_{1, 1, 1};
    int keyAxis_ = 2;
    std::vector<int32_t> starts_; // per tile, its first position in entries_; one more at the end
    std::vector<Entry> entries_;
};

} // namespace oz::mesh
