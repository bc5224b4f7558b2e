#include "extrude/SolidAssembly.h"

#include "geometry/Orientation.h"

#include <algorithm>
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

SolidTopology solidTopology(const std::vector<SolidFace>& faces, const Profile& profile, bool deleteCaps) {
    SolidTopology out;
    TopologyBuilder builder(out);
    const int solidRingCount = static_cast<int>(solidRings(profile).size());
    for (const SolidFace& face : faces) {
        const FaceOutline& outline = face.outline;
        const int n = static_cast<int>(outline.points.size());
        const std::vector<bool> left = materialOnLeft(outline);
        out.faceVertexStarts.push_back(out.vertexCount);
        if (!face.extruded) {
            builder.addCap(outline, left, out.vertexCount, true);
            out.vertexCount += n;
            continue;
        }
        const int rings = solidRingCount;
        if (!deleteCaps)
            builder.addCap(outline, left, out.vertexCount, false);
        for (int k = 0; k + 1 < rings; ++k)
            builder.addJoins(outline, left, out.vertexCount + k * n, profile.isWallJoin(k));
        if (!deleteCaps)
            builder.addCap(outline, left, out.vertexCount + (rings - 1) * n, true);
        out.vertexCount += rings * n;
    }
    out.faceVertexStarts.push_back(out.vertexCount);
    return out;
}

void solidPoints(const std::vector<SolidFace>& faces, const Profile& profile, const RingOffsetter& offsetter,
                 std::vector<Point3>& out) {
    const std::vector<Ring> solid = solidRings(profile);
    const std::vector<Ring> flat{Ring{}};
    std::vector<std::size_t> starts(faces.size() + 1, 0);
    for (std::size_t f = 0; f < faces.size(); ++f)
        starts[f + 1] =
            starts[f] + faces[f].outline.points.size() * (faces[f].extruded ? solid : flat).size();
    out.resize(starts.back());
    // Each face fills its own slice, so the result does not depend on how the faces are shared out.
    tbb::parallel_for(
        tbb::blocked_range<std::size_t>(0, faces.size()), [&](const tbb::blocked_range<std::size_t>& range) {
            std::vector<Point2> moved;
            for (std::size_t f = range.begin(); f != range.end(); ++f) {
                const SolidFace& face = faces[f];
                std::size_t next = starts[f];
                for (const Ring& ring : face.extruded ? solid : flat) {
                    offsetter(f, ring.offset * face.insetScale, moved);
                    // A builder that could not keep the outline's points leaves the ring
                    // unmoved rather than writing into the next face's slice.
                    const std::vector<Point2>& ringPoints =
                        moved.size() == face.outline.points.size() ? moved : face.outline.points;
                    for (const Point2& p : ringPoints)
                        out[next++] = face.frame.fromPlane(p, face.height + ring.depth +
                                                                  ring.wallShare * face.extraDepth);
                }
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
