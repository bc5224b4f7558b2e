#include "mesh/FaceTriangulation.h"

#include "mesh/EarClipping.h"
#include "mesh/GluTessellator.h"
#include "mesh/LoopChecks.h"
#include "mesh/Normals.h"
#include "mesh/PlanarFace.h"
#include "mesh/ShapeMemo.h"

#include <algorithm>
#include <numeric>
#include <tbb/blocked_range.h>
#include <tbb/enumerable_thread_specific.h>
#include <tbb/parallel_for.h>
#include <tbb/task_arena.h>
#include <tuple>

namespace oz::mesh {

namespace {

// A strictly convex quad, split along its shorter diagonal: the walls of an extrusion are such
// quads, and they need no further checks. A quad's area vector is half the cross product of its
// diagonals, so its normal costs no pass over a loop and no square root.
bool triangulateQuad(std::span<const int32_t> loop, std::span<const Point3> points,
                     std::vector<Triangle>& out) {
    const Point3 p[4] = {points[loop[0]], points[loop[1]], points[loop[2]], points[loop[3]]};
    const Vector3 d02 = p[2] - p[0];
    const Vector3 d13 = p[3] - p[1];
    const Vector3 normal = cross(d02, d13);
    for (size_t i = 0; i < 4; ++i) {
        const Point3 a = p[i];
        const Point3 b = p[(i + 1) % 4];
        const Point3 c = p[(i + 2) % 4];
        if (!(dot(cross(b - a, c - b), normal) > 0.0))
            return false;
    }
    if (dot(d02, d02) <= dot(d13, d13)) {
        out.push_back({loop[0], loop[1], loop[2]});
        out.push_back({loop[0], loop[2], loop[3]});
    } else {
        out.push_back({loop[1], loop[2], loop[3]});
        out.push_back({loop[1], loop[3], loop[0]});
    }
    return true;
}

// Faces are cut in blocks of consecutive faces, and a block's triangles stay together in its
// worker's output: laying them out in face order then takes one copy per block, not per face.
constexpr int32_t kBlockFaces = 256;

struct BlockRun {
    int32_t firstFace;
    int32_t begin; // in the worker's triangles
    int32_t count;
};

// What one thread produces: its cutters and memo, reused across faces, and the triangles of the
// blocks it handled, to be gathered into face order afterwards.
struct Worker {
    GluTessellator tessellator;
    EarClipper clipper;
    ShapeMemo memo;
    PlanarFace planar;
    std::vector<Triangle> local;
    std::vector<Triangle> triangles;
    std::vector<BlockRun> runs;
    TriangulationCounts counts;
    ShapeLibrary* library = nullptr;

    void reserve(const FaceLoops& faces);
    void cut(const FaceLoops& faces, std::span<const Point3> points, int32_t face);
    // Cuts a planar face into `local`, as point indices within the face.
    bool cutPlanar(const FaceLoops& faces, std::span<const Point3> points, int32_t face, Vector3 normal);
};

// Room for twice a fair share of the pass's triangles (a cut face of n points and h holes has
// n + 2h - 2), taken once per worker: output then rarely moves while it grows, and on a machine
// with many threads no worker holds room for the whole pass.
void Worker::reserve(const FaceLoops& faces) {
    const auto threads = static_cast<size_t>(std::max(1, tbb::this_task_arena::max_concurrency()));
    auto share = [threads](size_t total) {
        return std::min(total, 2 * total / threads);
    };
    const size_t bound = static_cast<size_t>(faces.faceVertexCount()) +
                         2 * static_cast<size_t>(faces.loopCount() - faces.faceCount());
    triangles.reserve(share(bound));
    memo.reserve(share(bound));
    runs.reserve(share(static_cast<size_t>(faces.faceCount() / kBlockFaces + 1)));
}

bool Worker::cutPlanar(const FaceLoops& faces, std::span<const Point3> points, int32_t face, Vector3 normal) {
    if (!flattenFace(faces, points, face, normal, planar) || !loopsWellFormed(planar) ||
        !clipper.triangulate(planar, local))
        return false;
    for (auto& [a, b, c] : local)
        std::tie(a, b, c) = std::tuple(planar.source[a], planar.source[b], planar.source[c]);
    return true;
}

void Worker::cut(const FaceLoops& faces, std::span<const Point3> points, int32_t face) {
    const auto outer = faces.loop(face, 0);
    if (faces.faceLoopCount(face) == 1 && outer.size() == 3) {
        triangles.push_back({outer[0], outer[1], outer[2]});
        ++counts.simple;
        return;
    }
    // Walls are convex quads, by far the most faces of a solid: they are split before a shape
    // hash is paid for. Only planar cuts enter the memo, so no quad split here could have hit it.
    if (faces.faceLoopCount(face) == 1 && outer.size() == 4 && triangulateQuad(outer, points, triangles)) {
        ++counts.simple;
        return;
    }
    // A translated copy of a face cut before needs neither its normal nor any check.
    const uint64_t hash = shapeHash(faces, points, face);
    if (const auto pattern = memo.find(faces, points, face, hash); !pattern.empty()) {
        appendPattern(faces.faceVertices(face), pattern, triangles);
        ++counts.memo;
        return;
    }
    local.clear();
    ShapeLibrary::Cut how = ShapeLibrary::Cut::Planar;
    if (library && library->find(faces, points, face, hash, local, how)) {
        ++counts.reused;
    } else {
        const Vector3 normal = faceNormal(faces, points, face);
        if (normal == Vector3{} || !cutPlanar(faces, points, face, normal)) {
            // Crossing loops come from repeated glyphs too (a bevel folding at the same corner of
            // every copy), so the sweep's pattern is kept for their copies like a planar cut.
            local.clear();
            tessellator.tessellate(faces, points, face, normal, local);
            how = ShapeLibrary::Cut::Tessellated;
        }
        if (library)
            library->keep(faces, points, face, hash, local, how);
    }
    ++(how == ShapeLibrary::Cut::Planar ? counts.planar : counts.tessellated);
    appendPattern(faces.faceVertices(face), local, triangles);
    memo.store(face, hash, local);
}

} // namespace

Triangulation triangulateFaces(const FaceLoops& faces, std::span<const Point3> points,
                               ShapeLibrary* library) {
    const int32_t faceCount = faces.faceCount();
    Triangulation result;
    // Each face's triangle count lands at its own entry, then the counts become starts.
    result.faceTriangleStart.assign(static_cast<size_t>(faceCount) + 1, 0);
    tbb::enumerable_thread_specific<Worker> workers;
    const int32_t blocks = (faceCount + kBlockFaces - 1) / kBlockFaces;
    tbb::parallel_for(
        tbb::blocked_range<int32_t>(0, blocks, 1), [&](const tbb::blocked_range<int32_t>& range) {
            bool existed = false;
            Worker& w = workers.local(existed);
            if (!existed) {
                w.reserve(faces);
                w.library = library;
            }
            for (int32_t block = range.begin(); block != range.end(); ++block) {
                const int32_t first = block * kBlockFaces;
                const int32_t end = std::min(faceCount, first + kBlockFaces);
                const auto begin = static_cast<int32_t>(w.triangles.size());
                for (int32_t f = first; f != end; ++f) {
                    const size_t before = w.triangles.size();
                    w.cut(faces, points, f);
                    result.faceTriangleStart[static_cast<size_t>(f) + 1] =
                        static_cast<int32_t>(w.triangles.size() - before);
                }
                w.runs.push_back({first, begin, static_cast<int32_t>(w.triangles.size()) - begin});
            }
        });

    std::vector<std::pair<const Worker*, BlockRun>> runs;
    runs.reserve(static_cast<size_t>(blocks));
    for (const Worker& w : workers) {
        result.counts += w.counts;
        for (const BlockRun& run : w.runs)
            runs.emplace_back(&w, run);
    }
    std::partial_sum(result.faceTriangleStart.begin(), result.faceTriangleStart.end(),
                     result.faceTriangleStart.begin());
    result.triangles.resize(static_cast<size_t>(result.faceTriangleStart.back()));
    tbb::parallel_for(size_t{0}, runs.size(), [&](size_t i) {
        const auto& [w, run] = runs[i];
        std::copy_n(w->triangles.begin() + run.begin, run.count,
                    result.triangles.begin() + result.faceTriangleStart[static_cast<size_t>(run.firstFace)]);
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
