#include "extrude/FaceShapes.h"

#include "offset/OutlineIdentity.h"

#include <bit>
#include <cstdint>
#include <unordered_map>

namespace type {

namespace {

bool sameShape(const SolidFace& a, const SolidFace& b) {
    return a.frame == b.frame && std::bit_cast<uint64_t>(a.height) == std::bit_cast<uint64_t>(b.height) &&
           a.extruded == b.extruded && a.extraDepth == b.extraDepth && a.insetScale == b.insetScale &&
           sameOutline(a.outline, b.outline);
}

} // namespace

FaceShapes faceShapes(const std::vector<SolidFace>& faces) {
    FaceShapes shapes;
    shapes.shapeOf.reserve(faces.size());
    std::unordered_multimap<uint64_t, int> seen;
    for (std::size_t f = 0; f < faces.size(); ++f) {
        const uint64_t hash = outlineHash(faces[f].outline);
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
