#include "deformers/ElementCache.h"

#include "deformers/NodeArrays.h"

namespace type {

ZStatus ElementCache::update(ZDataBlock& block, const ZObject& node, unsigned int multiIndex, int pointCount,
                             const ZObject& groupIds) {
    if (m_valid && m_index == multiIndex && m_pointCount == pointCount)
        return ZStatus::kSuccess;
    ElementSource source;
    if (const ZStatus status = readElementSource(block, node, multiIndex, groupIds, source); !status)
        return status;
    FaceListTopology mesh(source.points, source.faceCounts, source.faceVertices);
    if (!discoverElements(mesh, source.groupLists, m_elements))
        return ZStatus::kFailure;
    m_valid = true;
    m_index = multiIndex;
    m_pointCount = pointCount;
    return ZStatus::kSuccess;
}

} // namespace type
