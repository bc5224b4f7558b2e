#include "mesh/Mesh.h"
#include "mesh/Normals.h"

#include <limits>
#include <numeric>
#include <optional>

namespace oz::mesh {

namespace {

constexpr int64_t kMaxIds = std::numeric_limits<int32_t>::max();

// Drops ids that repeat their predecessor (also across the loop's closing edge), as merging
// coincident neighbours leaves them; returns the loop's new length.
size_t dropRepeats(std::vector<int32_t>& ids, size_t begin, size_t count) {
    size_t end = begin;
    for (size_t i = begin; i < begin + count; ++i) {
        if (end == begin || ids[end - 1] != ids[i])
            ids[end++] = ids[i];
    }
    while (end - begin > 1 && ids[end - 1] == ids[begin])
        --end;
    return end - begin;
}

// Where a face's or hole's vertices are resolved before they are appended, kept per thread: a
// text adds its caps one face at a time, by the thousand.
struct AddScratch {
    std::vector<int32_t> ids;
    std::vector<int32_t> counts;
    std::vector<Point3> added;
};

AddScratch& addScratch() {
    thread_local AddScratch scratch;
    return scratch;
}

} // namespace

Status Mesh::create(std::span<const Point3> points, std::span<const int32_t> faceCounts,
                    std::span<const int32_t> faceConnects) {
    return create(PointArray(points.begin(), points.end()), faceCounts, faceConnects);
}

Status Mesh::create(PointArray&& points, std::span<const int32_t> faceCounts,
                    std::span<const int32_t> faceConnects) {
    if (static_cast<int64_t>(points.size()) > kMaxIds || static_cast<int64_t>(faceConnects.size()) > kMaxIds)
        return Status::TooLarge;
    FaceLoops faces;
    if (const Status s =
            FaceLoops::singleLoopFaces(faceCounts, faceConnects, static_cast<int32_t>(points.size()), faces);
        s != Status::Success)
        return s;

    points_ = Shared(std::move(points));
    faces_ = Shared(std::move(faces));
    normalsSet_ = false;
    normals_ = Shared<std::vector<Vector3>>();
    clearVertexColors();
    uvSets_.assign(1, Shared(UvChannel{UvSet{std::string(kDefaultUvSet), {}, {}}, {}}));
    merge_.index.reset();
    topologyChanged();
    return Status::Success;
}

Status Mesh::resolveVertices(std::span<const Point3> points, std::span<const int32_t> loopCounts, bool merge,
                             double tolerance, std::vector<int32_t>& ids, std::vector<int32_t>& counts,
                             std::vector<Point3>& added) {
    if (loopCounts.empty() || (merge && !(tolerance >= 0.0)))
        return Status::InvalidArgument;
    int64_t total = 0;
    for (const int32_t count : loopCounts) {
        if (count < 3)
            return Status::InvalidArgument;
        total += count;
    }
    if (total != static_cast<int64_t>(points.size()))
        return Status::SizeMismatch;
    if (vertexCount() + total > kMaxIds || faceVertexCount() + total > kMaxIds)
        return Status::TooLarge;

    counts.assign(loopCounts.begin(), loopCounts.end());
    if (!merge) {
        added.assign(points.begin(), points.end());
        ids.resize(points.size());
        std::iota(ids.begin(), ids.end(), vertexCount());
        return Status::Success;
    }

    if (!merge_.index || merge_.index->tolerance() != tolerance)
        merge_.index = std::make_unique<VertexMergeIndex>(tolerance);
    merge_.index->extend(points_.read());
    // Points of this call that merge with none of the mesh: the holes of a solid's caps land on
    // its own vertices, call after call, and need no index of their own.
    std::optional<VertexMergeIndex> fresh;
    added.clear();
    ids.clear();
    for (const Point3& p : points) {
        int32_t id = merge_.index->find(p, points_.read());
        if (id < 0) {
            const int32_t earlier = fresh ? fresh->find(p, added) : -1;
            if (earlier >= 0) {
                id = vertexCount() + earlier;
            } else {
                id = vertexCount() + static_cast<int32_t>(added.size());
                added.push_back(p);
                if (!fresh)
                    fresh.emplace(tolerance);
                fresh->extend(added);
            }
        }
        ids.push_back(id);
    }

    size_t read = 0;
    size_t write = 0;
    for (int32_t& count : counts) {
        std::copy(ids.begin() + static_cast<std::ptrdiff_t>(read),
                  ids.begin() + static_cast<std::ptrdiff_t>(read + static_cast<size_t>(count)),
                  ids.begin() + static_cast<std::ptrdiff_t>(write));
        read += static_cast<size_t>(count);
        count = static_cast<int32_t>(dropRepeats(ids, write, static_cast<size_t>(count)));
        if (count < 3)
            return Status::DegenerateLoop;
        write += static_cast<size_t>(count);
    }
    ids.resize(write);
    return Status::Success;
}

void Mesh::appendPoints(std::span<const Point3> added) {
    PointArray& points = points_.write();
    points.insert(points.end(), added.begin(), added.end());
    if (hasVertexColors()) {
        VertexColors& colors = colors_.write();
        colors.colors.resize(points.size());
        colors.set.resize(points.size(), 0);
    }
}

void Mesh::followFacePool(const PoolEdit& edit, int32_t face) {
    if (normalsSet_)
        edit.applyTo(normals_.write(), oz::mesh::faceNormal(faces_.read(), points_.read(), face));
    for (Shared<UvChannel>& channel : uvSets_) {
        if (!channel.read().pooledIds.empty())
            edit.applyTo(channel.write().pooledIds, UvSet::kNoUv);
    }
}

Status Mesh::addPolygon(std::span<const Point3> points, std::span<const int32_t> loopCounts,
                        bool mergeVertices, double tolerance, int32_t& faceIndex) {
    if (faceCount() >= kMaxIds)
        return Status::TooLarge;
    auto& [ids, counts, added] = addScratch();
    if (const Status s = resolveVertices(points, loopCounts, mergeVertices, tolerance, ids, counts, added);
        s != Status::Success)
        return s;

    appendPoints(added);
    const PoolEdit edit = faces_.write().appendFace(counts, ids);
    faceIndex = faceCount() - 1;
    followFacePool(edit, faceIndex);
    topologyChanged();
    return Status::Success;
}

Status Mesh::addHoles(int32_t face, std::span<const Point3> points, std::span<const int32_t> loopCounts,
                      bool mergeVertices, double tolerance) {
    if (face < 0 || face >= faceCount())
        return Status::InvalidIndex;
    auto& [ids, counts, added] = addScratch();
    if (const Status s = resolveVertices(points, loopCounts, mergeVertices, tolerance, ids, counts, added);
        s != Status::Success)
        return s;

    appendPoints(added);
    followFacePool(faces_.write().appendLoops(face, counts, ids), face);
    if (faces_.read().wasteful())
        followFacePool(faces_.write().compact(), face);
    topologyChanged();
    return Status::Success;
}

HoleList Mesh::holes() const {
    HoleList list;
    for (int32_t f = 0; f < faceCount(); ++f) {
        for (int32_t h = 1; h < faces_.read().faceLoopCount(f); ++h) {
            const auto loop = faces_.read().loop(f, h);
            list.info.insert(list.info.end(), {f, static_cast<int32_t>(loop.size()),
                                               static_cast<int32_t>(list.vertices.size())});
            list.vertices.insert(list.vertices.end(), loop.begin(), loop.end());
        }
    }
    return list;
}

void Mesh::topologyChanged() {
    ++topologyVersion_;
    ++geometryVersion_;
}

void Mesh::pointsMoved() {
    ++geometryVersion_;
    merge_.index.reset();
    // The triangles are cut from the points as they are when first asked for.
    triangulation_.forgetAhead();
}

} // namespace oz::mesh
