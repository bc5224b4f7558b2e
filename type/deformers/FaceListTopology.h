#pragma once

#include "shells/ShellTopology.h"

#include <span>
#include <vector>

namespace type {

// A mesh given as plain face lists, for the shell walk: per face its vertex
// count (holes included) and its vertex ids in turn. Vertices that follow one
// another in a face's list are taken as connected.
class FaceListTopology final : public ShellTopology {
public:
    FaceListTopology(std::span<const Point3> points, std::span<const int> faceCounts,
                     std::span<const int> faceVertices);

    int vertexCount() const override { return static_cast<int>(m_points.size()); }
    bool star(int vertex, bool withFaces, VertexStar& star) override;

    int faceCount() const { return static_cast<int>(m_faceStart.size()) - 1; }
    std::span<const int> faceVertices(int face) const;

private:
    std::span<const Point3> m_points;
    std::span<const int> m_faceVertices;
    std::vector<int> m_faceStart; // face f owns m_faceVertices[m_faceStart[f] .. m_faceStart[f + 1])
    std::vector<int> m_neighbourStart;
    std::vector<int> m_neighbours;
    std::vector<int> m_vertexFaceStart;
    std::vector<int> m_vertexFaces;
};

} // namespace type
