#include "extrude/SolidAssembly.h"

#include "extrude/FaceShapes.h"
#include "geometry/Orientation.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <tbb/blocked_range.h>
#include <tbb/parallel_for.h>

namespace type {

namespace {

// The side of a loop its material lies on, by the rule the mitres use: inside
// the outer loop, outside each hole.
std::vector<bool> materialOnLeft(const FaceOutline& outline) {
    std::vector<bool> left;
    std::size_t start = 0;
    for (std::size_t loop = 0; loop < outline.loopSizes.size(); ++loop) {
        const auto size = static_cast<std::size_t>(outline.loopSizes[loop]);
        const Contour points(outline.points.begin() + start, outline.points.begin() + start + size);
        const bool counterClockwise = isCounterClockwise(points);
        left.push_back(loop == 0 ? counterClockwise : !counterClockwise);
        start += size;
    }
    return left;
}

// The largest power of two `value` is a whole multiple of; infinity for zero.
double lowestBit(double value) {
    if (value == 0.0 || !std::isfinite(value))
        return std::numeric_limits<double>::infinity();
    int exponent = 0;
    const double mantissa = std::frexp(std::abs(value), &exponent);
    const auto bits = static_cast<uint64_t>(std::ldexp(mantissa, 53));
    return std::ldexp(1.0, exponent - 53 + std::countr_zero(bits));
}

// `x` rounded to an integer, ties to even, as std::nearbyint rounds in the default mode: without
// SSE4.1 that is a library call, and this runs for every coordinate of a solid. A double at or
// above 2^52 has no fraction, so adding 2^52 and taking it away again rounds the fraction away.
double roundToInteger(double x) {
    constexpr double kNoFraction = 4503599627370496.0; // 2^52
    if (!(std::abs(x) < kNoFraction))
        return x;
    const double shift = std::copysign(kNoFraction, x);
    return std::copysign((x + shift) - shift, x);
}

// The step a shape's ring points are rounded to before they are added to the
// anchors. A sum of two multiples of one power of two is exact while it fits
// in a double's 53 bits, so each copy then lies exactly where the first lies,
// moved. The step is the coarsest every anchor is a multiple of, but never
// coarser than 2^-44 of the shape's size; and never so fine that the
// sum would not fit (the copies are then merely close, not exact), nor below the
// smallest normal double, whose inverse is still a finite power of two.
double placementGrid(double anchorGrid, double anchorReach, double extent) {
    const double finest = std::ldexp(1.0, std::ilogb(std::max(anchorReach + extent, 1e-300)) - 52);
    const double coarsest = std::ldexp(1.0, std::ilogb(std::max(extent, 1e-280)) - 44);
    return std::max({std::min(anchorGrid, coarsest), finest, std::numeric_limits<double>::min()});
}

class TopologyBuilder {
public:
    explicit TopologyBuilder(SolidTopology& out)
        : m_out(out) {}

    int addFace(std::initializer_list<int> vertices) {
        m_out.faceCounts.push_back(static_cast<int>(vertices.size()));
        m_out.faceConnects.insert(m_out.faceConnects.end(), vertices);
        return static_cast<int>(m_out.faceCounts.size()) - 1;
    }

    // A cap over one ring: the first faces away from the normal, the last towards it.
    void addCap(const FaceOutline& outline, const std::vector<bool>& left, int ringStart, bool last) {
        const int face = static_cast<int>(m_out.faceCounts.size());
        m_out.capFaces.push_back(face);
        CapHoles holes{face, {}, {}};
        int start = ringStart;
        for (std::size_t loop = 0; loop < outline.loopSizes.size(); ++loop) {
            const int size = outline.loopSizes[loop];
            const bool forward = left[loop] == last;
            std::vector<int>& target = loop == 0 ? m_out.faceConnects : holes.vertices;
            for (int i = 0; i < size; ++i)
                target.push_back(start + (forward ? i : (size - i) % size));
            if (loop == 0)
                m_out.faceCounts.push_back(size);
            else
                holes.loopSizes.push_back(size);
            start += size;
        }
        if (!holes.loopSizes.empty())
            m_out.capHoles.push_back(std::move(holes));
    }

    void addJoins(const FaceOutline& outline, const std::vector<bool>& left, int ringStart, bool wall) {
        const int n = static_cast<int>(outline.points.size());
        std::vector<int>& group = wall ? m_out.extrusionFaces : m_out.bevelFaces;
        int start = ringStart;
        for (std::size_t loop = 0; loop < outline.loopSizes.size(); ++loop) {
            const int size = outline.loopSizes[loop];
            for (int i = 0; i < size; ++i) {
                const int a = start + i;
                const int b = start + (i + 1) % size;
                group.push_back(left[loop] ? addFace({a, b, b + n, a + n}) : addFace({a, a + n, b + n, b}));
            }
            start += size;
        }
    }

private:
    SolidTopology& m_out;
};

} // namespace

std::vector<Ring> solidRings(const Profile& profile) {
    if (profile.rings.empty())
        return {Ring{}};
    return profile.rings;
}

std::vector<Ring> faceRings(const SolidFace& face, const Profile& profile) {
    if (!face.extruded)
        return {Ring{}};
    return solidRings(profile);
}

namespace {

// The topology of one face alone, its vertices and faces numbered from 0.
SolidTopology faceTopology(const SolidFace& face, int solidRingCount, const Profile& profile,
                           bool deleteCaps) {
    SolidTopology out;
    TopologyBuilder builder(out);
    const FaceOutline& outline = face.outline;
    const int n = static_cast<int>(outline.points.size());
    const std::vector<bool> left = materialOnLeft(outline);
    if (!face.extruded) {
        builder.addCap(outline, left, 0, true);
        out.vertexCount = n;
        return out;
    }
    const int rings = solidRingCount;
    if (!deleteCaps)
        builder.addCap(outline, left, 0, false);
    for (int k = 0; k + 1 < rings; ++k)
        builder.addJoins(outline, left, k * n, profile.isWallJoin(k));
    if (!deleteCaps)
        builder.addCap(outline, left, (rings - 1) * n, true);
    out.vertexCount = rings * n;
    return out;
}

// Where one face's share of each of the solid's lists starts.
struct TopologyOffsets {
    int vertex = 0;
    std::size_t face = 0, connect = 0, cap = 0, bevel = 0, extrusion = 0, holes = 0;

    TopologyOffsets after(const SolidTopology& t) const {
        return {vertex + t.vertexCount,   face + t.faceCounts.size(),  connect + t.faceConnects.size(),
                cap + t.capFaces.size(),  bevel + t.bevelFaces.size(), extrusion + t.extrusionFaces.size(),
                holes + t.capHoles.size()};
    }
};

// Appends `from` + `offset` to out[at ..].
void shifted(const std::vector<int>& from, int offset, std::vector<int>& out, std::size_t at) {
    std::transform(from.begin(), from.end(), out.begin() + static_cast<std::ptrdiff_t>(at),
                   [offset](int value) { return value + offset; });
}

} // namespace

SolidTopology solidTopology(const std::vector<SolidFace>& faces, const Profile& profile, bool deleteCaps) {
    return solidTopology(faces, faceShapes(faces), profile, deleteCaps);
}

SolidTopology solidTopology(const std::vector<SolidFace>& faces, const FaceShapes& shapes,
                            const Profile& profile, bool deleteCaps) {
    // Copies of a shape share their topology but for the numbering: each shape's is built once,
    // then every face's is placed at its offsets on all cores.
    const int solidRingCount = static_cast<int>(solidRings(profile).size());
    std::vector<SolidTopology> ofShape(shapes.firstFace.size());
    tbb::parallel_for(std::size_t{0}, ofShape.size(), [&](std::size_t shape) {
        ofShape[shape] = faceTopology(faces[static_cast<std::size_t>(shapes.firstFace[shape])],
                                      solidRingCount, profile, deleteCaps);
    });
    const auto shapeOf = [&](std::size_t face) -> const SolidTopology& {
        return ofShape[static_cast<std::size_t>(shapes.shapeOf[face])];
    };
    std::vector<TopologyOffsets> at(faces.size() + 1);
    for (std::size_t f = 0; f < faces.size(); ++f)
        at[f + 1] = at[f].after(shapeOf(f));

    SolidTopology out;
    const TopologyOffsets& total = at.back();
    out.vertexCount = total.vertex;
    out.faceCounts.resize(total.face);
    out.faceConnects.resize(total.connect);
    out.capFaces.resize(total.cap);
    out.bevelFaces.resize(total.bevel);
    out.extrusionFaces.resize(total.extrusion);
    out.capHoles.resize(total.holes);
    out.faceVertexStarts.resize(faces.size() + 1);
    out.faceVertexStarts.back() = total.vertex;
    out.stackFaceStarts.resize(faces.size() + 1);
    out.stackConnectStarts.resize(faces.size() + 1);
    for (std::size_t f = 0; f <= faces.size(); ++f) {
        out.stackFaceStarts[f] = static_cast<int>(at[f].face);
        out.stackConnectStarts[f] = static_cast<int>(at[f].connect);
    }
    tbb::parallel_for(tbb::blocked_range<std::size_t>(0, faces.size(), 64),
                      [&](const tbb::blocked_range<std::size_t>& range) {
                          for (std::size_t f = range.begin(); f != range.end(); ++f) {
                              const SolidTopology& one = shapeOf(f);
                              const TopologyOffsets& o = at[f];
                              const auto firstFace = static_cast<int>(o.face);
                              out.faceVertexStarts[f] = o.vertex;
                              std::copy(one.faceCounts.begin(), one.faceCounts.end(),
                                        out.faceCounts.begin() + static_cast<std::ptrdiff_t>(o.face));
                              shifted(one.faceConnects, o.vertex, out.faceConnects, o.connect);
                              shifted(one.capFaces, firstFace, out.capFaces, o.cap);
                              shifted(one.bevelFaces, firstFace, out.bevelFaces, o.bevel);
                              shifted(one.extrusionFaces, firstFace, out.extrusionFaces, o.extrusion);
                              for (std::size_t h = 0; h < one.capHoles.size(); ++h) {
                                  const CapHoles& holes = one.capHoles[h];
                                  CapHoles& placed = out.capHoles[o.holes + h];
                                  placed.face = holes.face + firstFace;
                                  placed.loopSizes = holes.loopSizes;
                                  placed.vertices.resize(holes.vertices.size());
                                  shifted(holes.vertices, o.vertex, placed.vertices, 0);
                              }
                          }
                      });
    return out;
}

ShapePoints shapePoints(const std::vector<SolidFace>& faces, const FaceShapes& shapes, const Profile& profile,
                        const RingOffsetter& offsetter) {
    const std::size_t shapeCount = shapes.firstFace.size();
    ShapePoints out;
    std::vector<std::vector<Point3>>& local = out.local;
    local.resize(shapeCount);
    std::vector<double> grid(shapeCount, std::numeric_limits<double>::infinity());
    std::vector<double> reach(shapeCount, 0.0);
    for (std::size_t f = 0; f < faces.size(); ++f) {
        const auto shape = static_cast<std::size_t>(shapes.shapeOf[f]);
        for (const double c : {faces[f].anchor.x, faces[f].anchor.y, faces[f].anchor.z}) {
            grid[shape] = std::min(grid[shape], lowestBit(c));
            reach[shape] = std::max(reach[shape], std::abs(c));
        }
    }
    tbb::parallel_for(
        tbb::blocked_range<std::size_t>(0, shapeCount), [&](const tbb::blocked_range<std::size_t>& range) {
            std::vector<Point2> moved;
            for (std::size_t shape = range.begin(); shape != range.end(); ++shape) {
                const SolidFace& face = faces[static_cast<std::size_t>(shapes.firstFace[shape])];
                const std::vector<Ring> rings = faceRings(face, profile);
                std::vector<Point3>& points = local[shape];
                points.reserve(face.outline.points.size() * rings.size());
                double extent = 0.0;
                for (const Ring& ring : rings) {
                    offsetter(shape, ring.offset * face.insetScale, moved);
                    // A builder that could not keep the outline's points leaves the ring
                    // unmoved rather than writing into the next face's slice.
                    const std::vector<Point2>& ringPoints =
                        moved.size() == face.outline.points.size() ? moved : face.outline.points;
                    for (const Point2& p : ringPoints) {
                        points.push_back(face.frame.fromPlane(p, face.height + ring.depth +
                                                                     ring.wallShare * face.extraDepth));
                        const Point3& q = points.back();
                        extent =
                            std::max(std::max(std::max(extent, std::abs(q.x)), std::abs(q.y)), std::abs(q.z));
                    }
                }
                // The step is a power of two, so multiplying by its inverse divides exactly, at a
                // fraction of a division's cost.
                const double step = placementGrid(grid[shape], reach[shape], extent);
                const double inverse = 1.0 / step;
                for (Point3& p : points)
                    p = {roundToInteger(p.x * inverse) * step, roundToInteger(p.y * inverse) * step,
                         roundToInteger(p.z * inverse) * step};
            }
        });

    std::vector<std::size_t>& starts = out.starts;
    starts.assign(faces.size() + 1, 0);
    for (std::size_t f = 0; f < faces.size(); ++f)
        starts[f + 1] = starts[f] + local[static_cast<std::size_t>(shapes.shapeOf[f])].size();
    return out;
}

void placeShapePoints(const std::vector<SolidFace>& faces, const FaceShapes& shapes,
                      const ShapePoints& points, const PointSink& put) {
    tbb::parallel_for(
        tbb::blocked_range<std::size_t>(0, faces.size()), [&](const tbb::blocked_range<std::size_t>& range) {
            std::vector<Point3> placed;
            for (std::size_t f = range.begin(); f != range.end(); ++f) {
                const Point3& a = faces[f].anchor;
                placed.clear();
                for (const Point3& p : points.local[static_cast<std::size_t>(shapes.shapeOf[f])])
                    placed.push_back({a.x + p.x, a.y + p.y, a.z + p.z});
                put(points.starts[f], placed);
            }
        });
}

std::vector<int> solidCharacterEnds(const std::vector<SolidFace>& faces, const SolidTopology& topology,
                                    const std::vector<int>& inputCharacterEnds) {
    std::vector<int> ends(inputCharacterEnds.size(), 0);
    for (std::size_t f = 0; f < faces.size(); ++f) {
        const auto owner =
            std::upper_bound(inputCharacterEnds.begin(), inputCharacterEnds.end(), faces[f].firstInputVertex);
        if (owner == inputCharacterEnds.end())
            continue;
        int& end = ends[owner - inputCharacterEnds.begin()];
        end = std::max(end, topology.faceVertexStarts[f + 1]);
    }
    for (std::size_t k = 1; k < ends.size(); ++k)
        ends[k] = std::max(ends[k], ends[k - 1]);
    return ends;
}

} // namespace type
