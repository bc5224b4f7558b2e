#include "data/MeshIteration.h"
#include "data/SpaceTransform.h"
#include "data/VertexPosition.h"

#include <OpenZyvo/ZItGeometry.h>
#include <vector>

using oz::MeshElement;
using oz::MeshTarget;

namespace {
constexpr MeshElement kVertex = MeshElement::kVertex;
} // namespace

ZItGeometry::ZItGeometry(const ZObject& geometry, ZStatus* status)
    : m_object(geometry)
    , m_target(oz::meshTargetOf(geometry)) {
    oz::setStatus(status, oz::cursorStatus(m_target));
}

ZStatus ZItGeometry::reset() {
    return oz::resetCursor(m_target, m_index);
}

bool ZItGeometry::isDone(ZStatus* status) const {
    return oz::cursorDone(m_target, kVertex, m_index, status);
}

ZStatus ZItGeometry::next() {
    return oz::advanceCursor(m_target, kVertex, m_index);
}

int ZItGeometry::index(ZStatus* status) const {
    return oz::cursorIndex(m_target, m_index, status);
}

int ZItGeometry::count(ZStatus* status) const {
    return oz::elementCount(m_target, kVertex, status);
}

ZPoint ZItGeometry::position(ZSpace::Space space, ZStatus* status) const {
    return oz::vertexPosition(m_target, m_index, space, status);
}

ZStatus ZItGeometry::setPosition(const ZPoint& point, ZSpace::Space space) {
    return oz::setVertexPosition(m_target, m_index, point, space);
}

ZStatus ZItGeometry::allPositions(ZPointArray& positions, ZSpace::Space space) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::readMesh(m_target, &status);
    if (!mesh)
        return status;
    const auto transform = oz::SpaceTransform::make(*m_target, space);
    if (!transform)
        return ZStatus::kInvalidParameter;
    const auto points = mesh->points();
    // Appended rather than resized and overwritten: resizing would write every point twice.
    auto& out = positions.asVector();
    out.clear();
    out.reserve(points.size());
    if (transform->isIdentity()) {
        for (const oz::mesh::Point3& p : points)
            out.emplace_back(p.x, p.y, p.z);
    } else {
        for (const oz::mesh::Point3& p : points)
            out.push_back(transform->pointToSpace(p));
    }
    return ZStatus::kSuccess;
}

ZStatus ZItGeometry::setAllPositions(const ZPointArray& positions, ZSpace::Space space) {
    const auto transform = m_target ? oz::SpaceTransform::make(*m_target, space) : std::nullopt;
    if (!transform)
        return ZStatus::kInvalidParameter;
    // Kept per thread between calls: a deformer sends every point on every evaluation, and filling
    // a fresh array of a million points first costs page faults on top of the copy.
    thread_local std::vector<oz::mesh::Point3> moved;
    moved.resize(positions.length());
    const ZPoint* in = positions.data();
    if (transform->isIdentity()) {
        for (size_t i = 0; i < moved.size(); ++i)
            moved[i] = oz::toKernel(in[i]);
    } else {
        for (size_t i = 0; i < moved.size(); ++i)
            moved[i] = transform->pointFromSpace(in[i]);
    }
    return oz::editMesh(m_target, MeshTarget::Edit::kPoints,
                        [&](oz::MeshData& data) { return oz::toStatus(data.mesh.setPoints(moved)); });
}
