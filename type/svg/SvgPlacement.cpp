#include "svg/SvgPlacement.h"

#include "geometry/BoundingBox.h"

#include <cmath>

namespace type {

SvgPlacement placeArtwork(const SvgArtwork& artwork, double size, bool useArtboard) {
    double height = 0.0;
    if (useArtboard && artwork.viewBox && (*artwork.viewBox)[3] > 0.0) {
        height = (*artwork.viewBox)[3];
    } else {
        BoundingBox box;
        for (const SvgShape& shape : artwork.shapes) {
            for (const Contour& outline : shape.outlines)
                box.extend(BoundingBox::of(outline));
        }
        height = box.empty() ? 0.0 : box.max.y - box.min.y;
    }
    const double scale = size / height;
    if (!(height > 0.0) || !std::isfinite(scale))
        return {0.0, height};
    return {scale, height};
}

} // namespace type
