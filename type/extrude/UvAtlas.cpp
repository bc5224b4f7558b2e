#include "extrude/UvAtlas.h"

#include "extrude/FaceShapes.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tbb/parallel_for.h>

namespace type {

namespace {

// With caps: a projected outline fills 0.9 of its cell, 1/600 in from its corner.
constexpr double kCapsBand = 1.0 / 3.0;
constexpr double kCellFill = 0.9;
constexpr double kCellInset = 1.0 / 600.0;
// Without caps: each tile is inset by 0.005 of its width and filled to 0.98
// of it, each row 0.49 high.
constexpr double kTileInset = 0.005;
constexpr double kTileFill = 0.98;
constexpr double kRowHeight = 0.49;

struct Cell {
    double u0, v0, width, height;
};

Cell sideCell(std::size_t f, double tiles, int band, bool caps) {
    if (caps)
        return {f / tiles + kCellInset, (band + 1) * kCapsBand + kCellInset, kCellFill / tiles,
                kCellFill * kCapsBand};
    return {(f + kTileInset) / tiles, band * 0.5 + kTileInset, kTileFill / tiles, kRowHeight};
}

Cell capCell(std::size_t f, double tiles) {
    return {f / tiles + kCellInset, kCellInset, kCellFill / tiles, kCellFill * kCapsBand};
}

// What each face of the solid is, for its band.
constexpr char kCap = 0;
constexpr char kWall = 1;
constexpr char kBevel = 2;

// A shape's uvs before they are placed in a tile: along its loops, the
// distance of each point and each loop's seam; over its caps, each point's
// offset from the corner of the outline's box (mirrored for the back cap);
// and the uv ids of its faces counted from its first uv.
struct ShapeUvs {
    std::vector<double> along;
    double length = 1.0;
    std::vector<Point2> front;
    std::vector<Point2> back;
    double span = 0.0;
    std::vector<int> faceUvCounts;
    std::vector<int> uvIds;
};

std::vector<double> distancesAlong(const FaceOutline& outline, double& total) {
    std::vector<double> along;
    total = 0.0;
    std::size_t start = 0;
    for (const int size : outline.loopSizes) {
        for (int i = 0; i <= size; ++i) {
            along.push_back(total);
            const Point2& a = outline.points[start + i % size];
            const Point2& b = outline.points[start + (i + 1) % size];
            if (i < size)
                total += std::hypot(b.x - a.x, b.y - a.y);
        }
        start += size;
    }
    return along;
}

// The outline projected flat from the corner of its box; the back cap is
// seen from behind, so its first axis runs the other way.
std::vector<Point2> capOffsets(const FaceOutline& outline, bool mirrored, double& span) {
    double x0 = std::numeric_limits<double>::max(), y0 = x0;
    double x1 = std::numeric_limits<double>::lowest(), y1 = x1;
    for (const Point2& p : outline.points) {
        const double x = mirrored ? -p.x : p.x;
        x0 = std::min(x0, x);
        x1 = std::max(x1, x);
        y0 = std::min(y0, p.y);
        y1 = std::max(y1, p.y);
    }
    span = std::max(x1 - x0, y1 - y0);
    std::vector<Point2> offsets;
    offsets.reserve(outline.points.size());
    for (const Point2& p : outline.points)
        offsets.push_back({(mirrored ? -p.x : p.x) - x0, p.y - y0});
    return offsets;
}

// Where a vertex of one input face's stack sits: its ring and outline point.
struct Slot {
    int ring;
    int point;
};

// The uv ids of the faces of one input face's stack, from the stack's first
// uv: its side bands (walls, then bevels, each rings x (points + loops)
// ids), then its front and back cap points.
void stackUvIds(const SolidFace& face, int rings, const SolidTopology& topology, std::size_t firstFace,
                std::size_t endFace, std::size_t firstConnect, int firstVertex,
                const std::vector<const CapHoles*>& holesOf, const std::vector<char>& kind, ShapeUvs& out) {
    const int n = static_cast<int>(face.outline.points.size());
    std::vector<int> starts;
    int start = 0;
    for (const int size : face.outline.loopSizes) {
        starts.push_back(start);
        start += size;
    }
    starts.push_back(start);
    const int loops = static_cast<int>(starts.size()) - 1;
    const int capStart = face.extruded ? 2 * rings * (n + loops) : 0;
    // A vertex's ring and point, stepped to from the vertex asked for last: the faces walk the
    // stack ring by ring, so a step is a move of a few points, where a division per corner took
    // half of this function's time.
    int lastVertex = firstVertex;
    Slot last{0, 0};
    auto slotOf = [&](int vertex) {
        last.point += vertex - lastVertex;
        lastVertex = vertex;
        while (last.point < 0) {
            last.point += n;
            --last.ring;
        }
        while (last.point >= n) {
            last.point -= n;
            ++last.ring;
        }
        return last;
    };
    auto capId = [&](int vertex) {
        const Slot slot = slotOf(vertex);
        return capStart + (slot.ring == 0 ? 0 : n) + slot.point;
    };
    std::size_t next = firstConnect;
    Slot corners[4];
    for (std::size_t f = firstFace; f < endFace; ++f) {
        const int count = topology.faceCounts[f];
        const int* connects = topology.faceConnects.data() + next;
        next += static_cast<std::size_t>(count);
        if (kind[f] == kCap) {
            int total = count;
            for (int i = 0; i < count; ++i)
                out.uvIds.push_back(capId(connects[i]));
            if (const CapHoles* holes = holesOf[f]) {
                for (const int vertex : holes->vertices)
                    out.uvIds.push_back(capId(vertex));
                total += static_cast<int>(holes->vertices.size());
            }
            out.faceUvCounts.push_back(total);
            continue;
        }
        // A side face: each corner's point along its loop, the loop's first
        // point taking its seam copy when the face closes the loop.
        for (int i = 0; i < count; ++i)
            corners[i] = slotOf(connects[i]);
        const int loop = static_cast<int>(std::upper_bound(starts.begin(), starts.end(), corners[0].point) -
                                          starts.begin()) -
                         1;
        const int bandStart = (kind[f] == kWall ? 0 : 1) * rings * (n + loops);
        bool closes = false;
        for (int i = 0; i < count; ++i)
            closes = closes || corners[i].point == starts[loop + 1] - 1;
        for (int i = 0; i < count; ++i) {
            const int seam = closes && corners[i].point == starts[loop] ? starts[loop + 1] - starts[loop] : 0;
            out.uvIds.push_back(bandStart + corners[i].ring * (n + loops) + corners[i].point + loop + seam);
        }
        out.faceUvCounts.push_back(count);
    }
}

} // namespace

SolidUvs solidUvs(const std::vector<SolidFace>& faces, const FaceShapes& shapes, const Profile& profile,
                  const SolidTopology& topology, bool deleteCaps) {
    const int rings = static_cast<int>(solidRings(profile).size());
    const bool caps = !deleteCaps;
    const std::size_t solidFaces = topology.faceCounts.size();
    std::vector<char> kind(solidFaces, kBevel);
    for (const int face : topology.capFaces)
        kind[static_cast<std::size_t>(face)] = kCap;
    for (const int face : topology.extrusionFaces)
        kind[static_cast<std::size_t>(face)] = kWall;
    std::vector<const CapHoles*> holesOf(solidFaces, nullptr);
    for (const CapHoles& holes : topology.capHoles)
        holesOf[static_cast<std::size_t>(holes.face)] = &holes;

    const std::size_t shapeCount = shapes.firstFace.size();
    std::vector<ShapeUvs> shapeUvs(shapeCount);
    tbb::parallel_for(std::size_t{0}, shapeCount, [&](std::size_t shape) {
        const auto f = static_cast<std::size_t>(shapes.firstFace[shape]);
        const FaceOutline& outline = faces[f].outline;
        ShapeUvs& uvs = shapeUvs[shape];
        if (!faces[f].extruded) {
            // A face that passes through flat has no sides, and keeps its one cap even without caps.
            uvs.front = capOffsets(outline, false, uvs.span);
        } else {
            double total = 0.0;
            uvs.along = distancesAlong(outline, total);
            uvs.length = total > 0.0 ? total : 1.0;
            if (caps) {
                uvs.front = capOffsets(outline, false, uvs.span);
                uvs.back = capOffsets(outline, true, uvs.span);
            }
        }
        stackUvIds(faces[f], rings, topology, static_cast<std::size_t>(topology.stackFaceStarts[f]),
                   static_cast<std::size_t>(topology.stackFaceStarts[f + 1]),
                   static_cast<std::size_t>(topology.stackConnectStarts[f]), topology.faceVertexStarts[f],
                   holesOf, kind, uvs);
    });

    // Each stack's first uv, face and id, then every stack placed in its tile.
    const auto tiles = static_cast<double>(faces.size());
    std::vector<std::size_t> uvStart(faces.size() + 1, 0);
    std::vector<std::size_t> idStart(faces.size() + 1, 0);
    for (std::size_t f = 0; f < faces.size(); ++f) {
        const ShapeUvs& uvs = shapeUvs[static_cast<std::size_t>(shapes.shapeOf[f])];
        uvStart[f + 1] = uvStart[f] + 2 * static_cast<std::size_t>(rings) * uvs.along.size() +
                         uvs.front.size() + uvs.back.size();
        idStart[f + 1] = idStart[f] + uvs.uvIds.size();
    }
    SolidUvs out;
    out.u.resize(uvStart.back());
    out.v.resize(uvStart.back());
    out.uvIds.resize(idStart.back());
    out.faceUvCounts.resize(solidFaces);
    tbb::parallel_for(std::size_t{0}, faces.size(), [&](std::size_t f) {
        const ShapeUvs& uvs = shapeUvs[static_cast<std::size_t>(shapes.shapeOf[f])];
        std::size_t at = uvStart[f];
        for (int band = 0; band < 2; ++band) {
            const Cell cell = sideCell(f, tiles, band, caps);
            for (int k = 0; k < rings; ++k) {
                const double up = rings > 1 ? static_cast<double>(k) / (rings - 1) : 0.0;
                for (const double distance : uvs.along) {
                    out.u[at] = static_cast<float>(cell.u0 + cell.width * distance / uvs.length);
                    out.v[at++] = static_cast<float>(cell.v0 + cell.height * up);
                }
            }
        }
        if (!uvs.front.empty()) {
            // Caps take their cell; a flat face without caps takes its wall cell.
            const Cell cell = caps ? capCell(f, tiles) : sideCell(f, tiles, 0, caps);
            const double scale = uvs.span > 0.0 ? std::min(cell.width, cell.height) / uvs.span : 0.0;
            for (const std::vector<Point2>* cap : {&uvs.front, &uvs.back}) {
                for (const Point2& p : *cap) {
                    out.u[at] = static_cast<float>(cell.u0 + p.x * scale);
                    out.v[at++] = static_cast<float>(cell.v0 + p.y * scale);
                }
            }
        }
        const int base = static_cast<int>(uvStart[f]);
        std::transform(uvs.uvIds.begin(), uvs.uvIds.end(),
                       out.uvIds.begin() + static_cast<std::ptrdiff_t>(idStart[f]),
                       [base](int id) { return base + id; });
        std::copy(uvs.faceUvCounts.begin(), uvs.faceUvCounts.end(),
                  out.faceUvCounts.begin() + topology.stackFaceStarts[f]);
    });
    return out;
}

} // namespace type
