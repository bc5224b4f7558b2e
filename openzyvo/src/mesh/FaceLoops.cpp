#include "mesh/FaceLoops.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <numeric>
#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#include <tbb/parallel_reduce.h>
#include <tbb/parallel_scan.h>

namespace oz::mesh {

namespace {

// Leftovers below this never trigger a compaction: small meshes are not worth the copy.
constexpr int32_t kMinWaste = 4096;
// Faces a task lays out at once when a mesh is created whole.
constexpr size_t kLayoutBlock = 8192;

// Appends values[from .. from + count) to the end of the same vector.
template <class Values> void appendOwnRun(Values& values, int32_t from, int32_t count) {
    reserveGrowing(values, values.size() + static_cast<size_t>(count));
    for (int32_t i = 0; i < count; ++i)
        values.push_back(values[static_cast<size_t>(from + i)]);
}

} // namespace

std::vector<int32_t> FaceLoops::faceVertexOffsets() const {
    std::vector<int32_t> offsets(faces_.size() + 1);
    // A running sum on all cores: uv ids, normals and the topology of a solid of text ask for
    // the offsets of half a million faces.
    tbb::parallel_scan(
        tbb::blocked_range<size_t>(0, faces_.size(), kLayoutBlock), int32_t{0},
        [&](const tbb::blocked_range<size_t>& range, int32_t sum, bool final) {
            for (size_t f = range.begin(); f != range.end(); ++f) {
                if (final)
                    offsets[f] = sum;
                sum += faces_[f].vertexCount;
            }
            return sum;
        },
        std::plus<>());
    offsets.back() = vertexTotal_;
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

Status FaceLoops::singleLoopFaces(std::span<const int32_t> faceCounts, std::span<const int32_t> vertexIds,
                                  int32_t vertexCount, FaceLoops& out) {
    // Faces are laid out in blocks on all cores: first each block's face-vertex total, then, from
    // the block's start, its faces and ids. Any doubt sends the whole input to validateLoops, which
    // names the first bad loop as a single pass would.
    const size_t faces = faceCounts.size();
    const size_t blocks = (faces + kLayoutBlock - 1) / kLayoutBlock;
    const auto blockRange = [&](size_t block) {
        return std::pair(block * kLayoutBlock, std::min(faces, (block + 1) * kLayoutBlock));
    };
    std::vector<int64_t> blockStarts(blocks + 1, 0);
    std::vector<uint8_t> blockBad(blocks, 0);
    tbb::parallel_for(size_t{0}, blocks, [&](size_t block) {
        const auto [begin, end] = blockRange(block);
        int64_t total = 0;
        int32_t fewest = 3;
        for (size_t f = begin; f != end; ++f) {
            total += faceCounts[f];
            fewest = std::min(fewest, faceCounts[f]);
        }
        blockStarts[block + 1] = total;
        blockBad[block] = fewest < 3;
    });
    std::partial_sum(blockStarts.begin(), blockStarts.end(), blockStarts.begin());
    if (std::ranges::any_of(blockBad, [](uint8_t bad) { return bad != 0; }) ||
        blockStarts.back() != static_cast<int64_t>(vertexIds.size()))
        return validateLoops(faceCounts, vertexIds, vertexCount);

    out = FaceLoops();
    out.faces_.resize(faces);
    // Meshes created whole often get holes put back into some faces next (the caps of a solid),
    // which moves those faces' blocks to the end: room for that keeps the first such move from
    // copying the whole pool.
    out.loopOffsets_.reserve(withRoomForHoles(faces));
    out.loopOffsets_.assign(faces, 0);
    out.vertexIds_.reserve(withRoomForHoles(vertexIds.size()));
    out.vertexIds_.resize(vertexIds.size());
    const auto limit = static_cast<uint32_t>(vertexCount);
    tbb::parallel_for(size_t{0}, blocks, [&](size_t block) {
        const auto [begin, end] = blockRange(block);
        auto start = static_cast<int32_t>(blockStarts[block]);
        const auto blockEnd = static_cast<size_t>(blockStarts[block + 1]);
        // Plain comparisons over the block's ids rather than a loop per face with early exits:
        // both flat loops vectorise, and the rare bad input is looked at again anyway. A loop
        // must not repeat a vertex back to back: equal neighbours in the block are counted, less
        // those that meet across the border of two faces.
        uint32_t bad = 0;
        int32_t repeats = 0;
        for (size_t i = static_cast<size_t>(start); i != blockEnd; ++i)
            bad |= static_cast<uint32_t>(vertexIds[i]) >= limit;
        for (size_t i = static_cast<size_t>(start) + 1; i < blockEnd; ++i)
            repeats += vertexIds[i] == vertexIds[i - 1];
        for (size_t f = begin; f != end; ++f) {
            const int32_t count = faceCounts[f];
            const int32_t* loop = vertexIds.data() + start;
            bad |= loop[0] == loop[count - 1];
            if (f != begin)
                repeats -= loop[0] == loop[-1];
            out.faces_[f] = {start, count, static_cast<int32_t>(f), 1};
            start += count;
        }
        bad |= repeats != 0;
        std::copy(vertexIds.begin() + blockStarts[block], vertexIds.begin() + blockStarts[block + 1],
                  out.vertexIds_.begin() + blockStarts[block]);
        blockBad[block] = bad != 0;
    });
    if (std::ranges::any_of(blockBad, [](uint8_t bad) { return bad != 0; }))
        return validateLoops(faceCounts, vertexIds, vertexCount);
    out.loopTotal_ = static_cast<int32_t>(faces);
    out.vertexTotal_ = static_cast<int32_t>(vertexIds.size());
    return Status::Success;
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
        leftovers_.emplace_back(f.vertexStart, f.vertexCount);
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
    decltype(vertexIds_) ids;
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
    leftovers_.clear();
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
