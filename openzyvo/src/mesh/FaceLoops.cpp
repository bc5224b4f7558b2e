#include "mesh/FaceLoops.h"

#include <algorithm>
#include <limits>
#include <tbb/blocked_range.h>
#include <tbb/parallel_reduce.h>

namespace oz::mesh {

namespace {

// Leftovers below this never trigger a compaction: small meshes are not worth the copy.
constexpr int32_t kMinWaste = 4096;

// Appends values[from .. from + count) to the end of the same vector.
void appendOwnRun(std::vector<int32_t>& values, int32_t from, int32_t count) {
    reserveGrowing(values, values.size() + static_cast<size_t>(count));
    for (int32_t i = 0; i < count; ++i)
        values.push_back(values[static_cast<size_t>(from + i)]);
}

} // namespace

std::vector<int32_t> FaceLoops::faceVertexOffsets() const {
    std::vector<int32_t> offsets(faces_.size() + 1, 0);
    for (size_t f = 0; f < faces_.size(); ++f)
        offsets[f + 1] = offsets[f] + faces_[f].vertexCount;
    return offsets;
}

int32_t FaceLoops::vertexIdBound() const {
    int32_t bound = 0;
    for (int32_t f = 0; f < faceCount(); ++f) {
        for (const int32_t id : faceVertices(f))
            bound = std::max(bound, id + 1);
    }
    return bound;
}

void FaceLoops::appendLoopOffsets(std::span<const int32_t> loopCounts, int32_t firstOffset) {
    for (const int32_t count : loopCounts) {
        loopOffsets_.push_back(firstOffset);
        firstOffset += count;
    }
}

FaceLoops FaceLoops::singleLoopFaces(std::span<const int32_t> faceCounts,
                                     std::span<const int32_t> vertexIds) {
    FaceLoops out;
    out.faces_.reserve(faceCounts.size());
    // Meshes created whole often get holes put back into some faces next (the caps of a solid),
    // which moves those faces' blocks to the end: room for that keeps the first such move from
    // copying the whole pool.
    out.loopOffsets_.reserve(withRoomForHoles(faceCounts.size()));
    out.loopOffsets_.assign(faceCounts.size(), 0);
    out.vertexIds_.reserve(withRoomForHoles(vertexIds.size()));
    out.vertexIds_.assign(vertexIds.begin(), vertexIds.end());
    int32_t start = 0;
    for (size_t f = 0; f < faceCounts.size(); ++f) {
        out.faces_.push_back({start, faceCounts[f], static_cast<int32_t>(f), 1});
        start += faceCounts[f];
    }
    out.loopTotal_ = static_cast<int32_t>(faceCounts.size());
    out.vertexTotal_ = start;
    return out;
}

void FaceLoops::reserve(int32_t faces, int32_t loops, int32_t faceVertices) {
    reserveGrowing(faces_, faces_.size() + static_cast<size_t>(faces));
    reserveGrowing(loopOffsets_, loopOffsets_.size() + static_cast<size_t>(loops));
    reserveGrowing(vertexIds_, vertexIds_.size() + static_cast<size_t>(faceVertices));
}

PoolEdit FaceLoops::appendFace(std::span<const int32_t> loopCounts, std::span<const int32_t> vertexIds) {
    const auto added = static_cast<int32_t>(vertexIds.size());
    const auto loops = static_cast<int32_t>(loopCounts.size());
    faces_.push_back({poolSize(), added, static_cast<int32_t>(loopOffsets_.size()), loops});
    appendLoopOffsets(loopCounts, 0);
    vertexIds_.insert(vertexIds_.end(), vertexIds.begin(), vertexIds.end());
    loopTotal_ += loops;
    vertexTotal_ += added;
    return {true, {}, added};
}

PoolEdit FaceLoops::appendLoops(int32_t face, std::span<const int32_t> loopCounts,
                                std::span<const int32_t> vertexIds) {
    Face& f = faces_[face];
    PoolEdit edit{true, {}, static_cast<int32_t>(vertexIds.size())};
    // A block that is not the last in the pool cannot grow in place: it moves to the end.
    if (f.vertexStart + f.vertexCount != poolSize()) {
        edit.copies.emplace_back(f.vertexStart, f.vertexCount);
        const int32_t start = poolSize();
        appendOwnRun(vertexIds_, f.vertexStart, f.vertexCount);
        f.vertexStart = start;
    }
    if (f.loopStart + f.loopCount != static_cast<int32_t>(loopOffsets_.size())) {
        const auto start = static_cast<int32_t>(loopOffsets_.size());
        appendOwnRun(loopOffsets_, f.loopStart, f.loopCount);
        f.loopStart = start;
    }
    appendLoopOffsets(loopCounts, f.vertexCount);
    vertexIds_.insert(vertexIds_.end(), vertexIds.begin(), vertexIds.end());
    f.vertexCount += edit.added;
    f.loopCount += static_cast<int32_t>(loopCounts.size());
    loopTotal_ += static_cast<int32_t>(loopCounts.size());
    vertexTotal_ += edit.added;
    return edit;
}

bool FaceLoops::wasteful() const {
    const int32_t waste = poolSize() - vertexTotal_;
    return waste > kMinWaste && waste > vertexTotal_;
}

PoolEdit FaceLoops::compact() {
    PoolEdit edit{false, {}, 0};
    std::vector<int32_t> ids;
    std::vector<int32_t> offsets;
    ids.reserve(static_cast<size_t>(vertexTotal_));
    offsets.reserve(static_cast<size_t>(loopTotal_));
    for (Face& f : faces_) {
        edit.copies.emplace_back(f.vertexStart, f.vertexCount);
        const auto vertexStart = static_cast<int32_t>(ids.size());
        const auto loopStart = static_cast<int32_t>(offsets.size());
        ids.insert(ids.end(), vertexIds_.begin() + f.vertexStart,
                   vertexIds_.begin() + f.vertexStart + f.vertexCount);
        offsets.insert(offsets.end(), loopOffsets_.begin() + f.loopStart,
                       loopOffsets_.begin() + f.loopStart + f.loopCount);
        f.vertexStart = vertexStart;
        f.loopStart = loopStart;
    }
    vertexIds_ = std::move(ids);
    loopOffsets_ = std::move(offsets);
    return edit;
}

Status validateLoops(std::span<const int32_t> loopCounts, std::span<const int32_t> vertexIds,
                     int32_t vertexCount) {
    std::vector<size_t> starts(loopCounts.size() + 1, 0);
    for (size_t loop = 0; loop < loopCounts.size(); ++loop) {
        if (loopCounts[loop] < 3)
            return Status::InvalidArgument;
        starts[loop + 1] = starts[loop] + static_cast<size_t>(loopCounts[loop]);
    }
    if (starts.back() != vertexIds.size())
        return Status::SizeMismatch;
    // Loops are checked on all cores; the first bad loop decides the status, as in one pass.
    struct Found {
        size_t loop = std::numeric_limits<size_t>::max();
        Status status = Status::Success;
    };
    const Found found = tbb::parallel_reduce(
        tbb::blocked_range<size_t>(0, loopCounts.size(), 4096), Found{},
        [&](const tbb::blocked_range<size_t>& range, Found first) {
            for (size_t l = range.begin(); l != range.end() && l < first.loop; ++l) {
                const auto loop = vertexIds.subspan(starts[l], static_cast<size_t>(loopCounts[l]));
                for (size_t i = 0; i < loop.size(); ++i) {
                    if (loop[i] < 0 || loop[i] >= vertexCount)
                        return Found{l, Status::InvalidIndex};
                    if (loop[i] == (i + 1 < loop.size() ? loop[i + 1] : loop[0]))
                        return Found{l, Status::DegenerateLoop};
                }
            }
            return first;
        },
        [](const Found& a, const Found& b) { return a.loop <= b.loop ? a : b; });
    return found.status;
}

} // namespace oz::mesh
