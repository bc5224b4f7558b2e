#pragma once

#include "mesh/Status.h"

#include <cstdint>
#include <span>
#include <vector>

namespace oz::mesh {

// The faces of a mesh as loops of vertex ids, in two flat offset tables: a face owns a run of
// loops (the first is its outer boundary, the others its holes) and a loop owns a run of
// face-vertices. The face-vertices of one face are contiguous, outer loop first, so a
// face-vertex index (the index into vertexIds()) addresses per-face-vertex data directly.
class FaceLoops {
public:
    int32_t faceCount() const { return static_cast<int32_t>(faceLoopStart_.size()) - 1; }
    int32_t loopCount() const { return static_cast<int32_t>(loopStart_.size()) - 1; }
    int32_t faceVertexCount() const { return static_cast<int32_t>(vertexIds_.size()); }

    // Loops of `face`: outer boundary plus holes (0 for an invalid face).
    int32_t faceLoopCount(int32_t face) const;
    int32_t holeCount(int32_t face) const { return faceLoopCount(face) > 0 ? faceLoopCount(face) - 1 : 0; }
    // Vertex ids of loop `loop` of `face` (0 is the outer loop); empty for invalid ids.
    std::span<const int32_t> loop(int32_t face, int32_t loop) const;
    // All vertex ids of `face`, outer loop then holes; empty for an invalid face.
    std::span<const int32_t> faceVertices(int32_t face) const;
    // Index of the first face-vertex of `face` (faceVertexCount() for faceCount()).
    int32_t faceVertexStart(int32_t face) const { return loopStart_[faceLoopStart_[face]]; }
    // Global loop id of `face`'s first loop; global loop l spans loopStart()[l] .. loopStart()[l + 1].
    int32_t firstLoop(int32_t face) const { return faceLoopStart_[face]; }

    std::span<const int32_t> vertexIds() const { return vertexIds_; }
    std::span<const int32_t> faceLoopStart() const { return faceLoopStart_; }
    std::span<const int32_t> loopStart() const { return loopStart_; }

    // Largest vertex id used plus one (0 when there are no faces).
    int32_t vertexIdBound() const;

    // Appends a face whose loops have the given vertex counts, taking that many ids from
    // `vertexIds`. The caller has validated counts and ids.
    void appendFace(std::span<const int32_t> loopCounts, std::span<const int32_t> vertexIds);
    // Adds hole loops at the end of `face`'s loops; returns the face-vertex index at which the
    // new ids were inserted, so per-face-vertex data can be shifted the same way.
    int32_t appendLoops(int32_t face, std::span<const int32_t> loopCounts,
                        std::span<const int32_t> vertexIds);

    friend bool operator==(const FaceLoops&, const FaceLoops&) = default;

private:
    std::vector<int32_t> faceLoopStart_{0};
    std::vector<int32_t> loopStart_{0};
    std::vector<int32_t> vertexIds_;
};

// Checks loop counts (each at least 3, summing to the id count) and ids (in [0, vertexCount),
// no vertex repeated back to back within a loop).
Status validateLoops(std::span<const int32_t> loopCounts, std::span<const int32_t> vertexIds,
                     int32_t vertexCount);

} // namespace oz::mesh
