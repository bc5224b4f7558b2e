#include "offset/Mitres.h"

#include "geometry/Orientation.h"

#include <algorithm>
#include <cmath>

namespace type {

namespace {

constexpr double kSamePoint = 1e-12;

Point2 unit(double x, double y) {
    const double length = std::hypot(x, y);
    return length > 0.0 ? Point2{x / length, y / length} : Point2{};
}

// The unit normal of edge a -> b on its left side.
Point2 leftNormal(const Point2& a, const Point2& b) {
    return unit(a.y - b.y, b.x - a.x);
}

bool same(const Point2& a, const Point2& b) {
    return std::abs(a.x - b.x) <= kSamePoint && std::abs(a.y - b.y) <= kSamePoint;
}

void loopMitres(const Point2* loop, int size, bool materialOnLeft, Mitre* out) {
    const double side = materialOnLeft ? 1.0 : -1.0;
    for (int i = 0; i < size; ++i) {
        // The nearest distinct neighbours, so that a repeated point bends like its corner.
        int previous = (i + size - 1) % size;
        while (previous != i && same(loop[previous], loop[i]))
            previous = (previous + size - 1) % size;
        int next = (i + 1) % size;
        while (next != i && same(loop[next], loop[i]))
            next = (next + 1) % size;
        if (previous == i || next == i) {
            out[i] = {};
            continue;
        }
        const Point2 in = leftNormal(loop[previous], loop[i]);
        const Point2 outNormal = leftNormal(loop[i], loop[next]);
        Point2 direction = unit(in.x + outNormal.x, in.y + outNormal.y);
        if (direction == Point2{}) {
            // A full turn back: the point heads on along its edge.
            direction = unit(loop[i].x - loop[previous].x, loop[i].y - loop[previous].y);
        }
        direction = {direction.x * side, direction.y * side};
        const double sine = (direction.x * in.x + direction.y * in.y) * side;
        out[i] = {direction, std::max(sine, kMinMitreSine)};
    }
}

} // namespace

std::vector<Mitre> mitres(const FaceOutline& outline) {
    std::vector<Mitre> result(outline.points.size());
    std::size_t start = 0;
    for (std::size_t loop = 0; loop < outline.loopSizes.size(); ++loop) {
        const int size = outline.loopSizes[loop];
        if (size <= 0 || start + size > outline.points.size())
            break;
        const Contour points(outline.points.begin() + start, outline.points.begin() + start + size);
        const bool counterClockwise = isCounterClockwise(points);
        const bool materialOnLeft = loop == 0 ? counterClockwise : !counterClockwise;
        loopMitres(points.data(), size, materialOnLeft, result.data() + start);
        start += size;
    }
    return result;
}

} // namespace type
