#include "shells/PolyShellDiscover.h"

#include "shells/ShellDiscovery.h"

#include <vector>

namespace type {

namespace {

class IteratorTopology final : public ShellTopology {
public:
    explicit IteratorTopology(ZItMeshVertex& vertices)
        : m_vertices(vertices)
        , m_count(vertices.count()) {}

    int vertexCount() const override { return m_count; }

    bool star(int vertex, bool withFaces, VertexStar& star) override {
        int previous = 0;
        if (!m_vertices.setIndex(vertex, previous))
            return false;
        ZStatus status;
        const ZPoint position = m_vertices.position(ZSpace::kObject, &status);
        if (!status || !m_vertices.getConnectedVertices(m_ids))
            return false;
        star.position = {position.x, position.y, position.z};
        star.vertices.assign(m_ids.begin(), m_ids.end());
        star.faces.clear();
        if (withFaces) {
            if (!m_vertices.getConnectedFaces(m_ids))
                return false;
            star.faces.assign(m_ids.begin(), m_ids.end());
        }
        return true;
    }

private:
    ZItMeshVertex& m_vertices;
    int m_count;
    ZIntArray m_ids;
};

} // namespace

ZStatus polyShellDiscover(ZItMeshVertex& vertices, const ZIntArray& seeds, ZIntArray& shell,
                          ZBoundingBox& box, BitSet* faces) {
    IteratorTopology topology(vertices);
    const std::vector<int> seedIds(seeds.begin(), seeds.end());
    std::vector<int> reached;
    Box3 bounds;
    const bool walked = discoverShell(topology, seedIds, reached, bounds, faces);
    shell.clear();
    for (int vertex : reached)
        shell.append(vertex);
    if (!bounds.empty()) {
        box.expand(ZPoint(bounds.min.x, bounds.min.y, bounds.min.z));
        box.expand(ZPoint(bounds.max.x, bounds.max.y, bounds.max.z));
    }
    return walked ? ZStatus::kSuccess : ZStatus::kFailure;
}

} // namespace type
