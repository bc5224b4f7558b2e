#include "data/MeshAccess.h"

#include <OpenZyvo/ZFnMesh.h>
#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#include <utility>
#include <vector>

using oz::MeshData;
using oz::MeshTarget;

bool ZFnMesh::hasColor(ZStatus* status) const {
    const oz::mesh::Mesh* mesh = oz::readMesh(m_target, status);
    return mesh && mesh->hasVertexColors();
}

ZStatus ZFnMesh::getVertexColors(ZColorArray& colors, const ZColor* defaultUnsetColor) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::readMesh(m_target, &status);
    if (!mesh)
        return status;
    const ZColor unset = defaultUnsetColor ? *defaultUnsetColor : ZColor(-1.0f, -1.0f, -1.0f, -1.0f);
    colors.setLength(static_cast<unsigned int>(mesh->vertexCount()));
    for (int32_t v = 0; v < mesh->vertexCount(); ++v) {
        const auto color = mesh->vertexColor(v);
        colors[static_cast<unsigned int>(v)] = color ? oz::toColor(*color) : unset;
    }
    return ZStatus::kSuccess;
}

ZStatus ZFnMesh::setVertexColors(const ZColorArray& colors, const ZIntArray& vertexList) {
    std::vector<oz::mesh::Color> kernelColors(colors.length());
    tbb::parallel_for(tbb::blocked_range<unsigned int>(0, colors.length(), 16384),
                      [&](const tbb::blocked_range<unsigned int>& range) {
                          for (unsigned int i = range.begin(); i != range.end(); ++i)
                              kernelColors[i] = oz::toKernel(colors[i]);
                      });
    return oz::editMesh(m_target, MeshTarget::Edit::kAttributes, [&](MeshData& data) {
        return oz::toStatus(data.mesh.setVertexColors(std::move(kernelColors), vertexList.asVector()));
    });
}

ZStatus ZFnMesh::setVertexColor(const ZColor& color, int vertexId) {
    return setVertexColors(ZColorArray{color}, ZIntArray{vertexId});
}
