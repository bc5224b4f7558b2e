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

// How points map to tiles, copied out of the tiles into plain values for the loop below.
struct TileGrid {
    Point3 origin;
    double inverseTileSize;
    Point3 last; // the last tile along each axis
    int64_t columns, rows;
};

// Sorts each of `points` into its tile and counts it in `counts`. Indexed points lie in the box,
// so the scaled offset is never negative and truncation is its floor; the clamp to the last tile
// only catches rounding. The grid arrives by value, so that its fields stay in registers across
// the stores.
void placeSlice(std::span<const Point3> points, TileGrid grid, int32_t* tiles, int32_t* counts) {
    const auto tileAlong = [&](double value, double origin, double last) {
        return static_cast<int64_t>(std::min((value - origin) * grid.inverseTileSize, last));
    };
    for (size_t i = 0; i < points.size(); ++i) {
        const Point3 p = points[i];
        if (!isFinite(p)) {
            tiles[i] = -1;
            continue;
        }
        const int64_t x = tileAlong(p.x, grid.origin.x, grid.last.x);
        const int64_t y = tileAlong(p.y, grid.origin.y, grid.last.y);
        const int64_t z = tileAlong(p.z, grid.origin.z, grid.last.z);
        const int64_t tile = (z * grid.rows + y) * grid.columns + x;
        tiles[i] = static_cast<int32_t>(tile);
        ++counts[tile];
    }
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

    // A counting sort by tile, slice by slice: each slice counts its points per tile, the counts
    // are laid out tile by tile and slice by slice within a tile, and each slice then writes its
    // ids into its own places, so ids stay ascending within a tile.
    // The table of counts is slices x tiles, laid out on one core, so there are no more slices
    // than cores to run them.
    const auto cores = static_cast<size_t>(std::max(1, tbb::this_task_arena::max_concurrency()));
    const size_t slices = std::max<size_t>(1, std::min({size_t{16}, cores, points.size() / kSliceSize}));
    const size_t sliceSize = (points.size() + slices - 1) / slices;
    std::vector<int32_t, UninitialisedAllocator<int32_t>> tileOfPoint(points.size());
    std::vector<int32_t> counts(slices * tileCount, 0);
    const TileGrid grid{{origin_[0], origin_[1], origin_[2]},
                        inverseTileSize_,
                        {static_cast<double>(dims_[0] - 1), static_cast<double>(dims_[1] - 1),
                         static_cast<double>(dims_[2] - 1)},
                        dims_[0],
                        dims_[1]};
    tbb::parallel_for(size_t{0}, slices, [&](size_t slice) {
        const size_t begin = slice * sliceSize;
        const size_t end = std::min(points.size(), begin + sliceSize);
        placeSlice(points.subspan(begin, end - begin), grid, tileOfPoint.data() + begin,
                   counts.data() + slice * tileCount);
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
    ids_.resize(static_cast<size_t>(next));
    tbb::parallel_for(size_t{0}, slices, [&](size_t slice) {
        int32_t* place = counts.data() + slice * tileCount;
        const size_t end = std::min(points.size(), (slice + 1) * sliceSize);
        for (size_t i = slice * sliceSize; i < end; ++i) {
            if (const int32_t tile = tileOfPoint[i]; tile >= 0)
                ids_[static_cast<size_t>(place[tile]++)] = static_cast<int32_t>(i);
        }
    });
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
    const double low = scaled - reach * inverseTileSize_ - slack;
    const double high = scaled + reach * inverseTileSize_ + slack;
    if (!(high >= 0.0) || !(low < last + 1.0))
        return false;
    // Clamped to the tiles first, the ends are never negative, so truncation is their floor: a
    // call to the library's floor costs a good part of a lookup.
    lo = static_cast<int64_t>(std::max(low, 0.0));
    hi = static_cast<int64_t>(std::min(high, last));
    return true;
}

} // namespace oz::mesh
