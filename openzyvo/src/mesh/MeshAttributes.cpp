#include "mesh/Mesh.h"
#include "mesh/Normals.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace oz::mesh {

std::optional<Vector3> Mesh::faceNormal(int32_t face) const {
    if (face < 0 || face >= faceCount())
        return std::nullopt;
    return oz::mesh::faceNormal(faces_.read(), points_.read(), face);
}

std::optional<Vector3> Mesh::vertexNormal(int32_t vertex) const {
    if (vertex < 0 || vertex >= vertexCount())
        return std::nullopt;
    return angleWeightedVertexNormal(faces_.read(), points_.read(), vertex, topology()->vertexFaces[vertex]);
}

std::vector<Vector3> Mesh::vertexNormals() const {
    return angleWeightedVertexNormals(faces_.read(), points_.read());
}

std::vector<Vector3> Mesh::normals() const {
    if (normalsSet_)
        return toFaceOrder(faces_.read(), normals_.read());
    std::vector<Vector3> derived;
    derived.reserve(static_cast<size_t>(faceVertexCount()));
    for (int32_t f = 0; f < faceCount(); ++f)
        derived.insert(derived.end(), faces_.read().faceVertices(f).size(),
                       oz::mesh::faceNormal(faces_.read(), points_.read(), f));
    return derived;
}

Status Mesh::faceVertexNormals(int32_t face, std::vector<Vector3>& out) const {
    if (face < 0 || face >= faceCount())
        return Status::InvalidIndex;
    const size_t count = faces_.read().faceVertices(face).size();
    if (normalsSet_) {
        const auto begin = normals_.read().begin() + faces_.read().poolStart(face);
        out.assign(begin, begin + static_cast<std::ptrdiff_t>(count));
    } else {
        out.assign(count, oz::mesh::faceNormal(faces_.read(), points_.read(), face));
    }
    return Status::Success;
}

Status Mesh::setNormals(std::span<const Vector3> normals) {
    if (normals.size() != static_cast<size_t>(faceVertexCount()))
        return Status::SizeMismatch;
    fromFaceOrder(faces_.read(), normals, normals_.overwrite([] { return std::vector<Vector3>(); }));
    normalsSet_ = true;
    return Status::Success;
}

std::optional<Color> Mesh::vertexColor(int32_t vertex) const {
    if (vertex < 0 || vertex >= vertexCount() || !hasVertexColors() || !colors_.read().set[vertex])
        return std::nullopt;
    return colors_.read().colors[vertex];
}

Status Mesh::setVertexColors(std::span<const Color> colors, std::span<const int32_t> vertices) {
    if (colors.size() != vertices.size())
        return Status::SizeMismatch;
    for (const int32_t v : vertices) {
        if (v < 0 || v >= vertexCount())
            return Status::InvalidIndex;
    }
    VertexColors& own = colors_.write();
    own.colors.resize(points_.read().size());
    own.set.resize(points_.read().size(), 0);
    for (size_t i = 0; i < vertices.size(); ++i) {
        own.colors[vertices[i]] = colors[i];
        own.set[vertices[i]] = 1;
    }
    return Status::Success;
}

void Mesh::clearVertexColors() {
    colors_ = Shared<VertexColors>();
}

std::vector<std::string> Mesh::uvSetNames() const {
    std::vector<std::string> names;
    for (const Shared<UvChannel>& channel : uvSets_)
        names.push_back(channel.read().set.name);
    return names;
}

const Mesh::UvChannel* Mesh::findUvChannel(std::string_view name) const {
    const auto it = std::find_if(uvSets_.begin(), uvSets_.end(),
                                 [&](const Shared<UvChannel>& c) { return c.read().set.name == name; });
    return it == uvSets_.end() ? nullptr : &it->read();
}

Mesh::UvChannel* Mesh::findUvChannel(std::string_view name) {
    const auto it = std::find_if(uvSets_.begin(), uvSets_.end(),
                                 [&](const Shared<UvChannel>& c) { return c.read().set.name == name; });
    return it == uvSets_.end() ? nullptr : &it->write();
}

const UvSet* Mesh::uvSet(std::string_view name) const {
    const UvChannel* channel = findUvChannel(name);
    return channel ? &channel->set : nullptr;
}

Status Mesh::createUvSet(std::string_view name) {
    if (name.empty() || std::as_const(*this).findUvChannel(name))
        return Status::InvalidArgument;
    uvSets_.emplace_back(
        UvChannel{UvSet{std::string(name), {}, {}},
                  std::vector<int32_t>(static_cast<size_t>(faces_.read().poolSize()), UvSet::kNoUv)});
    return Status::Success;
}

Status Mesh::setUvs(std::string_view set, std::span<const float> u, std::span<const float> v) {
    UvChannel* channel = findUvChannel(set);
    if (!channel)
        return Status::UnknownUvSet;
    if (u.size() != v.size())
        return Status::SizeMismatch;
    if (u.size() > static_cast<size_t>(std::numeric_limits<int32_t>::max()))
        return Status::TooLarge;
    channel->set.u.assign(u.begin(), u.end());
    channel->set.v.assign(v.begin(), v.end());
    // Ids past the new end would dangle; such face-vertices lose their uv instead.
    const auto uvCount = static_cast<int32_t>(u.size());
    for (int32_t& id : channel->pooledIds) {
        if (id >= uvCount)
            id = UvSet::kNoUv;
    }
    return Status::Success;
}

Status Mesh::faceVertexUvIds(std::string_view set, std::vector<int32_t>& out) const {
    const UvChannel* channel = findUvChannel(set);
    if (!channel)
        return Status::UnknownUvSet;
    out = toFaceOrder(faces_.read(), channel->pooledIds);
    return Status::Success;
}

std::span<const int32_t> Mesh::faceUvIds(std::string_view set, int32_t face) const {
    const UvChannel* channel = findUvChannel(set);
    if (!channel || face < 0 || face >= faceCount())
        return {};
    return std::span<const int32_t>(channel->pooledIds)
        .subspan(faces_.read().poolStart(face), faces_.read().faceVertices(face).size());
}

Status Mesh::assignUvIds(std::string_view set, std::span<const int32_t> faceVertexUvIds) {
    UvChannel* channel = findUvChannel(set);
    if (!channel)
        return Status::UnknownUvSet;
    if (faceVertexUvIds.size() != static_cast<size_t>(faceVertexCount()))
        return Status::SizeMismatch;
    const auto uvCount = static_cast<int32_t>(channel->set.u.size());
    for (const int32_t id : faceVertexUvIds) {
        if (id != UvSet::kNoUv && (id < 0 || id >= uvCount))
            return Status::InvalidIndex;
    }
    fromFaceOrder(faces_.read(), faceVertexUvIds, channel->pooledIds);
    return Status::Success;
}

} // namespace oz::mesh
