#include "deformers/FaceListTopology.h"

#include <algorithm>

namespace type {

namespace {

// Compressed rows from (row, value) pairs, keeping each row's values in the
// order they came and dropping repeats.
void buildRows(int rows, const std::vector<std::pair<int, int>>& pairs, std::vector<int>& start,
               std::vector<int>& values) {
    start.assign(static_cast<std::size_t>(rows) + 1, 0);
    for (const auto& [row, value] : pairs)
        ++start[static_cast<std::size_t>(row) + 1];
    for (std::size_t i = 1; i < start.size(); ++i)
        start[i] += start[i - 1];
    std::vector<int> fill(start.begin(), start.end() - 1);
    values.assign(pairs.size(), 0);
    for (const auto& [row, value] : pairs) {
        const auto begin = values.begin() + start[static_cast<std::size_t>(row)];
        const auto end = values.begin() + fill[static_cast<std::size_t>(row)];
        if (std::find(begin, end, value) == end)
            values[static_cast<std::size_t>(fill[static_cast<std::size_t>(row)]++)] = value;
    }
    // Close the gaps the repeats left.
    std::size_t out = 0;
    std::vector<int> packedStart(start.size(), 0);
    for (std::size_t row = 0; row + 1 < start.size(); ++row) {
        packedStart[row] = static_cast<int>(out);
        for (int i = start[row]; i < fill[row]; ++i)
            values[out++] = values[static_cast<std::size_t>(i)];
    }
    packedStart.back() = static_cast<int>(out);
    values.resize(out);
    start = std::move(packedStart);
}

} // namespace

FaceListTopology::FaceListTopology(std::span<const Point3> points, std::span<const int> faceCounts,
                                   std::span<const int> faceVertices)
    : m_points(points)
    , m_faceVertices(faceVertices) {
    const int vertexCount = static_cast<int>(points.size());
    m_faceStart.reserve(faceCounts.size() + 1);
    m_faceStart.push_back(0);
    std::vector<std::pair<int, int>> neighbours;
    std::vector<std::pair<int, int>> faces;
    neighbours.reserve(faceVertices.size() * 2);
    faces.reserve(faceVertices.size());
    for (std::size_t face = 0; face < faceCounts.size(); ++face) {
        const int begin = m_faceStart.back();
        const int count = std::clamp(faceCounts[face], 0, static_cast<int>(faceVertices.size()) - begin);
        m_faceStart.push_back(begin + count);
        for (int i = 0; i < count; ++i) {
            const int v = faceVertices[static_cast<std::size_t>(begin + i)];
            const int next = faceVertices[static_cast<std::size_t>(begin + (i + 1) % count)];
            if (v < 0 || v >= vertexCount)
                continue;
            faces.emplace_back(v, static_cast<int>(face));
            if (next >= 0 && next < vertexCount && next != v) {
                neighbours.emplace_back(v, next);
                neighbours.emplace_back(next, v);
            }
        }
    }
    buildRows(vertexCount, neighbours, m_neighbourStart, m_neighbours);
    buildRows(vertexCount, faces, m_vertexFaceStart, m_vertexFaces);
}

bool FaceListTopology::star(int vertex, bool withFaces, VertexStar& star) {
    if (vertex < 0 || vertex >= vertexCount())
        return false;
    const auto v = static_cast<std::size_t>(vertex);
    star.position = m_points[v];
    star.vertices.assign(m_neighbours.begin() + m_neighbourStart[v],
                         m_neighbours.begin() + m_neighbourStart[v + 1]);
    star.faces.clear();
    if (withFaces)
        star.faces.assign(m_vertexFaces.begin() + m_vertexFaceStart[v],
                          m_vertexFaces.begin() + m_vertexFaceStart[v + 1]);
    return true;
}

std::span<const int> FaceListTopology::faceVertices(int face) const {
    if (face < 0 || face >= faceCount())
        return {};
    const auto f = static_cast<std::size_t>(face);
    return m_faceVertices.subspan(static_cast<std::size_t>(m_faceStart[f]),
                                  static_cast<std::size_t>(m_faceStart[f + 1] - m_faceStart[f]));
}

} // namespace type
