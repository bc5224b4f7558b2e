#include "svg/SvgCaps.h"

#include "svg/SvgPlacement.h"

#include <algorithm>

namespace type {

namespace {

bool overlapsItsFace(const CapFacePlan& plan) {
    return std::any_of(plan.holes.begin(), plan.holes.end(), [&](const PlannedHole& hole) {
        const BoundingBox& face = plan.faceBounds[hole.face];
        return std::any_of(hole.points.begin(), hole.points.end(),
                           [&](const Point2& p) { return !face.contains(p); });
    });
}

} // namespace

std::vector<SvgShapeCap> planShapeCaps(const SvgArtwork& artwork, const SvgCapSettings& settings) {
    const SvgPlacement placement = placeArtwork(artwork, settings.size, settings.useArtboard);
    std::optional<EdgeSubdivisionSettings> subdivision = settings.subdivision;
    if (subdivision)
        subdivision->maxEdgeLength *= placement.scale;
    // Artwork scaled to nothing has no edge worth splitting.
    if (subdivision && !(subdivision->maxEdgeLength > 0.0))
        subdivision.reset();
    std::vector<SvgShapeCap> caps;
    for (std::size_t k = 0; k < artwork.shapes.size(); ++k) {
        const SvgShape& shape = artwork.shapes[k];
        std::vector<Contour> outlines = shape.outlines;
        for (Contour& outline : outlines) {
            for (Point2& p : outline)
                p = placement.apply(p);
        }
        SvgShapeCap cap{planCapFaces(std::move(outlines), settings.thinning, subdivision),
                        static_cast<double>(k) * settings.zOffset, shape.fill,
                        shape.id.empty() ? shape.element + std::to_string(k) : shape.id};
        cap.holeOverlapsFace = overlapsItsFace(cap.plan);
        if (!cap.plan.faces.empty())
            caps.push_back(std::move(cap));
    }
    return caps;
}

} // namespace type
