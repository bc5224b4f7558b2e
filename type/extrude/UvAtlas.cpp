#include "extrude/UvAtlas.h"

#include <algorithm>
#include <cmath>
#include <limits>

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

struct FaceUvs {
    int sideStart = 0; // two bands of rings x (points + loops) ids: walls, then bevels
    int capStart = 0;  // front cap points, then back cap points
};

class AtlasBuilder {
public:
    AtlasBuilder(const std::vector<SolidFace>& faces, int rings, bool caps)
        : m_faces(faces)
        , m_rings(rings)
        , m_caps(caps) {}

    void addFace(std::size_t f, SolidUvs& out, FaceUvs& ids) {
        const FaceOutline& outline = m_faces[f].outline;
        const double tiles = static_cast<double>(m_faces.size());
        ids.sideStart = static_cast<int>(out.u.size());
        ids.capStart = ids.sideStart;
        // A face that passes through flat has no sides; it takes its cap cell,
        // or without caps its wall cell.
        if (!m_faces[f].extruded) {
            addCap(outline, m_caps ? capCell(f, tiles) : sideCell(f, tiles, 0), false, out);
            return;
        }
        for (int band = 0; band < 2; ++band)
            addSides(outline, sideCell(f, tiles, band), out);
        ids.capStart = static_cast<int>(out.u.size());
        if (m_caps) {
            addCap(outline, capCell(f, tiles), false, out);
            addCap(outline, capCell(f, tiles), true, out);
        }
    }

private:
    static Cell capCell(std::size_t f, double tiles) {
        return {f / tiles + kCellInset, kCellInset, kCellFill / tiles, kCellFill * kCapsBand};
    }

    Cell sideCell(std::size_t f, double tiles, int band) const {
        if (m_caps)
            return {f / tiles + kCellInset, (band + 1) * kCapsBand + kCellInset, kCellFill / tiles,
                    kCellFill * kCapsBand};
        return {(f + kTileInset) / tiles, band * 0.5 + kTileInset, kTileFill / tiles, kRowHeight};
    }

    // Every ring, every loop point and each loop's seam again at its end.
    void addSides(const FaceOutline& outline, const Cell& cell, SolidUvs& out) const {
        std::vector<double> along;
        double total = 0.0;
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
        const double length = total > 0.0 ? total : 1.0;
        for (int k = 0; k < m_rings; ++k) {
            const double up = m_rings > 1 ? static_cast<double>(k) / (m_rings - 1) : 0.0;
            for (const double distance : along) {
                out.u.push_back(static_cast<float>(cell.u0 + cell.width * distance / length));
                out.v.push_back(static_cast<float>(cell.v0 + cell.height * up));
            }
        }
    }

    // The outline projected flat, uniformly scaled into the cell; the back
    // cap is seen from behind, so its first axis runs the other way.
    static void addCap(const FaceOutline& outline, const Cell& cell, bool mirrored, SolidUvs& out) {
        double x0 = std::numeric_limits<double>::max(), y0 = x0;
        double x1 = std::numeric_limits<double>::lowest(), y1 = x1;
        for (const Point2& p : outline.points) {
            const double x = mirrored ? -p.x : p.x;
            x0 = std::min(x0, x);
            x1 = std::max(x1, x);
            y0 = std::min(y0, p.y);
            y1 = std::max(y1, p.y);
        }
        const double span = std::max(x1 - x0, y1 - y0);
        const double scale = span > 0.0 ? std::min(cell.width, cell.height) / span : 0.0;
        for (const Point2& p : outline.points) {
            const double x = mirrored ? -p.x : p.x;
            out.u.push_back(static_cast<float>(cell.u0 + (x - x0) * scale));
            out.v.push_back(static_cast<float>(cell.v0 + (p.y - y0) * scale));
        }
    }

    const std::vector<SolidFace>& m_faces;
    int m_rings;
    bool m_caps;
};

// Where a vertex of one input face's stack sits: its ring and outline point.
struct Slot {
    int ring;
    int point;
};

} // namespace

SolidUvs solidUvs(const std::vector<SolidFace>& faces, const Profile& profile, const SolidTopology& topology,
                  bool deleteCaps) {
    SolidUvs out;
    const int rings = static_cast<int>(solidRings(profile).size());
    AtlasBuilder atlas(faces, rings, !deleteCaps);
    std::vector<FaceUvs> ids(faces.size());
    // Per face, the first point of each loop, for the seams.
    std::vector<std::vector<int>> loopStarts(faces.size());
    for (std::size_t f = 0; f < faces.size(); ++f) {
        atlas.addFace(f, out, ids[f]);
        int start = 0;
        for (const int size : faces[f].outline.loopSizes) {
            loopStarts[f].push_back(start);
            start += size;
        }
        loopStarts[f].push_back(start);
    }

    std::vector<bool> isCap(topology.faceCounts.size(), false);
    for (const int face : topology.capFaces)
        isCap[face] = true;
    std::vector<bool> isWall(topology.faceCounts.size(), false);
    for (const int face : topology.extrusionFaces)
        isWall[face] = true;
    std::vector<const CapHoles*> holesOf(topology.faceCounts.size(), nullptr);
    for (const CapHoles& holes : topology.capHoles)
        holesOf[holes.face] = &holes;

    // The solid's faces come input face by input face, so the face whose stack
    // holds them only ever moves on.
    std::size_t owner = 0;
    int n = 0;
    auto slotOf = [&](int vertex) {
        const int local = vertex - topology.faceVertexStarts[owner];
        return Slot{local / n, local % n};
    };
    auto capId = [&](int vertex) {
        const Slot slot = slotOf(vertex);
        return ids[owner].capStart + (slot.ring == 0 ? 0 : n) + slot.point;
    };
    out.uvIds.reserve(topology.faceConnects.size());
    out.faceUvCounts.reserve(topology.faceCounts.size());
    std::size_t next = 0;
    Slot corners[4];
    for (std::size_t face = 0; face < topology.faceCounts.size(); ++face) {
        const int count = topology.faceCounts[face];
        const int* connects = topology.faceConnects.data() + next;
        next += count;
        while (connects[0] >= topology.faceVertexStarts[owner + 1])
            ++owner;
        n = static_cast<int>(faces[owner].outline.points.size());
        if (isCap[face]) {
            int total = count;
            for (int i = 0; i < count; ++i)
                out.uvIds.push_back(capId(connects[i]));
            if (const CapHoles* holes = holesOf[face]) {
                for (const int vertex : holes->vertices)
                    out.uvIds.push_back(capId(vertex));
                total += static_cast<int>(holes->vertices.size());
            }
            out.faceUvCounts.push_back(total);
            continue;
        }
        // A side face: each corner's point along its loop, the loop's first
        // point taking its seam copy when the face closes the loop.
        const std::vector<int>& starts = loopStarts[owner];
        const int loops = static_cast<int>(starts.size()) - 1;
        for (int i = 0; i < count; ++i)
            corners[i] = slotOf(connects[i]);
        const int loop = static_cast<int>(std::upper_bound(starts.begin(), starts.end(), corners[0].point) -
                                          starts.begin()) -
                         1;
        const int bandStart = ids[owner].sideStart + (isWall[face] ? 0 : 1) * rings * (n + loops);
        bool closes = false;
        for (int i = 0; i < count; ++i)
            closes = closes || corners[i].point == starts[loop + 1] - 1;
        for (int i = 0; i < count; ++i) {
            const int seam = closes && corners[i].point == starts[loop] ? starts[loop + 1] - starts[loop] : 0;
            out.uvIds.push_back(bandStart + corners[i].ring * (n + loops) + corners[i].point + loop + seam);
        }
        out.faceUvCounts.push_back(count);
    }
    return out;
}

} // namespace type
