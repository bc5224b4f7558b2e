#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZPoint.h>
#include <OpenZyvo/ZPointArray.h>
#include <OpenZyvo/ZSpace.h>
#include <OpenZyvo/ZStatus.h>

namespace oz {
class MeshTarget;
}

// Walks the points of a geometry (mesh data or a mesh shape) in vertex id order. Deformers read
// and write them all at once with allPositions and setAllPositions, the fast path: one pass each,
// with no per-point call.
class OZ_API ZItGeometry {
public:
    explicit ZItGeometry(const ZObject& geometry, ZStatus* status = nullptr);

    ZStatus reset();
    bool isDone(ZStatus* status = nullptr) const;
    ZStatus next();
    int index(ZStatus* status = nullptr) const;
    int count(ZStatus* status = nullptr) const;

    ZPoint position(ZSpace::Space space = ZSpace::kObject, ZStatus* status = nullptr) const;
    ZStatus setPosition(const ZPoint& point, ZSpace::Space space = ZSpace::kObject);

    // Every point, indexed by vertex id.
    ZStatus allPositions(ZPointArray& positions, ZSpace::Space space = ZSpace::kObject) const;
    // One point per vertex; any other length is refused and nothing moves.
    ZStatus setAllPositions(const ZPointArray& positions, ZSpace::Space space = ZSpace::kObject);

private:
    ZObject m_object;
    oz::MeshTarget* m_target = nullptr; // kept alive by m_object
    int m_index = 0;
};
