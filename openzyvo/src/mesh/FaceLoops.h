#pragma once

#include "mesh/Status.h"
#include "mesh/UninitialisedAllocator.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>
#include <utility>
#include <vector>

namespace oz::mesh {

// Reserves room for `size` elements, at least doubling the capacity when it grows, so that
// repeated appends stay amortised constant time (a bare reserve would reallocate every time).
template <class Values> void reserveGrowing(Values& values, size_t size) {
    if (size > values.capacity())
        values.reserve(std::max(size, 2 * values.capacity()));
}

// The capacity a column of `size` face-vertices or loops of a mesh created whole is given: a
// sixteenth more, for the blocks of faces that get holes later.
inline size_t withRoomForHoles(size_t size) {
    return size + size / 16;
}

// How one edit rearranged the face-vertex pool of a FaceLoops, so that per-face-vertex columns
// kept beside it (normals, uv ids) can follow: the column keeps its values or starts empty, then
// gets the listed runs of its old values appended in order, then `added` fill values.
struct PoolEdit {
    bool keepOld = true;
    std::vector<std::pair<int32_t, int32_t>> copies; // (first position, count) in the old column
    int32_t added = 0;

    template <class Column> void applyTo(Column& column, const typename Column::value_type& fill) const {
        Column rebuilt;
        Column& out = keepOld ? column : rebuilt;
        size_t size = keepOld ? column.size() : 0;
        for (const auto& [from, count] : copies)
            size += static_cast<size_t>(count);
        reserveGrowing(out, size + static_cast<size_t>(added));
        for (const auto& [from, count] : copies) {
            for (int32_t i = 0; i < count; ++i)
                out.push_back(column[static_cast<size_t>(from + i)]);
        }
        out.insert(out.end(), static_cast<size_t>(added), fill);
        if (!keepOld)
            column = std::move(rebuilt);
    }
};

// The faces of a mesh as loops of vertex ids. Each face owns one contiguous block of a shared
// face-vertex pool, outer loop first, then its holes. Blocks need not follow face order: adding
// holes to an earlier face moves only that face's block to the end of the pool instead of
// shifting every later face, so re-inserting the holes of many faces stays linear. The pool is
// compacted back into face order once more than half of it is left over from such moves.
//
// A face-vertex is addressed either by its pool position (poolStart(face) + i; columns kept
// beside the pool use these) or by its face-order index, the position it would have if the
// faces' blocks were laid end to end in face order (faceVertexOffsets(); the index the outside
// world sees).
class FaceLoops {
public:
    int32_t faceCount() const { return static_cast<int32_t>(faces_.size()); }
    int32_t loopCount() const { return loopTotal_; }
    int32_t faceVertexCount() const { return vertexTotal_; }

    // Loops of `face`: outer boundary plus holes (0 for an invalid face).
    int32_t faceLoopCount(int32_t face) const { return valid(face) ? faces_[face].loopCount : 0; }
    int32_t holeCount(int32_t face) const { return valid(face) ? faces_[face].loopCount - 1 : 0; }
    // Vertex ids of loop `loop` of `face` (0 is the outer loop); empty for invalid ids.
    std::span<const int32_t> loop(int32_t face, int32_t loop) const;
    // All vertex ids of `face`, outer loop then holes; empty for an invalid face.
    std::span<const int32_t> faceVertices(int32_t face) const;

    // Pool position of the face's first face-vertex, and the pool's size (live and leftover).
    int32_t poolStart(int32_t face) const { return faces_[face].vertexStart; }
    int32_t poolSize() const { return static_cast<int32_t>(vertexIds_.size()); }
    // Face-order index of each face's first face-vertex, plus faceVertexCount() at the end.
    std::vector<int32_t> faceVertexOffsets() const;

    // Largest vertex id used plus one (0 when there are no faces).
    int32_t vertexIdBound() const;

    // Faces of one loop each, in the order given: the first faceCounts[0] ids are the first face.
    // Counts and ids are checked as validateLoops checks them, in the same pass that lays them out;
    // on failure `out` is left unspecified.
    static Status singleLoopFaces(std::span<const int32_t> faceCounts, std::span<const int32_t> vertexIds,
                                  int32_t vertexCount, FaceLoops& out);

    // Makes room for that many more faces, loops and face-vertices, so that building a mesh face
    // by face does not move the pool at every doubling.
    void reserve(int32_t faces, int32_t loops, int32_t faceVertices);
    // Appends a face whose loops have the given vertex counts, taking that many ids from
    // `vertexIds`. The caller has validated counts and ids. Columns follow with `added` values.
    PoolEdit appendFace(std::span<const int32_t> loopCounts, std::span<const int32_t> vertexIds);
    // Adds hole loops after `face`'s last loop.
    PoolEdit appendLoops(int32_t face, std::span<const int32_t> loopCounts,
                         std::span<const int32_t> vertexIds);
    // True when leftovers of moved blocks outweigh the live face-vertices.
    bool wasteful() const;
    // The pool runs (first position, count) that moved blocks left behind.
    std::span<const std::pair<int32_t, int32_t>> leftovers() const { return leftovers_; }
    // Lays the blocks out again in face order without leftovers.
    PoolEdit compact();

private:
    struct Face {
        int32_t vertexStart; // pool position of the block
        int32_t vertexCount;
        int32_t loopStart; // position of the face's loop offsets in loopOffsets_
        int32_t loopCount;
    };

    bool valid(int32_t face) const { return face >= 0 && face < faceCount(); }
    void appendLoopOffsets(std::span<const int32_t> loopCounts, int32_t firstOffset);

    // A mesh created whole lays out every face and face-vertex on all cores: these start unfilled.
    std::vector<Face, UninitialisedAllocator<Face>> faces_;
    std::vector<int32_t> loopOffsets_; // per loop, its start within its face's block
    std::vector<int32_t, UninitialisedAllocator<int32_t>> vertexIds_; // the face-vertex pool
    std::vector<std::pair<int32_t, int32_t>> leftovers_;
    int32_t loopTotal_ = 0;
    int32_t vertexTotal_ = 0;
};

// Inline: the triangulation and the topology ask for every face's loops, and a call per face would
// cost about as much as splitting a quad.
inline std::span<const int32_t> FaceLoops::loop(int32_t face, int32_t loop) const {
    if (!valid(face) || loop < 0 || loop >= faces_[face].loopCount)
        return {};
    const Face& f = faces_[face];
    const int32_t begin = loopOffsets_[f.loopStart + loop];
    const int32_t end = loop + 1 < f.loopCount ? loopOffsets_[f.loopStart + loop + 1] : f.vertexCount;
    return std::span<const int32_t>(vertexIds_).subspan(f.vertexStart + begin, end - begin);
}

inline std::span<const int32_t> FaceLoops::faceVertices(int32_t face) const {
    if (!valid(face))
        return {};
    return std::span<const int32_t>(vertexIds_).subspan(faces_[face].vertexStart, faces_[face].vertexCount);
}

// A pool-ordered column (see FaceLoops) laid out in face order.
template <class Column>
std::vector<typename Column::value_type> toFaceOrder(const FaceLoops& faces, const Column& pooled) {
    std::vector<typename Column::value_type> ordered;
    ordered.reserve(static_cast<size_t>(faces.faceVertexCount()));
    for (int32_t f = 0; f < faces.faceCount(); ++f) {
        const auto begin = pooled.begin() + faces.poolStart(f);
        ordered.insert(ordered.end(), begin,
                       begin + static_cast<std::ptrdiff_t>(faces.faceVertices(f).size()));
    }
    return ordered;
}

// Writes a face-ordered column (faceVertexCount() values) into a pool-ordered one; `offsets` are
// the faces' faceVertexOffsets().
template <class T, class Column>
void fromFaceOrder(const FaceLoops& faces, std::span<const int32_t> offsets, std::span<const T> ordered,
                   Column& pooled) {
    // Every face's block is written below; the leftovers of moved blocks get a defined value too,
    // since a pass over the whole column may read them.
    pooled.resize(static_cast<size_t>(faces.poolSize()));
    for (const auto& [first, count] : faces.leftovers())
        std::fill_n(pooled.begin() + first, count, typename Column::value_type{});
    // Each face owns its block of the pool, so the faces are copied on all cores: a solid of text
    // sends every uv id and normal of a million face-vertices this way. Faces whose blocks follow
    // each other in the pool as in face order (all but the few that took holes, in a solid) are
    // copied as one run: a copy call per quad costs more than the copy.
    tbb::parallel_for(tbb::blocked_range<int32_t>(0, faces.faceCount(), 1024),
                      [&](const tbb::blocked_range<int32_t>& range) {
                          for (int32_t first = range.begin(); first != range.end();) {
                              const int32_t start = faces.poolStart(first);
                              int32_t end = first + 1;
                              while (end != range.end() &&
                                     faces.poolStart(end) - start == offsets[static_cast<size_t>(end)] -
                                                                         offsets[static_cast<size_t>(first)])
                                  ++end;
                              std::copy(ordered.begin() + offsets[static_cast<size_t>(first)],
                                        ordered.begin() + offsets[static_cast<size_t>(end)],
                                        pooled.begin() + start);
                              first = end;
                          }
                      });
}

// Checks loop counts (each at least 3, summing to the id count) and ids (in [0, vertexCount),
// no vertex repeated back to back within a loop).
Status validateLoops(std::span<const int32_t> loopCounts, std::span<const int32_t> vertexIds,
                     int32_t vertexCount);

} // namespace oz::mesh
