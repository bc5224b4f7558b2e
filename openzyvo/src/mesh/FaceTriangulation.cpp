#include "mesh/FaceTriangulation.h"

#include "mesh/EarClipping.h"
#include "mesh/GluTessellator.h"
#include "mesh/LoopChecks.h"
#include "mesh/Normals.h"
#include "mesh/PlanarFace.h"
#include "mesh/ShapeMemo.h"
#include "mesh/SimilarCuts.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <tbb/blocked_range.h>
#include <tbb/enumerable_thread_specific.h>
#include <tbb/parallel_for.h>
#include <tuple>
#include <utility>

namespace oz::mesh {

namespace {

// How a face is laid into the output: triangles and convex quads are written straight from their
// loop once every face's count is known; the rest was cut into its worker's buffer beforehand.
enum class Emit : uint8_t { Triangle, QuadAlong02, QuadAlong13, Cut };

// Whether a quad is strictly convex, and then the diagonal to split it along: the shorter one.
// The walls of an extrusion are such quads, and they need no further checks. A quad is strictly
// convex exactly when each diagonal crosses the other inside both, which is two cross products
// against its area vector (half the cross product of the diagonals) and no branch: a test that
// first picked a plane to judge the corners in mispredicted that choice along a curved wall.
// Viewed along the area vector, a quad that is not planar is judged as its shadow. Diagonals that
// cross within a hair of a corner are rounding's call, so such a quad goes to the careful cutter.
constexpr double kCornerMargin = 1e-9;

std::optional<Emit> convexQuad(std::span<const int32_t> loop, std::span<const Point3> points) {
    const Point3 p0 = points[loop[0]];
    const Point3 p1 = points[loop[1]];
    const Vector3 d02 = points[loop[2]] - p0;
    const Vector3 d13 = points[loop[3]] - p1;
    const Vector3 normal = cross(d02, d13);
    const double squared = dot(normal, normal);
    // p0 + s d02 = p1 + t d13 where the diagonals cross, with s and t scaled by `squared`.
    const Vector3 r = p1 - p0;
    const double s = dot(cross(r, d13), normal);
    const double t = dot(cross(r, d02), normal);
    const double low = kCornerMargin * squared;
    const double high = squared - low;
    if (!((s > low) & (s < high) & (t > low) & (t < high)))
        return std::nullopt;
    return dot(d02, d02) <= dot(d13, d13) ? Emit::QuadAlong02 : Emit::QuadAlong13;
}

// Faces are cut in blocks of consecutive faces; the triangles of a block's cut faces stay
// together in its worker's buffer, in face order.
constexpr int32_t kBlockFaces = 256;

// Below this many face vertices a mesh is cut on the calling thread: waking other threads for a
// thousand quads costs more than it saves, while a word's solid (3.5k quads) already gains. Counting vertices
// rather than faces keeps a mesh of fewer but larger faces, whose cuts cost far more per face, on all cores.
constexpr int32_t kParallelFaceVertices = 8192;

// The GLU sweep of the calling thread. Making a tessellator costs more than cutting a small face,
// and few passes need one at all; a thread never runs two sweeps at once.
GluTessellator& threadTessellator() {
    thread_local GluTessellator tessellator;
    return tessellator;
}

// What one thread produces: its cutter and memo, reused across faces, and which pattern of the
// memo each face it cut takes. The patterns are written out as vertex ids only once every face's
// place in the output is known, so that a face cut or found in the memo is never copied twice.
// A face takes the cut of a face alike only from the faces before it in its block, and from
// other blocks and the library only cuts made afresh, which cutting it afresh would make as
// well: the cut a face gets never depends on which thread took which blocks, and a mesh is cut
// the same in every run.
struct Worker {
    EarClipper clipper;
    ShapeMemo memo;
    SimilarCuts similar;
    PlanarFace planar;
    std::vector<Triangle> local;
    std::vector<int32_t> cutPatterns; // the memo pattern of each face cut, in face order
    TriangulationCounts counts;
    ShapeLibrary* library = nullptr;

    void startBlock(int32_t block) {
        memo.startBlock(block);
        similar.startBlock();
    }
    // Cuts `face`, or finds its cut in the memo, returning how many triangles it takes.
    int32_t cut(const FaceLoops& faces, std::span<const Point3> points, int32_t face);
    // Cuts the face into `local` as point indices within the face, by ear clipping `planar` when
    // `wellFormed` or else by the sweep, and keeps the cut in the library.
    ShapeLibrary::Cut cutAfresh(const FaceLoops& faces, std::span<const Point3> points, int32_t face,
                                uint64_t hash, Vector3 normal, bool wellFormed);
};

ShapeLibrary::Cut Worker::cutAfresh(const FaceLoops& faces, std::span<const Point3> points, int32_t face,
                                    uint64_t hash, Vector3 normal, bool wellFormed) {
    ShapeLibrary::Cut how = ShapeLibrary::Cut::Planar;
    if (wellFormed && clipper.triangulate(planar, local)) {
        for (auto& [a, b, c] : local)
            std::tie(a, b, c) = std::tuple(planar.source[a], planar.source[b], planar.source[c]);
    } else {
        // Crossing loops come from repeated glyphs too (a bevel folding at the same corner of
        // every copy), so the sweep's pattern is kept for their copies like a planar cut.
        local.clear();
        threadTessellator().tessellate(faces, points, face, normal, local);
        how = ShapeLibrary::Cut::Tessellated;
    }
    if (library)
        library->keep(faces, points, face, hash, local, how);
    return how;
}

int32_t Worker::cut(const FaceLoops& faces, std::span<const Point3> points, int32_t face) {
    // A translated copy of a face cut before needs neither its normal nor any check.
    const uint64_t hash = shapeHash(faces, points, face);
    const auto found = memo.find(faces, points, face, hash);
    if (found && found->ownBlock) {
        cutPatterns.push_back(found->pattern.begin);
        ++counts.memo;
        return found->pattern.count;
    }
    // The face is laid flat and checked when first needed, and only once.
    Vector3 normal;
    std::optional<bool> flat;
    std::optional<bool> formed;
    auto laidFlat = [&] {
        if (!flat) {
            normal = faceNormal(faces, points, face);
            flat = normal != Vector3{} && flattenFace(faces, points, face, normal, planar);
        }
        return *flat;
    };
    auto wellFormed = [&] {
        if (!formed)
            formed = laidFlat() && loopsWellFormed(planar);
        return *formed;
    };
    local.clear();
    const auto earlier = similar.candidate(faces, face);
    // The loop checks cost the most and come last: most cuts that do not fit turn over at once.
    if (!earlier.empty() && laidFlat() && planar.points.size() == faces.faceVertices(face).size() &&
        cutFits(planar, earlier) && wellFormed()) {
        local.assign(earlier.begin(), earlier.end());
        ++counts.similar;
        ++counts.planar;
        cutPatterns.push_back(memo.store(face, hash, local, ShapeMemo::Origin::Alike).begin);
        return static_cast<int32_t>(local.size());
    }
    if (found) {
        // A cut made afresh in an earlier block: the face's copies in this one take it too.
        memo.take(*found);
        if (found->origin == ShapeMemo::Origin::Clipped)
            similar.keep(faces, face, memo.triangles(found->pattern));
        cutPatterns.push_back(found->pattern.begin);
        ++counts.memo;
        return found->pattern.count;
    }
    ShapeLibrary::Cut how = ShapeLibrary::Cut::Planar;
    if (library && library->find(faces, points, face, hash, local, how)) {
        ++counts.reused;
    } else {
        // Checking the loops lays the face flat first, which finds its normal.
        const bool cuttable = wellFormed();
        how = cutAfresh(faces, points, face, hash, normal, cuttable);
    }
    const bool planarCut = how == ShapeLibrary::Cut::Planar;
    ++(planarCut ? counts.planar : counts.tessellated);
    // Only ear clipping leaves the loops as the edges of its cut, which a face alike relies on.
    if (planarCut)
        similar.keep(faces, face, local);
    cutPatterns.push_back(
        memo.store(face, hash, local, planarCut ? ShapeMemo::Origin::Clipped : ShapeMemo::Origin::Swept)
            .begin);
    return static_cast<int32_t>(local.size());
}

// Which worker cut the faces of one block, where its patterns for them begin, and how many
// triangles the block's faces take (then where the first of them goes).
struct BlockSource {
    const Worker* worker;
    size_t begin;
    int64_t triangles;
};

// Works out how each face of `blocks` is emitted and how many triangles it takes (at
// starts[face + 1]), cutting the faces that need more than a loop to do so.
void planBlocks(const FaceLoops& faces, std::span<const Point3> points, tbb::blocked_range<int32_t> blocks,
                Worker& w, std::span<Emit> emit, std::span<int32_t> starts, std::span<BlockSource> sources) {
    const int32_t faceCount = faces.faceCount();
    for (int32_t block = blocks.begin(); block != blocks.end(); ++block) {
        BlockSource& source = sources[static_cast<size_t>(block)];
        source = {&w, w.cutPatterns.size(), 0};
        w.startBlock(block);
        const int32_t end = std::min(faceCount, (block + 1) * kBlockFaces);
        for (int32_t f = block * kBlockFaces; f != end; ++f) {
            const auto face = static_cast<size_t>(f);
            const bool single = faces.faceLoopCount(f) == 1;
            const auto outer = faces.faceVertices(f);
            // Walls are convex quads, by far the most faces of a solid: they are split before a
            // shape hash is paid for. Only cut faces enter the memo, so no quad split here could
            // have hit it.
            std::optional<Emit> simple;
            if (single && outer.size() == 3)
                simple = Emit::Triangle;
            else if (single && outer.size() == 4)
                simple = convexQuad(outer, points);
            if (simple) {
                emit[face] = *simple;
                starts[face + 1] = *simple == Emit::Triangle ? 1 : 2;
                ++w.counts.simple;
            } else {
                emit[face] = Emit::Cut;
                starts[face + 1] = w.cut(faces, points, f);
            }
            source.triangles += starts[face + 1];
        }
    }
}

// Writes the triangles of `blocks` from each block's first place on, turning each face's triangle
// count (at starts[face + 1]) into where its triangles end: blocks lay out their own faces, so no
// pass over every face runs on one core.
void emitBlocks(const FaceLoops& faces, tbb::blocked_range<int32_t> blocks, std::span<const Emit> emit,
                std::span<int32_t> starts, std::span<const BlockSource> sources, Triangle* out) {
    const int32_t faceCount = faces.faceCount();
    for (int32_t block = blocks.begin(); block != blocks.end(); ++block) {
        const auto [worker, begin, first] = sources[static_cast<size_t>(block)];
        const int32_t* cutPattern = worker->cutPatterns.data() + begin;
        auto at = static_cast<int32_t>(first);
        const int32_t end = std::min(faceCount, (block + 1) * kBlockFaces);
        for (int32_t f = block * kBlockFaces; f != end; ++f) {
            const auto face = static_cast<size_t>(f);
            const int32_t count = starts[face + 1];
            Triangle* to = out + at;
            // Triangles and quads have one loop: their face's vertices.
            const auto loop = faces.faceVertices(f);
            switch (emit[face]) {
            case Emit::Triangle:
                to[0] = {loop[0], loop[1], loop[2]};
                break;
            case Emit::QuadAlong02:
                to[0] = {loop[0], loop[1], loop[2]};
                to[1] = {loop[0], loop[2], loop[3]};
                break;
            case Emit::QuadAlong13:
                to[0] = {loop[1], loop[2], loop[3]};
                to[1] = {loop[1], loop[3], loop[0]};
                break;
            case Emit::Cut:
                writePattern(loop, worker->memo.triangles({*cutPattern++, count}), to);
                break;
            }
            at += count;
            starts[face + 1] = at;
        }
    }
}

// Runs `body` over all blocks, on all cores for a large mesh.
template <class Body> void forBlocks(const FaceLoops& faces, int32_t blocks, const Body& body) {
    if (faces.faceVertexCount() < kParallelFaceVertices)
        body(tbb::blocked_range<int32_t>(0, blocks, 1));
    else
        tbb::parallel_for(tbb::blocked_range<int32_t>(0, blocks, 1), body);
}

} // namespace

Triangulation triangulateFaces(const FaceLoops& faces, std::span<const Point3> points,
                               ShapeLibrary* library) {
    const int32_t faceCount = faces.faceCount();
    const int32_t blocks = (faceCount + kBlockFaces - 1) / kBlockFaces;
    Triangulation result;
    // Each face's triangle count lands at its own entry, then becomes where its triangles end.
    result.faceTriangleStart.resize(static_cast<size_t>(faceCount) + 1);
    result.faceTriangleStart[0] = 0;
    std::vector<Emit, UninitialisedAllocator<Emit>> emit(static_cast<size_t>(faceCount));
    std::vector<BlockSource> sources(static_cast<size_t>(blocks));
    tbb::enumerable_thread_specific<Worker> workers;
    forBlocks(faces, blocks, [&](const tbb::blocked_range<int32_t>& range) {
        Worker& w = workers.local();
        w.library = library;
        planBlocks(faces, points, range, w, emit, result.faceTriangleStart, sources);
    });
    for (const Worker& w : workers)
        result.counts += w.counts;
    int64_t total = 0;
    for (BlockSource& source : sources)
        total += std::exchange(source.triangles, total);
    result.triangles.resize(static_cast<size_t>(total));
    forBlocks(faces, blocks, [&](const tbb::blocked_range<int32_t>& range) {
        emitBlocks(faces, range, emit, result.faceTriangleStart, sources, result.triangles.data());
    });
    return result;
}

double triangleArea(std::span<const Triangle> triangles, std::span<const Point3> points) {
    double area = 0.0;
    for (const auto& [a, b, c] : triangles)
        area += 0.5 * length(cross(points[b] - points[a], points[c] - points[a]));
    return area;
}

} // namespace oz::mesh
