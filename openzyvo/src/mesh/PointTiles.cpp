#include "mesh/PointTiles.h"

#include "mesh/BoundingBox.h"
#include "mesh/UninitialisedAllocator.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#include <tbb/parallel_reduce.h>

namespace oz::mesh {

namespace {

// Points on the outlines of a text crowd into a few tiles of those their box is cut into, so
// the average is kept low.
constexpr double kPointsPerTile = 8.0;
// Points are sorted in this many slices of ids at once, each by one task.
constexpr size_t kSliceSize = 65536;
// The tiles are first laid out over the box of one point in this many, widened on each side by
// this share of its extent. Points outside it are put in the nearest tile; when more than one in
// kMaxStrays is, the tiles are laid out again over the box of every point.
constexpr size_t kSampleStride = 64;
constexpr double kSampleMargin = 1.0 / 16.0;
constexpr size_t kMaxStrays = 64;

double coordinate(Point3 p, int axis) {
    return axis == 0 ? p.x : (axis == 1 ? p.y : p.z);
}

BoundingBox finiteBounds(std::span<const Point3> points, size_t stride) {
    const size_t samples = (points.size() + stride - 1) / stride;
    return tbb::parallel_reduce(
        tbb::blocked_range<size_t>(0, samples, std::max<size_t>(1, 16384 / stride)), BoundingBox{},
        [&](const tbb::blocked_range<size_t>& range, BoundingBox box) {
            for (size_t i = range.begin(); i != range.end(); ++i) {
                if (isFinite(points[i * stride]))
                    box.expand(points[i * stride]);
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

// The box of every `stride`th point, grown by a margin: the points of a mesh lie along its
// surfaces in runs of ids, so the box of a sample holds all but a few of them.
BoundingBox sampledBounds(std::span<const Point3> points, size_t stride) {
    BoundingBox box = finiteBounds(points, stride);
    if (box.empty())
        return box;
    const auto grow = [](double& low, double& high) {
        constexpr double kMax = std::numeric_limits<double>::max();
        const double margin = (high - low) * kSampleMargin; // inf when the span overflows
        low = std::max(low - margin, -kMax);
        high = std::min(high + margin, kMax);
    };
    grow(box.min.x, box.max.x);
    grow(box.min.y, box.max.y);
    grow(box.min.z, box.max.z);
    return box;
}

// How points map to tiles, copied out of the tiles into plain values for the loop below.
struct TileGrid {
    Point3 origin;
    double inverseTileSize;
    Point3 last; // the last tile along each axis
    int64_t columns, rows;
};

// Places each of `points` and counts it in `counts`; returns how many lay outside the grid. A point
// outside goes to the nearest tile: its scaled offset is clamped to the tiles (the tile width is
// finite, so the offset is never NaN), and truncation is then its floor. The loop has no branch
// but the rare one for points left out, and the grid arrives by value, so that its fields stay in
// registers across the stores.
size_t placeSlice(std::span<const Point3> points, TileGrid grid, int32_t* tiles, int32_t* counts) {
    size_t outside = 0;
    const auto tileAlong = [&](double value, double origin, double last) {
        const double t = (value - origin) * grid.inverseTileSize;
        outside += static_cast<size_t>((t < 0.0) | (t >= last + 1.0));
        return static_cast<int64_t>(std::min(std::max(t, 0.0), last));
    };
    for (size_t i = 0; i < points.size(); ++i) {
        const Point3 p = points[i];
        // x - x is NaN for an infinite or NaN x.
        if (std::isnan((p.x - p.x) + (p.y - p.y) + (p.z - p.z))) {
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
    return outside;
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
    // A finite width keeps every scaled offset a number, even one of an infinite coordinate.
    return std::isfinite(size) && size > minTileSize
               ? size
               : std::clamp(minTileSize, 1e-300, std::numeric_limits<double>::max());
}

} // namespace

PointTiles::PointTiles(std::span<const Point3> points, double minTileSize) {
    const BoundingBox sample = sampledBounds(points, kSampleStride);
    if (sample.empty() || !sortInto(points, sample, minTileSize, points.size() / kMaxStrays))
        sortInto(points, finiteBounds(points, 1), minTileSize, points.size());
}

bool PointTiles::sortInto(std::span<const Point3> points, const BoundingBox& box, double minTileSize,
                          size_t maxStrays) {
    if (box.empty()) {
        starts_.assign(2, 0);
        ids_.clear();
        return true;
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
    const size_t slices = std::clamp<size_t>(points.size() / kSliceSize, 1, 16);
    const size_t sliceSize = (points.size() + slices - 1) / slices;
    std::vector<int32_t, UninitialisedAllocator<int32_t>> tileOfPoint(points.size());
    std::vector<int32_t> counts(slices * tileCount, 0);
    const TileGrid grid{{origin_[0], origin_[1], origin_[2]},
                        inverseTileSize_,
                        {static_cast<double>(dims_[0] - 1), static_cast<double>(dims_[1] - 1),
                         static_cast<double>(dims_[2] - 1)},
                        dims_[0],
                        dims_[1]};
    std::vector<size_t> strays(slices, 0);
    tbb::parallel_for(size_t{0}, slices, [&](size_t slice) {
        const size_t begin = slice * sliceSize;
        const size_t end = std::min(points.size(), begin + sliceSize);
        strays[slice] = placeSlice(points.subspan(begin, end - begin), grid, tileOfPoint.data() + begin,
                                   counts.data() + slice * tileCount);
    });
    if (std::accumulate(strays.begin(), strays.end(), size_t{0}) > maxStrays)
        return false;
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
    return true;
}

void PointTiles::tileRange(int axis, Point3 p, double reach, int64_t& lo, int64_t& hi) const {
    const double scaled = (coordinate(p, axis) - origin_[static_cast<size_t>(axis)]) * inverseTileSize_;
    const auto last = static_cast<double>(dims_[static_cast<size_t>(axis)] - 1);
    // A point's tile and the range are worked out from rounded values; the range is widened by
    // more than their rounding, so that it never misses the tile of a point within reach. Points
    // outside the tiles were put in the nearest one, so the range is clamped to the tiles, not
    // emptied when it falls outside them.
    // Clamped to the tiles first, the ends are never negative, so truncation is their floor (a
    // call to the library's floor is a good part of a lookup).
    const double slack = 1e-9 + std::abs(scaled) * 1e-15;
    const double low = scaled - reach * inverseTileSize_ - slack;
    const double high = scaled + reach * inverseTileSize_ + slack;
    lo = static_cast<int64_t>(low > 0.0 ? std::min(low, last) : 0.0);
    hi = static_cast<int64_t>(high > 0.0 ? std::min(high, last) : 0.0);
}

} // namespace oz::mesh
