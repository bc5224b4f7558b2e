#include "mesh/PlanarFace.h"

#include <algorithm>
#include <cmath>

namespace oz::mesh {

namespace {

// How far off its plane a point may lie, relative to the face's extent, and still count as on it.
constexpr double kPlaneTolerance = 1e-9;
// The exact predicates stay exact while no product of coordinate differences underflows or
// overflows; coordinates outside these magnitudes (other than zero) go to the sweep.
constexpr double kSmallestMagnitude = 1e-100;
constexpr double kLargestMagnitude = 1e100;

bool exactlyUsable(double c) {
    const double magnitude = std::abs(c);
    return c == 0.0 || (magnitude >= kSmallestMagnitude && magnitude <= kLargestMagnitude);
}

} // namespace

int32_t projectionPlane(Vector3 normal) {
    const double n[3] = {normal.x, normal.y, normal.z};
    int32_t axis = 0;
    for (int32_t k = 1; k < 3; ++k) {
        if (std::abs(n[k]) > std::abs(n[axis]))
            axis = k;
    }
    return 2 * axis + (n[axis] < 0.0 ? 1 : 0);
}

bool flattenFace(const FaceLoops& faces, std::span<const Point3> points, int32_t face, Vector3 normal,
                 PlanarFace& out) {
    const int32_t plane = projectionPlane(normal);
    const int32_t axis = plane / 2;
    // (u, v, axis) is a cyclic order of (x, y, z): right-handed, so swapping u and v mirrors the
    // plane for a normal pointing down the axis.
    constexpr double Point3::*kCoordinates[3] = {&Point3::x, &Point3::y, &Point3::z};
    double Point3::*u = kCoordinates[(axis + 1) % 3];
    double Point3::*v = kCoordinates[(axis + 2) % 3];
    if (plane % 2 == 1)
        std::swap(u, v);

    const auto ids = faces.faceVertices(face);
    // Sized once for every point and written by index: faces are laid flat by the thousand.
    out.points.resize(ids.size());
    out.source.resize(ids.size());
    out.loopStart.clear();
    const Point3 origin = points[ids[0]];
    double extent = 0.0;
    double offPlane = 0.0;
    bool usable = true;
    int32_t index = 0;
    int32_t count = 0;
    for (int32_t l = 0; l < faces.faceLoopCount(face); ++l) {
        const auto loop = faces.loop(face, l);
        const int32_t start = count;
        out.loopStart.push_back(start);
        Point3 last{};
        for (size_t i = 0; i < loop.size(); ++i, ++index) {
            const Point3 p = points[loop[i]];
            if (i > 0 && p == last)
                continue;
            last = p;
            usable &= isFinite(p) & exactlyUsable(p.*u) & exactlyUsable(p.*v);
            out.points[count] = {p.*u, p.*v};
            out.source[count++] = index;
            const Vector3 d = p - origin;
            extent = std::max({extent, std::abs(d.x), std::abs(d.y), std::abs(d.z)});
            offPlane = std::max(offPlane, std::abs(dot(d, normal)));
        }
        while (count > start + 1 && points[ids[out.source[count - 1]]] == points[ids[out.source[start]]])
            --count;
        if (count - start < 3)
            return false;
    }
    out.loopStart.push_back(count);
    out.points.resize(count);
    out.source.resize(count);
    if (!usable || !(offPlane <= kPlaneTolerance * extent))
        return false;
    describeLoops(out);
    return true;
}

double twiceSignedArea(std::span<const Point2> loop) {
    double area = 0.0;
    const Point2 origin = loop[0];
    for (size_t i = 1; i + 1 < loop.size(); ++i) {
        const Point2 a = loop[i];
        const Point2 b = loop[i + 1];
        area += (a.x - origin.x) * (b.y - origin.y) - (b.x - origin.x) * (a.y - origin.y);
    }
    return area;
}

void describeLoops(PlanarFace& face) {
    face.turn.resize(face.points.size());
    face.twiceArea.resize(static_cast<size_t>(face.loopCount()));
    for (int32_t l = 0; l < face.loopCount(); ++l) {
        const std::span<const Point2> loop = face.loop(l);
        const size_t n = loop.size();
        int8_t* turn = face.turn.data() + face.loopStart[l];
        // Fewer than three points bound nothing: no turn and no area, which no check accepts.
        if (n < 3) {
            std::fill_n(turn, n, int8_t{0});
            face.twiceArea[l] = 0.0;
            continue;
        }
        turn[0] = static_cast<int8_t>(orientation(loop[n - 1], loop[0], loop[1]));
        for (size_t i = 1; i + 1 < n; ++i)
            turn[i] = static_cast<int8_t>(orientation(loop[i - 1], loop[i], loop[i + 1]));
        turn[n - 1] = static_cast<int8_t>(orientation(loop[n - 2], loop[n - 1], loop[0]));
        face.twiceArea[l] = twiceSignedArea(loop);
    }
}

} // namespace oz::mesh
