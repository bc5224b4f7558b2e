#include "export/ExportMeshConversion.h"

#include <OpenZyvo/ZColorArray.h>
#include <OpenZyvo/ZFloatArray.h>
#include <OpenZyvo/ZFloatVectorArray.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZPointArray.h>
#include <algorithm>
#include <cmath>
#include <cstdint>

namespace oz::exporter {

namespace {

double det3(const ZMatrix& m) {
    return m(0, 0) * (m(1, 1) * m(2, 2) - m(1, 2) * m(2, 1)) -
           m(0, 1) * (m(1, 0) * m(2, 2) - m(1, 2) * m(2, 0)) +
           m(0, 2) * (m(1, 0) * m(2, 1) - m(1, 1) * m(2, 0));
}

exporter::Float3 toFloat3(double x, double y, double z) {
    return {static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)};
}

// The face-vertex of a face that a triangle corner's vertex id stands for: its position in the
// face's vertex list (outer loop, then holes).
class FaceCorners {
public:
    void reset(const int* vertices, int count) {
        m_sorted.clear();
        for (int k = 0; k < count; ++k)
            m_sorted.emplace_back(vertices[k], k);
        std::sort(m_sorted.begin(), m_sorted.end());
    }
    int localIndex(int vertex) const {
        const auto it = std::lower_bound(m_sorted.begin(), m_sorted.end(), std::pair{vertex, 0});
        return it != m_sorted.end() && it->first == vertex ? it->second : 0;
    }

private:
    std::vector<std::pair<int, int>> m_sorted;
};

} // namespace

ZStatus convertForExport(const ZObject& meshData, const ZMatrix& toWorld, std::string name,
                         ConvertedMesh& out) {
    ZStatus status;
    ZFnMesh fn(meshData, &status);
    if (!status)
        return status;
    ZPointArray points;
    ZIntArray faceCounts, faceVertices, triangleCounts, triangleVertices, uvCounts, uvIds;
    ZFloatVectorArray normals;
    ZFloatArray us, vs;
    for (const ZStatus step : {fn.getPoints(points), fn.getVertices(faceCounts, faceVertices),
                               fn.getTriangles(triangleCounts, triangleVertices), fn.getNormals(normals),
                               fn.getAssignedUVs(uvCounts, uvIds), fn.getUVs(us, vs)})
        if (!step)
            return step;

    out = ConvertedMesh();
    ExportMesh& mesh = out.mesh;
    mesh.name = std::move(name);
    mesh.positions.reserve(points.length());
    for (const ZPoint& p : points) {
        const ZPoint world = p * toWorld;
        mesh.positions.push_back(toFloat3(world.x, world.y, world.z));
    }
    if (fn.hasColor()) {
        const ZColor white(1.0f, 1.0f, 1.0f, 1.0f);
        ZColorArray colors;
        if (!(status = fn.getVertexColors(colors, &white)))
            return status;
        for (const ZColor& c : colors)
            mesh.colors.push_back({c.r, c.g, c.b, c.a});
    }

    const ZMatrix normalMatrix = toWorld.inverse().transpose();
    const bool mirrored = det3(toWorld) < 0.0;
    const bool withUvs = uvIds.length() > 0;
    FaceCorners corners;
    unsigned int faceStart = 0, uvStart = 0, triangleStart = 0;
    for (unsigned int face = 0; face < faceCounts.length(); ++face) {
        const int count = faceCounts[face];
        const bool faceHasUvs = withUvs && uvCounts[face] > 0;
        corners.reset(faceVertices.asVector().data() + faceStart, count);
        for (int t = 0; t < triangleCounts[face]; ++t, triangleStart += 3) {
            exporter::Triangle triangle{};
            for (int c = 0; c < 3; ++c) {
                const int corner = mirrored && c > 0 ? 3 - c : c;
                const int vertex = triangleVertices[triangleStart + static_cast<unsigned int>(corner)];
                const unsigned int local = static_cast<unsigned int>(corners.localIndex(vertex));
                triangle[c] = static_cast<std::uint32_t>(vertex);
                const ZVector n = (ZVector(normals[faceStart + local]) * normalMatrix).normal();
                mesh.normals.push_back(toFloat3(n.x, n.y, n.z));
                if (!withUvs)
                    continue;
                const int uv = faceHasUvs ? uvIds[uvStart + local] : -1;
                const bool known = uv >= 0 && static_cast<unsigned int>(uv) < us.length();
                mesh.uvs.push_back(known ? exporter::Float2{us[static_cast<unsigned int>(uv)],
                                                            vs[static_cast<unsigned int>(uv)]}
                                         : exporter::Float2{0.0f, 0.0f});
            }
            mesh.triangles.push_back(triangle);
            out.triangleFaces.push_back(static_cast<int>(face));
        }
        faceStart += static_cast<unsigned int>(count);
        if (faceHasUvs)
            uvStart += static_cast<unsigned int>(count);
    }
    return ZStatus::kSuccess;
}

} // namespace oz::exporter
