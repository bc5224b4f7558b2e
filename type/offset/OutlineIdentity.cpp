#include "offset/OutlineIdentity.h"

#include <bit>

namespace type {

namespace {

uint64_t mix(uint64_t h, uint64_t v) {
    h ^= v + 0x9e3779b97f4a7c15ull + (h << 6) + (h >> 2);
    return h;
}

} // namespace

uint64_t outlineHash(const FaceOutline& outline) {
    uint64_t h = outline.points.size();
    for (const int size : outline.loopSizes)
        h = mix(h, static_cast<uint64_t>(size));
    for (const Point2& p : outline.points)
        h = mix(mix(h, std::bit_cast<uint64_t>(p.x)), std::bit_cast<uint64_t>(p.y));
    return h;
}

bool sameOutline(const FaceOutline& a, const FaceOutline& b) {
    if (a.loopSizes != b.loopSizes || a.points.size() != b.points.size())
        return false;
    for (std::size_t i = 0; i < a.points.size(); ++i) {
        if (std::bit_cast<uint64_t>(a.points[i].x) != std::bit_cast<uint64_t>(b.points[i].x) ||
            std::bit_cast<uint64_t>(a.points[i].y) != std::bit_cast<uint64_t>(b.points[i].y))
            return false;
    }
    return true;
}

} // namespace type
