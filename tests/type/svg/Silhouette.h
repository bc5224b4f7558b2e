#pragma once

#include <OpenZyvo/ZFnMesh.h>
#include <QImage>
#include <QRectF>
#include <QString>
#include <optional>

namespace type::testing {

// Black-on-white coverage masks compared pixel by pixel: the mesh seen along
// -Z against an independent renderer's picture of the same document.
struct SilhouetteComparison {
    double intersectionOverUnion = 0.0;
    int referenceHoles = 0; // enclosed empty regions of each mask
    int meshHoles = 0;
};

// The mesh's triangles filled into a `side` x `side` mask of the scene
// rectangle `view` (y up), pixel centres sampled.
QImage meshSilhouette(const ZFnMesh& mesh, const QRectF& view, int side);

// The document rendered by rsvg-convert at `side` x `side` pixels, covered
// where its alpha reaches one half; nothing when the renderer cannot run.
std::optional<QImage> referenceSilhouette(const QString& svgFile, int side);

SilhouetteComparison compareSilhouettes(const QImage& reference, const QImage& mesh);

} // namespace type::testing
