#pragma once

#include "mesh/BoundingBox.h"
#include "mesh/CacheSlot.h"
#include "mesh/Color.h"
#include "mesh/FaceLoops.h"
#include "mesh/FaceTriangulation.h"
#include "mesh/HoleList.h"
#include "mesh/PointArray.h"
#include "mesh/RayIntersection.h"
#include "mesh/Shared.h"
#include "mesh/Status.h"
#include "mesh/Topology.h"
#include "mesh/UninitialisedAllocator.h"
#include "mesh/UvSet.h"
#include "mesh/Vec3.h"
#include "mesh/VertexMerge.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace oz::mesh {

// A polygon mesh as a value: points, faces made of an outer loop and hole loops of vertex ids,
// per-face-vertex normals, optional vertex colours and named uv sets. Copies are independent
// and cheap: they share the storage of every column (points, faces, normals, colours, each uv
// set) until one of them changes it, and then that copy alone takes its own of that column.
// Derived tables (topology, triangulation, face boxes, face offsets) are immutable snapshots
// shared between copies and rebuilt only when the data they derive from changes. Moving points
// never rebuilds topology or the triangle lists.
//
// Every operation that can fail returns a Status and leaves the mesh untouched on failure.
// Queries given an invalid id return an empty span or std::nullopt. Const member functions may
// be called from several threads at once.
class Mesh {
public:
    static constexpr std::string_view kDefaultUvSet = "map1";

    Mesh();

    // --- Building -------------------------------------------------------------------------------

    // Replaces the whole mesh by `faceCounts.size()` faces without holes whose vertex ids follow
    // one another in `faceConnects`. Normals, colours and uvs start afresh.
    Status create(std::span<const Point3> points, std::span<const int32_t> faceCounts,
                  std::span<const int32_t> faceConnects);
    // The same, taking over `points` instead of copying them.
    Status create(PointArray&& points, std::span<const int32_t> faceCounts,
                  std::span<const int32_t> faceConnects);

    // Appends a face from `points`: the first loopCounts[0] points are its outer loop, the next
    // loopCounts[1] its first hole, and so on. With `mergeVertices`, a point within `tolerance`
    // of an existing vertex (or of an earlier point of this call) reuses that vertex instead of
    // adding one; a loop that merging leaves with fewer than 3 distinct vertices fails the call.
    Status addPolygon(std::span<const Point3> points, std::span<const int32_t> loopCounts, bool mergeVertices,
                      double tolerance, int32_t& faceIndex);

    // Appends hole loops (one per entry of `loopCounts`) to an existing face.
    Status addHoles(int32_t face, std::span<const Point3> points, std::span<const int32_t> loopCounts,
                    bool mergeVertices, double tolerance);

    // --- Counts and faces -----------------------------------------------------------------------

    int32_t vertexCount() const { return static_cast<int32_t>(points_.read().size()); }
    int32_t faceCount() const { return faces_.read().faceCount(); }
    int32_t faceVertexCount() const { return faces_.read().faceVertexCount(); }
    int32_t edgeCount() const { return topology()->edgeCount(); }

    const FaceLoops& faces() const { return faces_.read(); }
    std::span<const int32_t> outerLoop(int32_t face) const { return faces_.read().loop(face, 0); }
    // All loops of the face, outer first.
    std::span<const int32_t> faceVertices(int32_t face) const { return faces_.read().faceVertices(face); }
    HoleList holes() const;

    // --- Points ---------------------------------------------------------------------------------

    std::span<const Point3> points() const { return points_.read(); }
    std::optional<Point3> point(int32_t vertex) const;
    Status setPoints(std::span<const Point3> points);
    // Overwrites all `count` points (the count must stay) by handing the mesh's own storage to
    // `fill`: writers that convert from another layout then pass over the points only once.
    Status fillPoints(size_t count, const std::function<void(std::span<Point3>)>& fill);
    Status setPoint(int32_t vertex, Point3 p);
    BoundingBox boundingBox() const;

    // --- Normals --------------------------------------------------------------------------------

    // Unit Newell normal of the face's outer loop; the zero vector for a degenerate face.
    std::optional<Vector3> faceNormal(int32_t face) const;
    // Angle-weighted average of the normals of the faces around a vertex (see Normals.h).
    std::optional<Vector3> vertexNormal(int32_t vertex) const;
    std::vector<Vector3> vertexNormals() const;

    // One normal per face-vertex. Until setNormals is called each is its face's normal (edges are
    // hard); after it, faces added later start with their face normal again.
    bool hasExplicitNormals() const { return normalsSet_; }
    std::vector<Vector3> normals() const;
    Status faceVertexNormals(int32_t face, std::vector<Vector3>& out) const;
    Status setNormals(std::span<const Vector3> normals);

    // --- Vertex colours -------------------------------------------------------------------------

    bool hasVertexColors() const { return !colors_.read().colors.empty(); }
    // The colour set on the vertex, or nullopt when it has none.
    std::optional<Color> vertexColor(int32_t vertex) const;
    Status setVertexColors(std::span<const Color> colors, std::span<const int32_t> vertices);
    // The same, taking over `colors` instead of copying them when they colour every vertex in order.
    Status setVertexColors(std::vector<Color>&& colors, std::span<const int32_t> vertices);
    void clearVertexColors();

    // --- UVs ------------------------------------------------------------------------------------

    std::vector<std::string> uvSetNames() const;
    const UvSet* uvSet(std::string_view name) const;
    Status createUvSet(std::string_view name);
    // Replaces the coordinates of a set; face-vertices keep their uv ids where still in range.
    Status setUvs(std::string_view set, std::span<const float> u, std::span<const float> v);
    // The uv id of every face-vertex, in face order (UvSet::kNoUv for none).
    Status faceVertexUvIds(std::string_view set, std::vector<int32_t>& out) const;
    // The uv ids of one face's face-vertices, aligned with faceVertices(face); empty for an
    // unknown set or face, and before any ids were assigned to the set.
    std::span<const int32_t> faceUvIds(std::string_view set, int32_t face) const;
    // Sets the uv id of every face-vertex, in face order (UvSet::kNoUv for none).
    Status assignUvIds(std::string_view set, std::span<const int32_t> faceVertexUvIds);

    // --- Derived tables -------------------------------------------------------------------------

    // Bumped by every change of faces or vertex count.
    uint64_t topologyVersion() const { return topologyVersion_; }
    // Bumped by every change of points, including the topology changes that add points.
    uint64_t geometryVersion() const { return geometryVersion_; }

    std::shared_ptr<const Topology> topology() const;
    std::shared_ptr<const Triangulation> triangulation() const;
    // Starts cutting a large mesh's faces into triangles on another thread, unless they are cut
    // already, so that the cut overlaps what the caller does next: builders call it once the faces
    // are complete. triangulation() then returns what it would have built itself.
    void prepareTriangulation() const;
    // Face-order index of each face's first face-vertex, plus faceVertexCount() at the end. Uvs and
    // normals are checked against them and laid into the pool by them.
    std::shared_ptr<const std::vector<int32_t>> faceVertexOffsets() const;
    // Sum of the areas of the face's triangles.
    std::optional<double> triangulatedArea(int32_t face) const;
    Status closestIntersection(const Ray& ray, double maxDistance, double tolerance, RayHit& hit) const;

private:
    // Maps `points` to vertex ids, merging when asked, without changing the mesh; new points are
    // returned in `added` and take ids from vertexCount() on.
    Status resolveVertices(std::span<const Point3> points, std::span<const int32_t> loopCounts, bool merge,
                           double tolerance, std::vector<int32_t>& ids, std::vector<int32_t>& counts,
                           std::vector<Point3>& added);
    struct UvChannel {
        UvSet set;
        // Per face-vertex, in the faces' pool order; empty while no face-vertex has a uv, as on a
        // mesh just created, so that creating one and then assigning every id writes the column
        // once rather than filling it first.
        std::vector<int32_t, UninitialisedAllocator<int32_t>> pooledIds;
        // Every id in pooledIds is below this: new coordinates that keep it in range leave the
        // ids alone instead of checking a million of them.
        int32_t idBound = 0;
    };

    // `takeable`, when given, holds `colors` and may be moved from.
    Status assignVertexColors(std::span<const Color> colors, std::span<const int32_t> vertices,
                              std::vector<Color>* takeable);
    // The channel to change, detached from the copies that share it.
    UvChannel* findUvChannel(std::string_view name);
    const UvChannel* findUvChannel(std::string_view name) const;
    void appendPoints(std::span<const Point3> added);
    // Makes the per-face-vertex columns follow an edit of the face pool; face-vertices added to
    // `face` start with its face normal and without uvs.
    void followFacePool(const PoolEdit& edit, int32_t face);
    std::shared_ptr<const std::vector<BoundingBox>> faceBounds() const;
    void topologyChanged();
    void pointsMoved();

    // Building state, not part of the mesh's value: copies start without it.
    struct MergeIndexHolder {
        MergeIndexHolder() = default;
        MergeIndexHolder(const MergeIndexHolder&) {}
        MergeIndexHolder& operator=(const MergeIndexHolder&) {
            index.reset();
            return *this;
        }
        std::unique_ptr<VertexMergeIndex> index;
    };

    struct VertexColors {
        std::vector<Color> colors; // empty, or one per vertex
        std::vector<uint8_t> set;
    };

    Shared<PointArray> points_;
    Shared<FaceLoops> faces_;
    bool normalsSet_ = false;
    Shared<std::vector<Vector3>> normals_; // once set, per face-vertex in the faces' pool order
    Shared<VertexColors> colors_;
    std::vector<Shared<UvChannel>> uvSets_;
    uint64_t topologyVersion_ = 0;
    uint64_t geometryVersion_ = 0;

    MergeIndexHolder merge_;
    CacheSlot<Topology> topology_;
    CacheSlot<Triangulation> triangulation_;
    CacheSlot<std::vector<BoundingBox>> faceBounds_;
    CacheSlot<std::vector<int32_t>> faceOffsets_;
};

} // namespace oz::mesh
