#include "extrude/RingOffset.h"

#include "offset/NormalsOffset.h"

#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

namespace type {

void offsetRing(const FaceOffsetData& face, OffsetMode mode, InternalBevel style, double offset,
                std::vector<Point2>& out) {
    if (offset < 0.0 || mode == OffsetMode::kNormals || !face.field) {
        normalsOffset(face.outline, face.mitres, offset, out);
        return;
    }
    face.field->offset(style == InternalBevel::kOuter ? 2.0 * offset : offset, out);
}

std::vector<DistanceFieldOffset> distanceFields(const std::vector<const FaceOutline*>& outlines,
                                                const std::vector<std::vector<Mitre>>& mitres, int gridSize) {
    std::vector<DistanceFieldOffset> fields(outlines.size());
    tbb::parallel_for(tbb::blocked_range<std::size_t>(0, outlines.size()),
                      [&](const tbb::blocked_range<std::size_t>& range) {
                          for (std::size_t f = range.begin(); f != range.end(); ++f)
                              fields[f] = DistanceFieldOffset(*outlines[f], mitres[f], gridSize);
                      });
    return fields;
}

} // namespace type
