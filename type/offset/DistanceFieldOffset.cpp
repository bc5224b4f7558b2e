#include "offset/DistanceFieldOffset.h"

#include "offset/OffsetStops.h"

#include <algorithm>
#include <cmath>

namespace type {

namespace {

// A grid coarser than this cannot tell a stroke from its neighbour; a finer one
// only costs time and memory (a point's samples grow with the grid), so odd
// values (0, negative, 100000) are clamped into this range.
constexpr int kMinGridSize = 4;
constexpr int kMaxGridSize = 400;

// The side of the square that holds every finite point, or 0 without one.
double extent(const std::vector<Point2>& points) {
    double minX = INFINITY, minY = INFINITY, maxX = -INFINITY, maxY = -INFINITY;
    for (const Point2& p : points) {
        if (!std::isfinite(p.x) || !std::isfinite(p.y))
            continue;
        minX = std::min(minX, p.x);
        minY = std::min(minY, p.y);
        maxX = std::max(maxX, p.x);
        maxY = std::max(maxY, p.y);
    }
    return maxX >= minX ? std::max(maxX - minX, maxY - minY) : 0.0;
}

} // namespace

DistanceFieldOffset::DistanceFieldOffset(const FaceOutline& outline, const std::vector<Mitre>& mitres,
                                         int gridSize) {
    const std::size_t count = outline.points.size();
    const double side = extent(outline.points);
    const bool usable = mitres.size() == count && side > 0.0 && std::isfinite(side);
    step_ = usable ? side / std::clamp(gridSize, kMinGridSize, kMaxGridSize) : 1.0;
    const std::vector<double> stops =
        usable ? stopTravels(outline, mitres, step_, side) : std::vector<double>(count, 0.0);

    inverseSines_.assign(count, 0.0);
    firsts_.assign(count + 1, 0);
    for (std::size_t j = 0; j < count; ++j) {
        const Point2& p = outline.points[j];
        const double stop = stops[j];
        firsts_[j] = static_cast<std::uint32_t>(samples_.size());
        if (stop > 0.0) {
            const Mitre& m = mitres[j];
            inverseSines_[j] = 1.0 / m.sine;
            const int last = static_cast<int>(std::ceil(stop / step_));
            for (int i = 0; i <= last; ++i) {
                const double travel = std::min(i * step_, stop);
                samples_.push_back({p.x + m.direction.x * travel, p.y + m.direction.y * travel});
            }
        } else {
            samples_.push_back(p);
        }
    }
    firsts_[count] = static_cast<std::uint32_t>(samples_.size());
}

void DistanceFieldOffset::offset(double distance, std::vector<Point2>& out) const {
    const std::size_t count = inverseSines_.size();
    out.resize(count);
    const double d = std::max(distance, 0.0);
    for (std::size_t j = 0; j < count; ++j) {
        const Point2* run = samples_.data() + firsts_[j];
        const std::size_t last = firsts_[j + 1] - firsts_[j] - 1;
        const double position = d * inverseSines_[j] / step_;
        if (!(position < static_cast<double>(last))) {
            out[j] = run[last];
            continue;
        }
        const std::size_t index = static_cast<std::size_t>(position);
        const double fraction = position - static_cast<double>(index);
        const Point2& a = run[index];
        const Point2& b = run[index + 1];
        out[j] = {a.x + (b.x - a.x) * fraction, a.y + (b.y - a.y) * fraction};
    }
}

} // namespace type
