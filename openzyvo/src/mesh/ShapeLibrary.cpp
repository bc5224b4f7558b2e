#include "mesh/ShapeLibrary.h"

#include "mesh/ShapeMemo.h"

#include <mutex>

namespace oz::mesh {

namespace {

// A text's distinct outlines and their bevels' folds come to a few ten thousand points; this
// keeps every shape of several large documents at a few megabytes.
constexpr size_t kSharedLibraryPoints = size_t{1} << 18;

bool exactOffset(Point3 p, Point3 origin, Vector3& offset) {
    return exactDifference(p.x, origin.x, offset.x) && exactDifference(p.y, origin.y, offset.y) &&
           exactDifference(p.z, origin.z, offset.z);
}

} // namespace

ShapeLibrary::ShapeLibrary(size_t maxPoints)
    : maxPoints_(maxPoints) {}

bool ShapeLibrary::matches(const Shape& shape, const FaceLoops& faces, std::span<const Point3> points,
                           int32_t face) {
    const int32_t loops = faces.faceLoopCount(face);
    if (static_cast<size_t>(loops) != shape.loopSizes.size())
        return false;
    for (int32_t l = 0; l < loops; ++l) {
        if (static_cast<int32_t>(faces.loop(face, l).size()) != shape.loopSizes[static_cast<size_t>(l)])
            return false;
    }
    const auto ids = faces.faceVertices(face);
    const Point3 origin = points[ids[0]];
    for (size_t i = 1; i < ids.size(); ++i) {
        Vector3 offset;
        if (!exactOffset(points[ids[i]], origin, offset) || offset != shape.offsets[i - 1])
            return false;
    }
    return true;
}

bool ShapeLibrary::find(const FaceLoops& faces, std::span<const Point3> points, int32_t face, uint64_t hash,
                        std::vector<Triangle>& pattern, Cut& how) const {
    const std::shared_lock lock(mutex_);
    const auto [begin, end] = shapes_.equal_range(hash);
    for (auto it = begin; it != end; ++it) {
        if (matches(it->second, faces, points, face)) {
            pattern.insert(pattern.end(), it->second.pattern.begin(), it->second.pattern.end());
            how = it->second.how;
            return true;
        }
    }
    return false;
}

void ShapeLibrary::keep(const FaceLoops& faces, std::span<const Point3> points, int32_t face, uint64_t hash,
                        std::span<const Triangle> pattern, Cut how) {
    const auto ids = faces.faceVertices(face);
    if (ids.size() > maxPoints_)
        return;
    Shape shape{{}, std::vector<Vector3>(ids.size() - 1), {pattern.begin(), pattern.end()}, how};
    const Point3 origin = points[ids[0]];
    for (size_t i = 1; i < ids.size(); ++i) {
        if (!exactOffset(points[ids[i]], origin, shape.offsets[i - 1]))
            return;
    }
    for (int32_t l = 0; l < faces.faceLoopCount(face); ++l)
        shape.loopSizes.push_back(static_cast<int32_t>(faces.loop(face, l).size()));

    const std::unique_lock lock(mutex_);
    // Another thread may have kept the same shape meanwhile.
    const auto [begin, end] = shapes_.equal_range(hash);
    for (auto it = begin; it != end; ++it) {
        if (matches(it->second, faces, points, face))
            return;
    }
    if (points_ + ids.size() > maxPoints_) {
        shapes_.clear();
        points_ = 0;
    }
    points_ += ids.size();
    shapes_.emplace(hash, std::move(shape));
}

size_t ShapeLibrary::pointCount() const {
    const std::shared_lock lock(mutex_);
    return points_;
}

ShapeLibrary& sharedShapeLibrary() {
    // Never destroyed: a triangulation built ahead may still run while the program exits.
    static ShapeLibrary& library = *new ShapeLibrary(kSharedLibraryPoints);
    return library;
}

} // namespace oz::mesh
