#include "geometry/CapFacePlan.h"

#include "geometry/Orientation.h"
#include "geometry/ParityNesting.h"

namespace type {

CapFacePlan planCapFaces(std::vector<Contour> contours, const ThinningSettings& thinning,
                         const std::optional<EdgeSubdivisionSettings>& subdivision) {
    CapFacePlan plan;
    const std::vector<std::int32_t> depths = nestingDepths(contours);

    for (std::size_t i = 0; i < contours.size(); ++i) {
        if (isHoleDepth(depths[i]) || contours[i].size() < 3)
            continue;
        thinContour(contours[i], thinning);
        plan.faceBounds.push_back(BoundingBox::of(contours[i]));
        plan.bounds.extend(plan.faceBounds.back());
        plan.faces.push_back(contours[i]);
    }
    if (!plan.faces.empty())
        plan.reversed = !isCounterClockwise(plan.faces.front());

    for (std::size_t i = 0; i < contours.size(); ++i) {
        Contour& hole = contours[i];
        if (!isHoleDepth(depths[i]) || hole.size() <= 2)
            continue;
        // Thinning may drop the first point, so each further box test sees
        // the hole as the previous attachment left it.
        for (std::size_t face = 0; face < plan.faces.size(); ++face) {
            if (!plan.faceBounds[face].contains(hole.front()))
                continue;
            thinContour(hole, thinning);
            plan.holes.push_back({face, hole});
        }
    }

    if (subdivision) {
        for (Contour& face : plan.faces)
            face = subdivideEdges(face, *subdivision);
        for (PlannedHole& hole : plan.holes)
            hole.points = subdivideEdges(hole.points, *subdivision);
    }
    return plan;
}

} // namespace type
