#pragma once

#include "mesh/Vec3.h"

#include <OpenZyvo/ZMatrix.h>
#include <OpenZyvo/ZPoint.h>
#include <OpenZyvo/ZSpace.h>
#include <OpenZyvo/ZVector.h>
#include <optional>

namespace oz {

class MeshTarget;

// Moves points, directions and normals between a mesh's object space and the space a caller asked
// for. A mesh has no spaces between object and world: the transform, pre-transform and object
// spaces are all its object space, post-transform and world space its world space.
class SpaceTransform {
public:
    // Fails (nullopt) for ZSpace::kInvalid, and for world space under a matrix with no inverse.
    static std::optional<SpaceTransform> make(const MeshTarget& target, ZSpace::Space space);

    bool isIdentity() const { return !toSpace_; }

    ZPoint pointToSpace(mesh::Point3 p) const;
    mesh::Point3 pointFromSpace(const ZPoint& p) const;
    ZVector vectorToSpace(mesh::Vector3 v) const;
    mesh::Vector3 vectorFromSpace(const ZVector& v) const;
    // Normals follow the inverse transpose, so they stay perpendicular under non-uniform scale.
    ZVector normalToSpace(mesh::Vector3 n) const;
    mesh::Vector3 normalFromSpace(const ZVector& n) const;

private:
    std::optional<ZMatrix> toSpace_;
    std::optional<ZMatrix> fromSpace_;
};

} // namespace oz
