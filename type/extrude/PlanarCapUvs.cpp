#include "extrude/PlanarCapUvs.h"

#include <algorithm>
#include <limits>

namespace type {

void planarCapUvs(const std::vector<SolidFace>& faces, const SolidTopology& topology, SolidUvs& uvs) {
    double x0 = std::numeric_limits<double>::max(), y0 = x0;
    double x1 = std::numeric_limits<double>::lowest(), y1 = x1;
    // Outlines lie about their faces' anchors; the projection is of the whole artwork.
    std::vector<Point2> anchors;
    for (const SolidFace& face : faces) {
        anchors.push_back(face.frame.toPlane(face.anchor));
        for (const Point2& p : face.outline.points) {
            x0 = std::min(x0, anchors.back().x + p.x);
            x1 = std::max(x1, anchors.back().x + p.x);
            y0 = std::min(y0, anchors.back().y + p.y);
            y1 = std::max(y1, anchors.back().y + p.y);
        }
    }
    const double span = std::max(x1 - x0, y1 - y0);
    const double scale = span > 0.0 ? 1.0 / span : 0.0;

    std::vector<bool> isCap(topology.faceCounts.size(), false);
    for (const int face : topology.capFaces)
        isCap[face] = true;
    std::vector<const CapHoles*> holesOf(topology.faceCounts.size(), nullptr);
    for (const CapHoles& holes : topology.capHoles)
        holesOf[holes.face] = &holes;

    // The solid's faces come input face by input face, each face's stack from its start in the
    // topology. A face's first cap is its front one, its second the back one.
    std::size_t owner = 0;
    std::size_t lastCapOwner = faces.size();
    bool back = false;
    std::size_t connect = 0;
    std::size_t uvSlot = 0;
    auto project = [&](int vertex) {
        const auto& points = faces[owner].outline.points;
        const int local = vertex - topology.faceVertexStarts[owner];
        const Point2& q = points[local % points.size()];
        const Point2 p{anchors[owner].x + q.x, anchors[owner].y + q.y};
        uvs.uvIds[uvSlot++] = static_cast<int>(uvs.u.size());
        uvs.u.push_back(static_cast<float>(back ? (x1 - p.x) * scale : (p.x - x0) * scale));
        uvs.v.push_back(static_cast<float>((p.y - y0) * scale));
    };
    for (std::size_t face = 0; face < topology.faceCounts.size(); ++face) {
        const auto count = static_cast<std::size_t>(topology.faceCounts[face]);
        if (!isCap[face]) {
            connect += count;
            uvSlot += static_cast<std::size_t>(uvs.faceUvCounts[face]);
            continue;
        }
        while (static_cast<int>(face) >= topology.stackFaceStarts[owner + 1])
            ++owner;
        back = owner == lastCapOwner;
        lastCapOwner = owner;
        for (std::size_t i = 0; i < count; ++i)
            project(topology.faceConnects[connect + i]);
        connect += count;
        if (const CapHoles* holes = holesOf[face])
            for (const int vertex : holes->vertices)
                project(vertex);
    }
}

} // namespace type
