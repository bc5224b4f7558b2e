#include "mesh/LoopChecks.h"

#include <algorithm>
#include <vector>

namespace oz::mesh {

namespace {

struct Edge {
    double minX;
    double maxX;
    double minY;
    double maxY;
    int32_t from; // point index; the edge runs to the next point of its loop
    int32_t to;
};

// Whether b -> c runs back over a -> b (the loop folds onto itself at b); a, b, c collinear.
bool doublesBack(Point2 a, Point2 b, Point2 c) {
    const bool sameX = a.x != b.x && c.x != b.x && (a.x < b.x) == (c.x < b.x);
    const bool sameY = a.y != b.y && c.y != b.y && (a.y < b.y) == (c.y < b.y);
    return sameX || sameY;
}

// Even-odd containment of a point that lies on no edge of `loop`.
bool inside(std::span<const Point2> loop, Point2 p) {
    bool in = false;
    for (size_t i = 0, j = loop.size() - 1; i < loop.size(); j = i++) {
        const Point2 a = loop[j];
        const Point2 b = loop[i];
        if ((a.y > p.y) == (b.y > p.y))
            continue;
        // The edge crosses the horizontal through p; it counts when it passes right of p.
        const int side = orientation(a, b, p);
        if (b.y > a.y ? side > 0 : side < 0)
            in = !in;
    }
    return in;
}

bool edgesAreSimple(const PlanarFace& face) {
    // Kept per thread: faces are checked by the thousand, and most are small.
    thread_local std::vector<Edge> edges;
    edges.clear();
    for (int32_t l = 0; l < face.loopCount(); ++l) {
        const int32_t begin = face.loopStart[l];
        const int32_t end = face.loopStart[l + 1];
        for (int32_t i = begin; i < end; ++i) {
            const int32_t next = i + 1 < end ? i + 1 : begin;
            const int32_t after = next + 1 < end ? next + 1 : begin;
            const Point2 a = face.points[i];
            const Point2 b = face.points[next];
            if (a == b)
                return false;
            if (face.turn[next] == 0 && doublesBack(a, b, face.points[after]))
                return false;
            edges.push_back(
                {std::min(a.x, b.x), std::max(a.x, b.x), std::min(a.y, b.y), std::max(a.y, b.y), i, next});
        }
    }
    std::sort(edges.begin(), edges.end(), [](const Edge& a, const Edge& b) { return a.minX < b.minX; });
    for (size_t i = 0; i < edges.size(); ++i) {
        const Edge& e = edges[i];
        for (size_t j = i + 1; j < edges.size() && edges[j].minX <= e.maxX; ++j) {
            const Edge& f = edges[j];
            // Neighbours meet at their shared point; doubling back was ruled out above.
            if (f.maxY < e.minY || f.minY > e.maxY || f.from == e.to || f.to == e.from)
                continue;
            if (segmentsTouch(face.points[e.from], face.points[e.to], face.points[f.from], face.points[f.to]))
                return false;
        }
    }
    return true;
}

} // namespace

bool loopsWellFormed(const PlanarFace& face) {
    if (face.loopCount() < 1 || !(face.twiceArea[0] > 0.0))
        return false;
    for (int32_t l = 1; l < face.loopCount(); ++l) {
        if (face.twiceArea[l] == 0.0)
            return false;
    }
    if (!edgesAreSimple(face))
        return false;
    // No loop touches another, so one point of a hole tells where the whole hole lies.
    for (int32_t h = 1; h < face.loopCount(); ++h) {
        const Point2 p = face.points[face.loopStart[h]];
        if (!inside(face.loop(0), p))
            return false;
        for (int32_t other = 1; other < face.loopCount(); ++other) {
            if (other != h && inside(face.loop(other), p))
                return false;
        }
    }
    return true;
}

} // namespace oz::mesh
