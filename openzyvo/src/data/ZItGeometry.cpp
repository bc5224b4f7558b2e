#include "data/MeshIteration.h"
#include "data/SpaceTransform.h"
#include "data/VertexPosition.h"

#include <OpenZyvo/ZItGeometry.h>
#include <span>
#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

using oz::MeshElement;
using oz::MeshTarget;

namespace {

constexpr MeshElement kVertex = MeshElement::kVertex;

// Converting a whole mesh's points is bound by memory; large blocks keep the tasks few.
template <class Convert> void inParallel(std::size_t count, Convert&& convert) {
    constexpr std::size_t kGrain = 16384;
    tbb::parallel_for(
        tbb::blocked_range<std::size_t>(0, count, kGrain),
        [&](const tbb::blocked_range<std::size_t>& range) { convert(range.begin(), range.end()); });
}

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
    // A caller that passes the same array every evaluation keeps its pages: only a change of count
    // reallocates.
    auto& out = positions.asVector();
    if (out.size() != points.size()) {
        out.clear();
        out.resize(points.size());
    }
    ZPoint* to = out.data();
    inParallel(points.size(), [&](std::size_t begin, std::size_t end) {
        if (transform->isIdentity())
            for (std::size_t i = begin; i < end; ++i)
                to[i] = ZPoint(points[i].x, points[i].y, points[i].z);
        else
            for (std::size_t i = begin; i < end; ++i)
                to[i] = transform->pointToSpace(points[i]);
    });
    return ZStatus::kSuccess;
}

ZStatus ZItGeometry::setAllPositions(const ZPointArray& positions, ZSpace::Space space) {
    const auto transform = m_target ? oz::SpaceTransform::make(*m_target, space) : std::nullopt;
    if (!transform)
        return ZStatus::kInvalidParameter;
    const ZPoint* from = positions.data();
    // Converted straight into the mesh's own storage: no array in between to fill first.
    return oz::editMesh(m_target, MeshTarget::Edit::kPoints, [&](oz::MeshData& data) {
        return oz::toStatus(data.mesh.fillPoints(positions.length(), [&](std::span<oz::mesh::Point3> to) {
            inParallel(to.size(), [&](std::size_t begin, std::size_t end) {
                if (transform->isIdentity())
                    for (std::size_t i = begin; i < end; ++i)
                        to[i] = oz::toKernel(from[i]);
                else
                    for (std::size_t i = begin; i < end; ++i)
                        to[i] = transform->pointFromSpace(from[i]);
            });
        }));
    });
}
