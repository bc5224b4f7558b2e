#include "mesh/Mesh.h"
#include "mesh/Normals.h"

#include <algorithm>
#include <limits>

namespace oz::mesh {

std::optional<Vector3> Mesh::faceNormal(int32_t face) const {
    if (face < 0 || face >= faceCount())
        return std::nullopt;
    return oz::mesh::faceNormal(faces_, points_, face);
}

std::optional<Vector3> Mesh::vertexNormal(int32_t vertex) const {
    if (vertex < 0 || vertex >= vertexCount())
        return std::nullopt;
    return angleWeightedVertexNormal(faces_, points_, vertex, topology()->vertexFaces[vertex]);
}

std::vector<Vector3> Mesh::vertexNormals() const {
    return angleWeightedVertexNormals(faces_, points_);
}

std::vector<Vector3> Mesh::normals() const {
    if (normalsSet_)
        return normals_;
    std::vector<Vector3> derived(static_cast<size_t>(faceVertexCount()));
    for (int32_t f = 0; f < faceCount(); ++f) {
        std::fill(derived.begin() + faces_.faceVertexStart(f),
                  derived.begin() + faces_.faceVertexStart(f + 1), oz::mesh::faceNormal(faces_, points_, f));
    }
    return derived;
}

Status Mesh::faceVertexNormals(int32_t face, std::vector<Vector3>& out) const {
    if (face < 0 || face >= faceCount())
        return Status::InvalidIndex;
    const int32_t begin = faces_.faceVertexStart(face);
    const int32_t end = faces_.faceVertexStart(face + 1);
    if (normalsSet_)
        out.assign(normals_.begin() + begin, normals_.begin() + end);
    else
        out.assign(static_cast<size_t>(end - begin), oz::mesh::faceNormal(faces_, points_, face));
    return Status::Success;
}

Status Mesh::setNormals(std::span<const Vector3> normals) {
    if (normals.size() != static_cast<size_t>(faceVertexCount()))
        return Status::SizeMismatch;
    normals_.assign(normals.begin(), normals.end());
    normalsSet_ = true;
    return Status::Success;
}

std::optional<Color> Mesh::vertexColor(int32_t vertex) const {
    if (vertex < 0 || vertex >= vertexCount() || !hasVertexColors() || !colorSet_[vertex])
        return std::nullopt;
    return colors_[vertex];
}

Status Mesh::setVertexColors(std::span<const Color> colors, std::span<const int32_t> vertices) {
    if (colors.size() != vertices.size())
        return Status::SizeMismatch;
    for (const int32_t v : vertices) {
        if (v < 0 || v >= vertexCount())
            return Status::InvalidIndex;
    }
    colors_.resize(points_.size());
    colorSet_.resize(points_.size(), 0);
    for (size_t i = 0; i < vertices.size(); ++i) {
        colors_[vertices[i]] = colors[i];
        colorSet_[vertices[i]] = 1;
    }
    return Status::Success;
}

void Mesh::clearVertexColors() {
    colors_.clear();
    colorSet_.clear();
}

std::vector<std::string> Mesh::uvSetNames() const {
    std::vector<std::string> names;
    for (const UvSet& set : uvSets_)
        names.push_back(set.name);
    return names;
}

const UvSet* Mesh::uvSet(std::string_view name) const {
    const auto it =
        std::find_if(uvSets_.begin(), uvSets_.end(), [&](const UvSet& s) { return s.name == name; });
    return it == uvSets_.end() ? nullptr : &*it;
}

UvSet* Mesh::findUvSet(std::string_view name) {
    const auto it =
        std::find_if(uvSets_.begin(), uvSets_.end(), [&](const UvSet& s) { return s.name == name; });
    return it == uvSets_.end() ? nullptr : &*it;
}

Status Mesh::createUvSet(std::string_view name) {
    if (name.empty() || uvSet(name))
        return Status::InvalidArgument;
    uvSets_.push_back(UvSet{std::string(name), {}, {}, {}});
    uvSets_.back().faceVertexUvIds.assign(static_cast<size_t>(faceVertexCount()), UvSet::kNoUv);
    return Status::Success;
}

Status Mesh::setUvs(std::string_view set, std::span<const float> u, std::span<const float> v) {
    UvSet* target = findUvSet(set);
    if (!target)
        return Status::UnknownUvSet;
    if (u.size() != v.size())
        return Status::SizeMismatch;
    if (u.size() > static_cast<size_t>(std::numeric_limits<int32_t>::max()))
        return Status::TooLarge;
    target->u.assign(u.begin(), u.end());
    target->v.assign(v.begin(), v.end());
    // Ids past the new end would dangle; such face-vertices lose their uv instead.
    const auto uvCount = static_cast<int32_t>(u.size());
    for (int32_t& id : target->faceVertexUvIds) {
        if (id >= uvCount)
            id = UvSet::kNoUv;
    }
    return Status::Success;
}

Status Mesh::assignUvIds(std::string_view set, std::span<const int32_t> faceVertexUvIds) {
    UvSet* target = findUvSet(set);
    if (!target)
        return Status::UnknownUvSet;
    if (faceVertexUvIds.size() != static_cast<size_t>(faceVertexCount()))
        return Status::SizeMismatch;
    const auto uvCount = static_cast<int32_t>(target->u.size());
    for (const int32_t id : faceVertexUvIds) {
        if (id != UvSet::kNoUv && (id < 0 || id >= uvCount))
            return Status::InvalidIndex;
    }
    target->faceVertexUvIds.assign(faceVertexUvIds.begin(), faceVertexUvIds.end());
    return Status::Success;
}

} // namespace oz::mesh
