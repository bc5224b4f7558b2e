#include "mesh/PointTiles.h"

#include "mesh/BoundingBox.h"
#include "mesh/UninitialisedAllocator.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#include <tbb/parallel_reduce.h>
#include <tbb/task_arena.h>

namespace oz::mesh {

namespace {

// Points on the outlines of a text crowd into a few tiles of those their box is cut into, so
// the average is kept low.
constexpr double kPointsPerTile = 8.0;
// Points are sorted in this many slices of ids at once, each by one task.
constexpr size_t kSliceSize = 65536;

double coordinate(Point3 p, int axis) {
    return axis == 0 ? p.x : (axis == 1 ? p.y : p.z);
}

// Rounds to the nearest float, saturating past the float range instead of overflowing. It never
// decreases as its argument grows, which is all a key needs to rule points out safely.
float floatKey(double value) {
    constexpr auto kMax = static_cast<double>(std::numeric_limits<float>::max());
    return static_cast<float>(std::clamp(value, -kMax, kMax));
}

BoundingBox finiteBounds(std::span<const Point3> points) {
    return tbb::parallel_reduce(
        tbb::blocked_range<size_t>(0, points.size(), 16384), BoundingBox{},
        [&](const tbb::blocked_range<size_t>& range, BoundingBox box) {
            for (size_t i = range.begin(); i != range.end(); ++i) {
                if (isFinite(points[i]))
                    box.expand(points[i]);
            }
            return box;
        },
        [](BoundingBox a, const BoundingBox& b) {
            if (!b.empty()) {
                a.expand(b.min);
                a.expand(b.max);
            }
            return a;
        });
}

// A tile width that cuts `extent` into about `tiles` tiles, counting only the axes the points
// spread along (a flat text has none along z).
double tileSizeFor(const std::array<double, 3>& extent, double tiles, double minTileSize) {
    double volume = 1.0;
    int axes = 0;
    for (const double e : extent) {
        if (e > 0.0) {
            volume *= e;
            ++axes;
        }
    }
    const double size = axes == 0 ? minTileSize : std::pow(volume / tiles, 1.0 / axes);
    return std::isfinite(size) && size > minTileSize ? size : std::max(minTileSize, 1e-300);
}

} // namespace

PointTiles::PointTiles(std::span<const Point3> points, double minTileSize) {
    const BoundingBox box = finiteBounds(points);
    if (box.empty()) {
        starts_.assign(2, 0);
        return;
    }
    // Points near the ends of the double range could span more than it holds.
    const auto span = [](double low, double high) {
        const double e = high - low;
        return std::isfinite(e) ? e : std::numeric_limits<double>::max();
    };
    const std::array<double, 3> extent{span(box.min.x, box.max.x), span(box.min.y, box.max.y),
                                       span(box.min.z, box.max.z)};
    origin_ = {box.min.x, box.min.y, box.min.z};
    const double wanted = std::max(1.0, static_cast<double>(points.size()) / kPointsPerTile);
    double size = tileSizeFor(extent, wanted, minTileSize);
    // Rounding up per axis can multiply the count; widen the tiles until it stays bounded.
    for (;;) {
        double count = 1.0;
        for (int axis = 0; axis < 3; ++axis)
            count *= std::floor(extent[static_cast<size_t>(axis)] / size) + 1.0;
        if (count <= 4.0 * wanted + 8.0)
            break;
        size *= 2.0;
    }
    inverseTileSize_ = 1.0 / size;
    for (size_t axis = 0; axis < 3; ++axis)
        dims_[axis] = static_cast<int64_t>(std::floor(extent[axis] * inverseTileSize_)) + 1;
    const auto tileCount = static_cast<size_t>(dims_[0] * dims_[1] * dims_[2]);
    // Keys tell points apart along the axis the tiles cut most coarsely, leaving out axes the
    // points do not spread along (a flat text's z).
    for (int axis = 1; axis >= 0; --axis) {
        const auto a = static_cast<size_t>(axis);
        const auto key = static_cast<size_t>(keyAxis_);
        if (extent[a] > 0.0 && (extent[key] == 0.0 || dims_[a] < dims_[key]))
            keyAxis_ = axis;
    }

    // A counting sort by tile, slice by slice: each slice counts its points per tile, the counts
    // are laid out tile by tile and slice by slice within a tile, and each slice then writes its
    // entries into its own places, so ids stay ascending within a tile. The table of counts is
    // slices x tiles, so there are no more slices than cores to run them.
    const auto cores = static_cast<size_t>(std::max(1, tbb::this_task_arena::max_concurrency()));
    const size_t slices = std::clamp<size_t>(points.size() / kSliceSize, 1, std::min<size_t>(16, cores));
    const size_t sliceSize = (points.size() + slices - 1) / slices;
    // Per point, its key and its tile (-1 for a point left out), worked out once for both passes.
    struct Placed {
        float key;
        int32_t tile;
    };
    std::vector<Placed, UninitialisedAllocator<Placed>> placed(points.size());
    std::vector<int32_t> counts(slices * tileCount, 0);
    tbb::parallel_for(size_t{0}, slices, [&](size_t slice) {
        int32_t* sliceCounts = counts.data() + slice * tileCount;
        const size_t end = std::min(points.size(), (slice + 1) * sliceSize);
        for (size_t i = slice * sliceSize; i < end; ++i) {
            const Point3 p = points[i];
            if (!isFinite(p)) {
                placed[i].tile = -1;
                continue;
            }
            const int64_t tile = (tileOf(2, p.z) * dims_[1] + tileOf(1, p.y)) * dims_[0] + tileOf(0, p.x);
            placed[i] = {floatKey(coordinate(p, keyAxis_)), static_cast<int32_t>(tile)};
            ++sliceCounts[tile];
        }
    });
    starts_.resize(tileCount + 1);
    int32_t next = 0;
    for (size_t tile = 0; tile < tileCount; ++tile) {
        starts_[tile] = next;
        for (size_t slice = 0; slice < slices; ++slice) {
            int32_t& count = counts[slice * tileCount + tile];
            const int32_t first = next;
            next += count;
            count = first;
        }
    }
    starts_[tileCount] = next;
    entries_.resize(static_cast<size_t>(next));
    tbb::parallel_for(size_t{0}, slices, [&](size_t slice) {
        int32_t* place = counts.data() + slice * tileCount;
        const size_t end = std::min(points.size(), (slice + 1) * sliceSize);
        for (size_t i = slice * sliceSize; i < end; ++i) {
            if (const auto [key, tile] = placed[i]; tile >= 0)
                entries_[static_cast<size_t>(place[tile]++)] = {key, static_cast<int32_t>(i)};
        }
    });
}

int64_t PointTiles::tileOf(int axis, double value) const {
    // Indexed points lie in the box, so the scaled offset is never negative and truncation is
    // its floor; one conversion per axis is most of what sorting the points costs.
    const double t = (value - origin_[static_cast<size_t>(axis)]) * inverseTileSize_;
    return static_cast<int64_t>(std::min(t, static_cast<double>(dims_[static_cast<size_t>(axis)] - 1)));
}

bool PointTiles::tileRange(int axis, Point3 p, double reach, int64_t& lo, int64_t& hi) const {
    const double scaled = (coordinate(p, axis) - origin_[static_cast<size_t>(axis)]) * inverseTileSize_;
    const auto last = static_cast<double>(dims_[static_cast<size_t>(axis)] - 1);
    // A coordinate too far past the origin for a double to hold the difference was put in the
    // last tile.
    if (std::isinf(scaled)) {
        lo = hi = static_cast<int64_t>(last);
        return scaled > 0.0;
    }
    // A point's tile and the range are worked out from rounded values; the range is widened by
    // more than their rounding, so that it never misses the tile of a point within reach.
    const double slack = 1e-9 + std::abs(scaled) * 1e-15;
    const double low = std::floor(scaled - reach * inverseTileSize_ - slack);
    const double high = std::floor(scaled + reach * inverseTileSize_ + slack);
    if (!(high >= 0.0) || !(low <= last))
        return false;
    lo = static_cast<int64_t>(std::max(low, 0.0));
    hi = static_cast<int64_t>(std::min(high, last));
    return true;
}

PointTiles::KeyRange PointTiles::keyRange(Point3 p, double reach) const {
    // A key is the nearest float to its coordinate, and the bounds here are rounded twice (to a
    // double, then to a float); one float step outwards covers both roundings.
    const double c = coordinate(p, keyAxis_);
    return {std::nextafter(floatKey(c - reach), -std::numeric_limits<float>::infinity()),
            std::nextafter(floatKey(c + reach), std::numeric_limits<float>::infinity())};
}

} // namespace oz::mesh
