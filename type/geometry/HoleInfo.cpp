#include "geometry/HoleInfo.h"

namespace type {

void appendHoleInfo(std::vector<std::int32_t>& holeInfo, const Shape& shape, std::int32_t faceIndex,
                    std::int32_t baseVertexCount) {
    std::int32_t firstVertex = baseVertexCount + static_cast<std::int32_t>(shape.outer.size());
    for (const Contour& hole : shape.holes) {
        const auto count = static_cast<std::int32_t>(hole.size());
        holeInfo.insert(holeInfo.end(), {faceIndex, count, firstVertex});
        firstVertex += count;
    }
}

} // namespace type
