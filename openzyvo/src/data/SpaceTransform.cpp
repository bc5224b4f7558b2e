#include "data/SpaceTransform.h"

#include "data/MeshConversion.h"
#include "data/MeshTarget.h"

#include <cmath>

namespace oz {

std::optional<SpaceTransform> SpaceTransform::make(const MeshTarget& target, ZSpace::Space space) {
    if (space == ZSpace::kTransform || space == ZSpace::kPreTransform)
        return SpaceTransform();
    if (space != ZSpace::kPostTransform && space != ZSpace::kWorld)
        return std::nullopt;
    const ZMatrix world = target.worldMatrix();
    SpaceTransform transform;
    if (world.isEquivalent(ZMatrix::identity, 0.0))
        return transform;
    const double det = world.det4x4();
    if (det == 0.0 || !std::isfinite(det))
        return std::nullopt;
    transform.toSpace_ = world;
    transform.fromSpace_ = world.inverse();
    return transform;
}

ZPoint SpaceTransform::pointToSpace(mesh::Point3 p) const {
    return toSpace_ ? toPoint(p) * *toSpace_ : toPoint(p);
}

mesh::Point3 SpaceTransform::pointFromSpace(const ZPoint& p) const {
    return toKernel(fromSpace_ ? p * *fromSpace_ : p);
}

ZVector SpaceTransform::vectorToSpace(mesh::Vector3 v) const {
    return toSpace_ ? toVector(v) * *toSpace_ : toVector(v);
}

mesh::Vector3 SpaceTransform::vectorFromSpace(const ZVector& v) const {
    return toKernel(fromSpace_ ? v * *fromSpace_ : v);
}

ZVector SpaceTransform::normalToSpace(mesh::Vector3 n) const {
    if (!toSpace_)
        return toVector(n);
    return (toVector(n) * fromSpace_->transpose()).normal();
}

mesh::Vector3 SpaceTransform::normalFromSpace(const ZVector& n) const {
    if (!toSpace_)
        return toKernel(n);
    return toKernel((n * toSpace_->transpose()).normal());
}

} // namespace oz
