#include "mesh/Mesh.h"
#include "mesh/Normals.h"

#include <algorithm>
#include <limits>
#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#include <tbb/parallel_reduce.h>
#include <utility>

namespace oz::mesh {

namespace {

// Whether any id lies outside [low, high), checked on all cores: colours and uvs are set for
// every vertex and face-vertex of a solid at once. One unsigned comparison per id, with no branch
// and the bounds in registers, lets the loop vectorise; a predicate with `||` in it did not.
bool anyOutside(std::span<const int32_t> ids, int32_t low, int32_t high) {
    const auto base = static_cast<uint32_t>(low);
    const auto width = static_cast<uint32_t>(static_cast<int64_t>(high) - low);
    return tbb::parallel_reduce(
        tbb::blocked_range<size_t>(0, ids.size(), 4096), false,
        [ids, base, width](const tbb::blocked_range<size_t>& range, bool found) {
            uint32_t bad = 0;
            for (size_t i = range.begin(); i != range.end(); ++i)
                bad |= static_cast<uint32_t>(static_cast<uint32_t>(ids[i]) - base >= width);
            return found || bad != 0;
        },
        [](bool a, bool b) { return a || b; });
}

// Colours of fewer vertices than this are set on the calling thread.
constexpr size_t kParallelColors = 16384;

// Whether the ids rise strictly, checked on all cores; without an early exit, so that the loop
// vectorises: writers mostly give rising ids.
bool ascending(std::span<const int32_t> ids) {
    return !tbb::parallel_reduce(
        tbb::blocked_range<size_t>(1, std::max<size_t>(ids.size(), 1), 16384), false,
        [ids](const tbb::blocked_range<size_t>& range, bool found) {
            uint32_t falls = 0;
            for (size_t i = range.begin(); i != range.end(); ++i)
                falls |= static_cast<uint32_t>(ids[i - 1] >= ids[i]);
            return found || falls != 0;
        },
        [](bool a, bool b) { return a || b; });
}

} // namespace

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
    fromFaceOrder(faces_.read(), *faceVertexOffsets(), normals,
                  normals_.overwrite([] { return std::vector<Vector3>(); }));
    normalsSet_ = true;
    return Status::Success;
}

std::optional<Color> Mesh::vertexColor(int32_t vertex) const {
    if (vertex < 0 || vertex >= vertexCount() || !hasVertexColors() || !colors_.read().set[vertex])
        return std::nullopt;
    return colors_.read().colors[vertex];
}

Status Mesh::setVertexColors(std::span<const Color> colors, std::span<const int32_t> vertices) {
    return assignVertexColors(colors, vertices, nullptr);
}

Status Mesh::setVertexColors(std::vector<Color>&& colors, std::span<const int32_t> vertices) {
    return assignVertexColors(colors, vertices, &colors);
}

Status Mesh::assignVertexColors(std::span<const Color> colors, std::span<const int32_t> vertices,
                                std::vector<Color>* takeable) {
    if (colors.size() != vertices.size())
        return Status::SizeMismatch;
    const int32_t count = vertexCount();
    if (anyOutside(vertices, 0, count))
        return Status::InvalidIndex;
    VertexColors& own = colors_.write();
    const size_t total = points_.read().size();
    // Writers colour every vertex of a solid at once, in id order: ids that never repeat can be
    // written on all cores, while a repeated id must end with its last colour, as in one pass.
    const bool unique = vertices.size() > kParallelColors && ascending(vertices);
    // Rising ids, as many as there are vertices, are every vertex in order: the colours are the
    // column as given.
    if (unique && vertices.size() == total) {
        if (takeable)
            own.colors = std::move(*takeable);
        else
            own.colors.assign(colors.begin(), colors.end());
        own.set.assign(total, 1);
        return Status::Success;
    }
    own.colors.resize(total);
    own.set.resize(total, 0);
    const auto assign = [&](size_t begin, size_t end) {
        for (size_t i = begin; i < end; ++i) {
            own.colors[vertices[i]] = colors[i];
            own.set[vertices[i]] = 1;
        }
    };
    if (unique)
        tbb::parallel_for(
            tbb::blocked_range<size_t>(0, vertices.size(), kParallelColors),
            [&](const tbb::blocked_range<size_t>& range) { assign(range.begin(), range.end()); });
    else
        assign(0, vertices.size());
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
    uvSets_.emplace_back(UvChannel{UvSet{std::string(name), {}, {}}, {}});
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
    if (channel->idBound <= uvCount)
        return Status::Success;
    auto& ids = channel->pooledIds;
    tbb::parallel_for(tbb::blocked_range<size_t>(0, ids.size(), 16384),
                      [&](const tbb::blocked_range<size_t>& range) {
                          for (size_t i = range.begin(); i != range.end(); ++i) {
                              if (ids[i] >= uvCount)
                                  ids[i] = UvSet::kNoUv;
                          }
                      });
    channel->idBound = uvCount;
    return Status::Success;
}

Status Mesh::faceVertexUvIds(std::string_view set, std::vector<int32_t>& out) const {
    const UvChannel* channel = findUvChannel(set);
    if (!channel)
        return Status::UnknownUvSet;
    if (channel->pooledIds.empty())
        out.assign(static_cast<size_t>(faceVertexCount()), UvSet::kNoUv);
    else
        out = toFaceOrder(faces_.read(), channel->pooledIds);
    return Status::Success;
}

std::span<const int32_t> Mesh::faceUvIds(std::string_view set, int32_t face) const {
    const UvChannel* channel = findUvChannel(set);
    if (!channel || channel->pooledIds.empty() || face < 0 || face >= faceCount())
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
    static_assert(UvSet::kNoUv == -1, "the id check takes no-uv as the id just below the first");
    if (anyOutside(faceVertexUvIds, UvSet::kNoUv, uvCount))
        return Status::InvalidIndex;
    fromFaceOrder(faces_.read(), *faceVertexOffsets(), faceVertexUvIds, channel->pooledIds);
    channel->idBound = uvCount;
    return Status::Success;
}

} // namespace oz::mesh
