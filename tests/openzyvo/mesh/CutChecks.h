#pragma once

#include "mesh/FaceLoops.h"
#include "mesh/Orientation2d.h"
#include "mesh/PlanarFace.h"
#include "mesh/Triangle.h"
#include "mesh/Vec3.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <tuple>
#include <utility>

namespace oz::mesh::test {

// What is wrong with `triangles` as the cut of `face` (whose unit normal is `normal`), or an empty
// string when they cut it exactly: every triangle uses the face's own vertices and turns
// counter-clockwise about the normal with an area above zero (decided exactly), every loop edge
// borders exactly one triangle and every other edge exactly two from opposite sides (so no
// triangle overlaps another or leaves the outline or enters a hole), and the triangles' areas add
// up to the face's area to 1e-9 relative. Vertices of the face at one position count as one, as
// after welding: a zero-length loop edge borders nothing.
inline std::string cutFault(const FaceLoops& faces, std::span<const Point3> points, int32_t face,
                            std::span<const Triangle> triangles, Vector3 normal) {
    const auto ids = faces.faceVertices(face);
    auto flat = [&, plane = projectionPlane(normal)](int32_t id) {
        const Point3 p = points[id];
        const double c[3] = {p.x, p.y, p.z};
        const int32_t axis = plane / 2;
        const int32_t u = (axis + (plane % 2 == 0 ? 1 : 2)) % 3;
        const int32_t v = (axis + (plane % 2 == 0 ? 2 : 1)) % 3;
        return Point2{c[u], c[v]};
    };
    std::map<std::pair<int32_t, int32_t>, int> directed;
    std::map<std::tuple<double, double, double>, int32_t> firstAt;
    std::map<int32_t, int32_t> weldedId;
    for (const int32_t id : ids)
        weldedId[id] = firstAt.try_emplace({points[id].x, points[id].y, points[id].z}, id).first->second;
    auto welded = [&](int32_t id) {
        return weldedId.at(id);
    };
    double area = 0.0;
    for (const Triangle& t : triangles) {
        for (const int32_t v : t) {
            if (std::find(ids.begin(), ids.end(), v) == ids.end())
                return "a triangle uses vertex " + std::to_string(v) + " of another face";
        }
        const int turn = orientation(flat(t[0]), flat(t[1]), flat(t[2]));
        if (turn == 0)
            return "a triangle has zero area";
        if (turn < 0)
            return "a triangle turns against the face normal";
        area += 0.5 * dot(cross(points[t[1]] - points[t[0]], points[t[2]] - points[t[0]]), normal);
        for (int k = 0; k < 3; ++k)
            ++directed[{welded(t[k]), welded(t[(k + 1) % 3])}];
    }
    double faceArea = 0.0;
    for (int32_t l = 0; l < faces.faceLoopCount(face); ++l) {
        const auto loop = faces.loop(face, l);
        Vector3 twice{};
        for (size_t i = 0; i < loop.size(); ++i)
            twice += cross(points[loop[i]] - points[loop[0]],
                           points[loop[(i + 1) % loop.size()]] - points[loop[0]]);
        const double loopArea = 0.5 * std::abs(dot(twice, normal));
        faceArea += l == 0 ? loopArea : -loopArea;
        for (size_t i = 0; i < loop.size(); ++i) {
            const int32_t a = welded(loop[i]);
            const int32_t b = welded(loop[(i + 1) % loop.size()]);
            const int uses = directed[{a, b}] + directed[{b, a}];
            if (uses != (a == b ? 0 : 1))
                return "loop edge " + std::to_string(a) + "-" + std::to_string(b) + " borders " +
                       std::to_string(uses) + " triangles";
            directed.erase({a, b});
            directed.erase({b, a});
        }
    }
    for (const auto& [edge, uses] : directed) {
        if (uses == 0)
            continue;
        const auto back = directed.find({edge.second, edge.first});
        if (uses != 1 || back == directed.end() || back->second != 1)
            return "inner edge " + std::to_string(edge.first) + "-" + std::to_string(edge.second) +
                   " does not border exactly two triangles from opposite sides";
    }
    if (!(std::abs(area - faceArea) <= 1e-9 * std::abs(faceArea)))
        return "the triangles cover " + std::to_string(area) + " of an area of " + std::to_string(faceArea);
    return {};
}

} // namespace oz::mesh::test
