#include "svg/SvgCaps.h"

#include "svg/SvgPlacement.h"

namespace type {

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
        if (!cap.plan.faces.empty())
            caps.push_back(std::move(cap));
    }
    return caps;
}

} // namespace type
