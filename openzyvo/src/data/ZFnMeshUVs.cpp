#include "data/MeshAccess.h"

#include <OpenZyvo/ZFnMesh.h>
#include <algorithm>
#include <string_view>
#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#include <tbb/parallel_reduce.h>
#include <vector>

using oz::MeshData;
using oz::MeshTarget;
using oz::mesh::UvSet;

namespace {

std::string_view setName(const ZString* uvSet) {
    return uvSet ? uvSet->view() : oz::mesh::Mesh::kDefaultUvSet;
}

// What a list of per-face uv counts holds against the faces' sizes.
struct CountCheck {
    size_t total = 0;
    bool everyFace = true; // no face without ids
    bool mismatch = false; // some face takes ids but not one per face-vertex
};

CountCheck checkUvCounts(const ZIntArray& uvCounts, const std::vector<int32_t>& offsets) {
    return tbb::parallel_reduce(
        tbb::blocked_range<size_t>(0, offsets.size() - 1, 16384), CountCheck{},
        [&](const tbb::blocked_range<size_t>& range, CountCheck check) {
            for (size_t f = range.begin(); f != range.end(); ++f) {
                const int count = uvCounts[static_cast<unsigned int>(f)];
                check.mismatch |= count != 0 && count != offsets[f + 1] - offsets[f];
                check.everyFace &= count != 0;
                check.total += static_cast<size_t>(count);
            }
            return check;
        },
        [](const CountCheck& a, const CountCheck& b) {
            return CountCheck{a.total + b.total, a.everyFace && b.everyFace, a.mismatch || b.mismatch};
        });
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
        // A face takes as many ids as it has face-vertices, or none when its count is 0.
        const auto offsetTable = mesh.faceVertexOffsets();
        const std::vector<int32_t>& offsets = *offsetTable;
        const CountCheck counts = checkUvCounts(uvCounts, offsets);
        if (counts.mismatch || counts.total != uvIds.length())
            return ZStatus::kInvalidParameter;
        // When every face takes its ids, as a solid's writer gives them, they already are the
        // face-vertices' ids in face order.
        if (counts.everyFace)
            return oz::toStatus(data.mesh.assignUvIds(setName(uvSet), uvIds.asVector()));
        std::vector<size_t> firstId(offsets.size());
        for (size_t f = 0; f + 1 < offsets.size(); ++f)
            firstId[f + 1] = firstId[f] + static_cast<size_t>(uvCounts[static_cast<unsigned int>(f)]);
        std::vector<int32_t> perFaceVertex(static_cast<size_t>(mesh.faceVertexCount()));
        tbb::parallel_for(tbb::blocked_range<size_t>(0, offsets.size() - 1, 4096),
                          [&](const tbb::blocked_range<size_t>& range) {
                              for (size_t f = range.begin(); f != range.end(); ++f) {
                                  const auto out = perFaceVertex.begin() + offsets[f];
                                  const auto size = offsets[f + 1] - offsets[f];
                                  if (uvCounts[static_cast<unsigned int>(f)] == 0)
                                      std::fill(out, out + size, UvSet::kNoUv);
                                  else
                                      std::copy_n(uvIds.begin() + static_cast<std::ptrdiff_t>(firstId[f]),
                                                  size, out);
                              }
                          });
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
