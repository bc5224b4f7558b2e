#include "geometry/EvenOddNesting.h"

#include "geometry/BoundingBox.h"
#include "geometry/Orientation.h"

#include <algorithm>
#include <cmath>
#include <polyclipping/clipper.hpp>

namespace type {
namespace {

constexpr double kGridScale = 1000.0;
constexpr double kHoleShrink = 0.995;
// Just below the largest coordinate magnitude the clipper accepts.
constexpr double kGridLimit = 4.0e18;

bool toGrid(const Contour& polygon, ClipperLib::Path& path) {
    path.clear();
    path.reserve(polygon.size());
    for (const Point2& p : polygon) {
        const double x = p.x * kGridScale;
        const double y = p.y * kGridScale;
        if (!std::isfinite(x) || !std::isfinite(y) || std::abs(x) > kGridLimit || std::abs(y) > kGridLimit)
            return false;
        path.emplace_back(static_cast<ClipperLib::cInt>(x), static_cast<ClipperLib::cInt>(y));
    }
    return true;
}

Contour fromGrid(const ClipperLib::Path& path) {
    Contour contour;
    contour.reserve(path.size());
    for (const ClipperLib::IntPoint& p : path)
        contour.push_back({static_cast<double>(p.X) / kGridScale, static_cast<double>(p.Y) / kGridScale});
    return contour;
}

ClipperLib::Paths clip(ClipperLib::ClipType op, const ClipperLib::Paths& subject,
                       const ClipperLib::Paths& clipPaths) {
    ClipperLib::Clipper clipper;
    clipper.AddPaths(subject, ClipperLib::ptSubject, true);
    clipper.AddPaths(clipPaths, ClipperLib::ptClip, true);
    ClipperLib::Paths result;
    if (!clipper.Execute(op, result, ClipperLib::pftEvenOdd, ClipperLib::pftEvenOdd))
        result.clear();
    return result;
}

// Each new sub-path toggles coverage where it overlaps what came before, which
// is the even-odd combination of all sub-paths.
ClipperLib::Paths accumulateEvenOdd(const std::vector<ClipperLib::Path>& paths) {
    ClipperLib::Paths accumulated;
    for (const ClipperLib::Path& path : paths) {
        if (accumulated.empty()) {
            accumulated.push_back(path);
            continue;
        }
        const ClipperLib::Paths single{path};
        const ClipperLib::Paths overlap = clip(ClipperLib::ctIntersection, accumulated, single);
        if (overlap.empty()) {
            accumulated.push_back(path);
            continue;
        }
        ClipperLib::Paths rest = clip(ClipperLib::ctDifference, accumulated, overlap);
        const ClipperLib::Paths added = clip(ClipperLib::ctDifference, single, overlap);
        rest.insert(rest.end(), added.begin(), added.end());
        accumulated = std::move(rest);
    }
    return accumulated;
}

void collectShapes(const ClipperLib::PolyNode& node, std::vector<Shape>& shapes) {
    for (const ClipperLib::PolyNode* child : node.Childs) {
        if (child->IsHole()) {
            collectShapes(*child, shapes);
            continue;
        }
        Shape shape{fromGrid(child->Contour), {}};
        for (const ClipperLib::PolyNode* hole : child->Childs)
            shape.holes.push_back(fromGrid(hole->Contour));
        shapes.push_back(std::move(shape));
        collectShapes(*child, shapes);
    }
}

void shrinkAboutBoxCentre(Contour& hole) {
    const Point2 centre = BoundingBox::of(hole).centre();
    for (Point2& p : hole) {
        p.x = centre.x + (p.x - centre.x) * kHoleShrink;
        p.y = centre.y + (p.y - centre.y) * kHoleShrink;
    }
}

} // namespace

std::vector<Shape> nestEvenOdd(const std::vector<Contour>& polygons) {
    std::vector<ClipperLib::Path> paths;
    paths.reserve(polygons.size());
    ClipperLib::Path path;
    for (const Contour& polygon : polygons) {
        if (toGrid(polygon, path))
            paths.push_back(path);
    }

    ClipperLib::Clipper clipper;
    clipper.AddPaths(accumulateEvenOdd(paths), ClipperLib::ptSubject, true);
    ClipperLib::PolyTree tree;
    if (!clipper.Execute(ClipperLib::ctUnion, tree, ClipperLib::pftEvenOdd, ClipperLib::pftEvenOdd))
        return {};

    std::vector<Shape> shapes;
    collectShapes(tree, shapes);
    if (shapes.empty())
        return shapes;

    const bool reverse = isCounterClockwise(shapes.front().outer);
    for (Shape& shape : shapes) {
        if (reverse)
            std::reverse(shape.outer.begin(), shape.outer.end());
        for (Contour& hole : shape.holes) {
            if (reverse)
                std::reverse(hole.begin(), hole.end());
            shrinkAboutBoxCentre(hole);
        }
    }
    return shapes;
}

} // namespace type
