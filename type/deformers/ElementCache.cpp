#include "deformers/ElementCache.h"

#include "deformers/NodeArrays.h"

namespace type {

ZStatus ElementCache::update(ZDataBlock& block, const ZObject& node, unsigned int multiIndex,
                             ZItGeometry& geometry, const ZObject& groupIds) {
    ZStatus status;
    const int pointCount = geometry.count(&status);
    if (!status)
        return status;
    if (m_valid && m_index == multiIndex && static_cast<int>(m_input.length()) == pointCount)
        return ZStatus::kSuccess;
    ElementSource source;
    if (!(status = readElementSource(block, node, multiIndex, groupIds, source)))
        return status;
    FaceListTopology mesh(source.points, source.faceCounts, source.faceVertices);
    if (!discoverElements(mesh, source.groupLists, m_elements))
        return ZStatus::kFailure;
    if (!(status = geometry.allPositions(m_input)))
        return status;
    m_moved = m_input;
    ++m_generation;
    m_valid = true;
    m_index = multiIndex;
    return ZStatus::kSuccess;
}

} // namespace type
