#pragma once

#include "mesh/FaceLoops.h"
#include "mesh/Orientation2d.h"
#include "mesh/Vec3.h"

#include <cstdint>
#include <span>
#include <vector>

namespace oz::mesh {

// A face laid flat: its points dropped onto the coordinate plane its normal is closest to, with
// the axes ordered so that counter-clockwise in the plane is counter-clockwise about the normal.
// Dropping a coordinate, rather than rotating into the plane, keeps the coordinates exact, so
// points on a line stay exactly on a line. Points keep the face's order: outer loop, then holes.
// A point at the very position of the one before it in its loop is left out: such a zero-length
// edge bounds nothing, and outlines repeat a point where they meet themselves. Each corner's turn
// and each loop's area are worked out once here, for the loop checks and the cutter alike.
struct PlanarFace {
    std::vector<Point2> points;
    std::vector<int32_t> source;    // per point, its index among the face's vertices
    std::vector<int32_t> loopStart; // per loop its first point, plus the point count at the end
    std::vector<int8_t> turn;       // per point, the exact turn of its loop there (see orientation)
    std::vector<double> twiceArea;  // per loop, twice its signed area

    int32_t loopCount() const { return static_cast<int32_t>(loopStart.size()) - 1; }
    int32_t loopSize(int32_t loop) const { return loopStart[loop + 1] - loopStart[loop]; }
    std::span<const Point2> loop(int32_t loop) const {
        return std::span<const Point2>(points).subspan(loopStart[loop], loopSize(loop));
    }
};

// The coordinate plane a face with `normal` is laid flat on: the dropped axis (0 to 2) times two,
// plus one when the normal points down that axis.
int32_t projectionPlane(Vector3 normal);

// Lays `face` flat along `normal` (non-zero) into `out`. Returns false, leaving `out` unspecified,
// when a point is not finite, has a coordinate too small or too large for exact predicates, or lies
// off the face's plane by more than a rounding-sized margin, or a loop keeps fewer than three points.
bool flattenFace(const FaceLoops& faces, std::span<const Point3> points, int32_t face, Vector3 normal,
                 PlanarFace& out);

// Twice the signed area of a loop (positive when counter-clockwise).
double twiceSignedArea(std::span<const Point2> loop);

// Fills in `turn` and `twiceArea` of a face whose points and loops are set.
void describeLoops(PlanarFace& face);

} // namespace oz::mesh
