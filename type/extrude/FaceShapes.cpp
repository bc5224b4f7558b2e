#include "extrude/FaceShapes.h"

#include <bit>
#include <cstdint>
#include <unordered_map>

namespace type {

namespace {

uint64_t mix(uint64_t h, uint64_t v) {
    h ^= v + 0x9e3779b97f4a7c15ull + (h << 6) + (h >> 2);
    return h;
}

uint64_t shapeHash(const SolidFace& face) {
    uint64_t h = face.outline.points.size();
    for (const int size : face.outline.loopSizes)
        h = mix(h, static_cast<uint64_t>(size));
    for (const Point2& p : face.outline.points)
        h = mix(mix(h, std::bit_cast<uint64_t>(p.x)), std::bit_cast<uint64_t>(p.y));
    return h;
}

bool sameShape(const SolidFace& a, const SolidFace& b) {
    if (a.outline.loopSizes != b.outline.loopSizes || a.outline.points.size() != b.outline.points.size() ||
        !(a.frame == b.frame) || std::bit_cast<uint64_t>(a.height) != std::bit_cast<uint64_t>(b.height) ||
        a.extruded != b.extruded || a.extraDepth != b.extraDepth || a.insetScale != b.insetScale)
        return false;
    for (std::size_t i = 0; i < a.outline.points.size(); ++i) {
        const Point2& p = a.outline.points[i];
        const Point2& q = b.outline.points[i];
        if (std::bit_cast<uint64_t>(p.x) != std::bit_cast<uint64_t>(q.x) ||
            std::bit_cast<uint64_t>(p.y) != std::bit_cast<uint64_t>(q.y))
            return false;
    }
    return true;
}

} // namespace

FaceShapes faceShapes(const std::vector<SolidFace>& faces) {
    FaceShapes shapes;
    shapes.shapeOf.reserve(faces.size());
    std::unordered_multimap<uint64_t, int> seen;
    for (std::size_t f = 0; f < faces.size(); ++f) {
        const uint64_t hash = shapeHash(faces[f]);
        int shape = -1;
        for (auto [it, end] = seen.equal_range(hash); it != end && shape < 0; ++it) {
            if (sameShape(faces[static_cast<std::size_t>(shapes.firstFace[it->second])], faces[f]))
                shape = it->second;
        }
        if (shape < 0) {
            shape = static_cast<int>(shapes.firstFace.size());
            shapes.firstFace.push_back(static_cast<int>(f));
            seen.emplace(hash, shape);
        }
        shapes.shapeOf.push_back(shape);
    }
    return shapes;
}

} // namespace type
