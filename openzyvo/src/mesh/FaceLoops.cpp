#include "mesh/FaceLoops.h"

#include <algorithm>

namespace oz::mesh {

int32_t FaceLoops::faceLoopCount(int32_t face) const {
    if (face < 0 || face >= faceCount())
        return 0;
    return faceLoopStart_[face + 1] - faceLoopStart_[face];
}

std::span<const int32_t> FaceLoops::loop(int32_t face, int32_t loop) const {
    if (loop < 0 || loop >= faceLoopCount(face))
        return {};
    const int32_t l = faceLoopStart_[face] + loop;
    return std::span<const int32_t>(vertexIds_).subspan(loopStart_[l], loopStart_[l + 1] - loopStart_[l]);
}

std::span<const int32_t> FaceLoops::faceVertices(int32_t face) const {
    if (face < 0 || face >= faceCount())
        return {};
    const int32_t begin = faceVertexStart(face);
    return std::span<const int32_t>(vertexIds_).subspan(begin, faceVertexStart(face + 1) - begin);
}

int32_t FaceLoops::vertexIdBound() const {
    return vertexIds_.empty() ? 0 : *std::max_element(vertexIds_.begin(), vertexIds_.end()) + 1;
}

void FaceLoops::appendFace(std::span<const int32_t> loopCounts, std::span<const int32_t> vertexIds) {
    for (const int32_t count : loopCounts)
        loopStart_.push_back(loopStart_.back() + count);
    faceLoopStart_.push_back(faceLoopStart_.back() + static_cast<int32_t>(loopCounts.size()));
    vertexIds_.insert(vertexIds_.end(), vertexIds.begin(), vertexIds.end());
}

int32_t FaceLoops::appendLoops(int32_t face, std::span<const int32_t> loopCounts,
                               std::span<const int32_t> vertexIds) {
    const int32_t at = faceVertexStart(face + 1);
    const int32_t loopAt = faceLoopStart_[face + 1];
    const auto added = static_cast<int32_t>(vertexIds.size());
    const auto addedLoops = static_cast<int32_t>(loopCounts.size());

    // Holes added to the last face (how faces are usually built) append without moving anything.
    vertexIds_.insert(vertexIds_.begin() + at, vertexIds.begin(), vertexIds.end());
    std::vector<int32_t> newStarts;
    newStarts.reserve(loopCounts.size());
    int32_t start = at;
    for (const int32_t count : loopCounts) {
        newStarts.push_back(start);
        start += count;
    }
    loopStart_.insert(loopStart_.begin() + loopAt, newStarts.begin(), newStarts.end());
    for (auto it = loopStart_.begin() + loopAt + addedLoops; it != loopStart_.end(); ++it)
        *it += added;
    for (auto it = faceLoopStart_.begin() + face + 1; it != faceLoopStart_.end(); ++it)
        *it += addedLoops;
    return at;
}

Status validateLoops(std::span<const int32_t> loopCounts, std::span<const int32_t> vertexIds,
                     int32_t vertexCount) {
    int64_t total = 0;
    for (const int32_t count : loopCounts) {
        if (count < 3)
            return Status::InvalidArgument;
        total += count;
    }
    if (total != static_cast<int64_t>(vertexIds.size()))
        return Status::SizeMismatch;
    size_t begin = 0;
    for (const int32_t count : loopCounts) {
        const auto loop = vertexIds.subspan(begin, static_cast<size_t>(count));
        for (size_t i = 0; i < loop.size(); ++i) {
            if (loop[i] < 0 || loop[i] >= vertexCount)
                return Status::InvalidIndex;
            if (loop[i] == loop[(i + 1) % loop.size()])
                return Status::DegenerateLoop;
        }
        begin += loop.size();
    }
    return Status::Success;
}

} // namespace oz::mesh
