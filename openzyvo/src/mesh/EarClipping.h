#pragma once

#include "mesh/PlanarFace.h"
#include "mesh/Triangle.h"

#include <cstdint>
#include <vector>

namespace oz::mesh {

// Cuts a well-formed planar face (see loopsWellFormed) into triangles by ear clipping. Holes are
// first joined to the outer loop by bridges to a visible point, which makes one weakly simple
// loop; an ear is then a strictly convex corner whose triangle holds no other point of the loop,
// not even on its edges. A point on a straight run is therefore never cut off on its own: it
// keeps a corner of a real triangle, and no triangle of zero area is ever made. Only corners that
// are not strictly convex are looked at as blockers: of the points inside a would-be ear, the one
// furthest from its diagonal is always such a corner. Keep one per thread and reuse it: it keeps
// its buffers.
class EarClipper {
public:
    // Appends the face's triangles to `out` as point indices of the face, counter-clockwise in
    // its plane. Returns false, appending nothing, when no bridge or no ear can be found, which
    // only happens when the face was not well-formed after all.
    bool triangulate(const PlanarFace& face, std::vector<Triangle>& out);

private:
    void reserveNodes(size_t count);
    int32_t addNode(Point2 p, int32_t index, int32_t after);
    void linkLoop(const PlanarFace& face, int32_t loop, bool reverse);
    bool joinHole(int32_t outer, int32_t hole);
    int32_t findBridge(int32_t outer, int32_t hole);
    bool bridgeIsClear(int32_t outer, int32_t hole, int32_t to) const;
    bool opensTowards(int32_t node, Point2 target) const;
    void classify(int32_t node);
    bool isEar(int32_t ear) const;
    bool gridHoldsBlocker(Point2 a, Point2 b, Point2 c) const;
    void maskReflexCorners();
    void buildGrid(int32_t start);
    void enterGrid(int32_t node);
    void leaveGrid(int32_t node);
    size_t cellOf(Point2 p) const;
    void unlink(int32_t node);

    // The joined loop's nodes: the first nodes_ entries of these, which only ever grow, so that
    // a face reuses the room earlier faces made.
    int32_t nodes_ = 0;
    std::vector<Point2> point_;
    std::vector<int32_t> index_;
    std::vector<int32_t> prev_;
    std::vector<int32_t> next_;
    std::vector<int32_t> turn_; // per node, the sign of its corner's turn while clipping

    // The corners that are not strictly convex, so that an ear test looks only at them; a
    // clipped ear changes the corners of its two neighbours alone. Small faces keep them as one
    // bit per node.
    uint64_t reflexMask_ = 0;
    std::vector<std::pair<double, int32_t>> holes_;            // leftmost x and node of each hole
    std::vector<std::pair<double, int32_t>> bridgeCandidates_; // squared distance and node

    // Large faces find the reflex corners near an ear through a uniform grid of cells, each a list
    // of the reflex corners in it.
    bool gridded_ = false;
    Point2 gridOrigin_;
    double cellScale_ = 1.0;
    int32_t columns_ = 0;
    int32_t rows_ = 0;
    std::vector<int32_t> cellHead_;
    std::vector<int32_t> cellNext_;
    std::vector<int32_t> cellPrev_;
    std::vector<bool> inGrid_;
};

} // namespace oz::mesh
