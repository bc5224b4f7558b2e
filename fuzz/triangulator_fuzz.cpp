// Random holed faces, rich in collinear, nearly collinear and nearly touching points: every face
// the loop checks accept must be cut exactly (by ear clipping, from the shape memo, from a library
// of earlier cuts or with the cut of a face alike), covering what the GLU sweep covers, and only
// faces they reject may reach the sweep.
#include "../tests/openzyvo/mesh/CutChecks.h"
#include "mesh/FaceTriangulation.h"
#include "mesh/GluTessellator.h"
#include "mesh/LoopChecks.h"
#include "mesh/Mesh.h"
#include "mesh/Normals.h"
#include "mesh/PlanarFace.h"
#include "mesh/ShapeLibrary.h"
#include "mesh/ShapeMemo.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <numbers>
#include <vector>

namespace {

using namespace oz::mesh;

class Bytes {
public:
    Bytes(const uint8_t* data, size_t size)
        : data_(data)
        , size_(size) {}
    uint8_t next() { return at_ < size_ ? data_[at_++] : 0; }
    bool empty() const { return at_ >= size_; }

private:
    const uint8_t* data_;
    size_t size_;
    size_t at_ = 0;
};

// Snaps most points to a quarter grid, so that straight runs and points on one another's lines
// are common, and nudges some by a few units in the last place, so that nearly straight runs and
// nearly touching loops are too.
double coordinate(double value, uint8_t style) {
    double snapped = style % 4 == 0 ? value : std::round(value * 4.0) / 4.0;
    for (int step = 0; step < style % 7 - 4; ++step)
        snapped = std::nextafter(snapped, style % 2 ? 1e9 : -1e9);
    return snapped;
}

std::vector<Point3> loopFrom(Bytes& bytes, double cx, double cy, double radius, int count, bool clockwise) {
    std::vector<Point3> loop;
    for (int i = 0; i < count; ++i) {
        const double angle = 2.0 * std::numbers::pi * i / count * (clockwise ? -1.0 : 1.0);
        const double r = radius * (0.4 + 0.6 * bytes.next() / 255.0);
        const uint8_t style = bytes.next();
        loop.push_back(
            {coordinate(cx + r * std::cos(angle), style), coordinate(cy + r * std::sin(angle), style), 0});
    }
    return loop;
}

[[noreturn]] void fail(const char* what, int32_t face, const std::string& detail) {
    std::fprintf(stderr, "triangulator: face %d: %s %s\n", face, what, detail.c_str());
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Bytes bytes(data, size);
    std::vector<Point3> points = loopFrom(bytes, 0, 0, 10, 3 + bytes.next() % 62, false);
    std::vector<int32_t> counts{static_cast<int32_t>(points.size())};
    const int holes = bytes.next() % 5;
    for (int h = 0; h < holes && !bytes.empty(); ++h) {
        const double cx = (bytes.next() - 128) / 16.0;
        const double cy = (bytes.next() - 128) / 16.0;
        const auto hole =
            loopFrom(bytes, cx, cy, 0.5 + bytes.next() / 64.0, 3 + bytes.next() % 9, bytes.next() % 2);
        points.insert(points.end(), hole.begin(), hole.end());
        counts.push_back(static_cast<int32_t>(hole.size()));
    }
    // The face, an exact translate of it (the memo must hand it the same cut), a translate with
    // one point moved a step (the memo must not), a scaled copy and a copy with every point moved
    // a little: faces alike, which the earlier cuts may or may not fit.
    std::vector<Point3> copies = points;
    for (const double shift : {64.0, 128.0}) {
        for (const Point3& p : points)
            copies.push_back(p + Point3{shift, 0, 0});
    }
    const size_t nudged = 2 * points.size() + bytes.next() % points.size();
    copies[nudged].y = std::nextafter(copies[nudged].y, 1e9);
    const double scale = 0.5 + bytes.next() / 128.0;
    for (const Point3& p : points)
        copies.push_back(Point3{192.0 + scale * p.x, scale * p.y, 0});
    for (const Point3& p : points)
        copies.push_back(p + Point3{256.0 + (bytes.next() - 128) / 256.0, (bytes.next() - 128) / 256.0, 0});

    // The face is cut once on its own first, as an earlier edit would, and its cut kept in a
    // library: the exact translates take it from there, the nudged copy must not.
    Mesh alone;
    Mesh mesh;
    for (int copy = 0; copy < 5; ++copy) {
        int32_t face = -1;
        if (mesh.addPolygon(std::span(copies).subspan(copy * points.size(), points.size()), counts, false,
                            0.0, face) != Status::Success)
            return 0;
    }
    int32_t first = -1;
    alone.addPolygon(points, counts, false, 0.0, first);
    ShapeLibrary library(1 << 12);
    triangulateFaces(alone.faces(), alone.points(), &library);
    const Triangulation cut = triangulateFaces(mesh.faces(), mesh.points(), &library);
    int32_t rejected = 0;
    PlanarFace planar;
    for (int32_t f = 0; f < mesh.faceCount(); ++f) {
        const Vector3 normal = faceNormal(mesh.faces(), mesh.points(), f);
        const bool wellFormed = normal != Vector3{} &&
                                flattenFace(mesh.faces(), mesh.points(), f, normal, planar) &&
                                loopsWellFormed(planar);
        if (!wellFormed) {
            ++rejected;
            continue;
        }
        const std::string fault =
            test::cutFault(mesh.faces(), mesh.points(), f, cut.faceTriangles(f), normal);
        if (!fault.empty())
            fail("is cut wrongly:", f, fault);
        std::vector<Triangle> pattern;
        GluTessellator().tessellate(mesh.faces(), mesh.points(), f, normal, pattern);
        std::vector<Triangle> swept(pattern.size());
        writePattern(mesh.faces().faceVertices(f), pattern, swept.data());
        const double area = triangleArea(cut.faceTriangles(f), mesh.points());
        const double sweptArea = triangleArea(swept, mesh.points());
        if (!(std::abs(area - sweptArea) <= 1e-9 * std::max(1.0, sweptArea)))
            fail("covers another area than the sweep:", f,
                 std::to_string(area) + " " + std::to_string(sweptArea));
    }
    // Rejected faces may still be cut without the sweep: triangles and convex quads directly, exact
    // translates of an accepted face from the memo.
    if (cut.counts.tessellated > rejected)
        fail("well-formed faces went to the sweep:", -1, std::to_string(cut.counts.tessellated - rejected));
    return 0;
}
