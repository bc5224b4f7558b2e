#include "data/MeshAccess.h"

#include <OpenZyvo/ZFnMesh.h>
#include <algorithm>
#include <string_view>
#include <vector>

using oz::MeshData;
using oz::MeshTarget;
using oz::mesh::UvSet;

namespace {

std::string_view setName(const ZString* uvSet) {
    return uvSet ? uvSet->view() : oz::mesh::Mesh::kDefaultUvSet;
}

} // namespace

ZString ZFnMesh::currentUVSetName(ZStatus* status) const {
    const oz::mesh::Mesh* mesh = oz::readMesh(m_target, status);
    return mesh ? ZString(oz::mesh::Mesh::kDefaultUvSet) : ZString();
}

ZStatus ZFnMesh::getUVSetNames(ZStringArray& setNames) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::readMesh(m_target, &status);
    if (!mesh)
        return status;
    setNames.clear();
    for (const std::string& name : mesh->uvSetNames())
        setNames.append(ZString(name));
    return ZStatus::kSuccess;
}

ZStatus ZFnMesh::createUVSet(const ZString& setName) {
    return oz::editMesh(m_target, MeshTarget::Edit::kAttributes,
                        [&](MeshData& data) { return oz::toStatus(data.mesh.createUvSet(setName.view())); });
}

int ZFnMesh::numUVs(const ZString* uvSet, ZStatus* status) const {
    const oz::mesh::Mesh* mesh = oz::readMesh(m_target, status);
    const UvSet* set = mesh ? mesh->uvSet(setName(uvSet)) : nullptr;
    if (mesh && !set)
        oz::setStatus(status, ZStatus::kNotFound);
    return set ? static_cast<int>(set->u.size()) : 0;
}

ZStatus ZFnMesh::setUVs(const ZFloatArray& uArray, const ZFloatArray& vArray, const ZString* uvSet) {
    return oz::editMesh(m_target, MeshTarget::Edit::kAttributes, [&](MeshData& data) {
        return oz::toStatus(data.mesh.setUvs(setName(uvSet), uArray.asVector(), vArray.asVector()));
    });
}

ZStatus ZFnMesh::getUVs(ZFloatArray& uArray, ZFloatArray& vArray, const ZString* uvSet) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::readMesh(m_target, &status);
    if (!mesh)
        return status;
    const UvSet* set = mesh->uvSet(setName(uvSet));
    if (!set)
        return ZStatus::kNotFound;
    uArray.asVector() = set->u;
    vArray.asVector() = set->v;
    return ZStatus::kSuccess;
}

ZStatus ZFnMesh::assignUVs(const ZIntArray& uvCounts, const ZIntArray& uvIds, const ZString* uvSet) {
    return oz::editMesh(m_target, MeshTarget::Edit::kAttributes, [&](MeshData& data) -> ZStatus {
        const oz::mesh::Mesh& mesh = data.mesh;
        if (uvCounts.length() != static_cast<unsigned int>(mesh.faceCount()))
            return ZStatus::kInvalidParameter;
        std::vector<int32_t> perFaceVertex;
        perFaceVertex.reserve(static_cast<size_t>(mesh.faceVertexCount()));
        unsigned int next = 0;
        for (int32_t f = 0; f < mesh.faceCount(); ++f) {
            const auto faceSize = static_cast<int>(mesh.faceVertices(f).size());
            const int count = uvCounts[static_cast<unsigned int>(f)];
            if (count == 0) {
                perFaceVertex.insert(perFaceVertex.end(), static_cast<size_t>(faceSize), UvSet::kNoUv);
                continue;
            }
            if (count != faceSize || uvIds.length() - next < static_cast<unsigned int>(count))
                return ZStatus::kInvalidParameter;
            perFaceVertex.insert(perFaceVertex.end(), uvIds.begin() + next, uvIds.begin() + next + count);
            next += static_cast<unsigned int>(count);
        }
        if (next != uvIds.length())
            return ZStatus::kInvalidParameter;
        return oz::toStatus(data.mesh.assignUvIds(setName(uvSet), perFaceVertex));
    });
}

ZStatus ZFnMesh::getAssignedUVs(ZIntArray& uvCounts, ZIntArray& uvIds, const ZString* uvSet) const {
    ZStatus status;
    const oz::mesh::Mesh* mesh = oz::readMesh(m_target, &status);
    if (!mesh)
        return status;
    const UvSet* set = mesh->uvSet(setName(uvSet));
    if (!set)
        return ZStatus::kNotFound;
    uvCounts.setLength(static_cast<unsigned int>(mesh->faceCount()));
    uvIds.clear();
    for (int32_t f = 0; f < mesh->faceCount(); ++f) {
        const auto faceIds = mesh->faceUvIds(setName(uvSet), f);
        const bool complete =
            std::none_of(faceIds.begin(), faceIds.end(), [](int32_t id) { return id == UvSet::kNoUv; });
        uvCounts[static_cast<unsigned int>(f)] = complete ? static_cast<int>(faceIds.size()) : 0;
        if (complete)
            uvIds.asVector().insert(uvIds.end(), faceIds.begin(), faceIds.end());
    }
    return ZStatus::kSuccess;
}
