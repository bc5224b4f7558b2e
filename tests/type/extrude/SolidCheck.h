#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

// What makes a polygon mesh a solid: after welding coincident vertices every
// edge is shared by exactly two faces that run along it in opposite
// directions (closed, 2-manifold along edges, consistently oriented), and the
// enclosed volume is positive (the faces point outwards).
namespace typetest {

using Vertex = std::array<double, 3>;
// A face is its loops, outer first, each a list of vertex ids.
using Loops = std::vector<std::vector<int>>;

struct PolygonSoup {
    std::vector<Vertex> points;
    std::vector<Loops> faces;
};

struct SolidReport {
    int openEdges = 0;     // used by one face only
    int overusedEdges = 0; // used twice in one direction, or by more than two faces
    double volume = 0.0;
    std::string firstProblem;

    bool watertight() const { return openEdges == 0 && overusedEdges == 0; }
};

namespace detail {

inline double determinant(const Vertex& a, const Vertex& b, const Vertex& c) {
    return a[0] * (b[1] * c[2] - b[2] * c[1]) - a[1] * (b[0] * c[2] - b[2] * c[0]) +
           a[2] * (b[0] * c[1] - b[1] * c[0]);
}

// One id per distinct position, positions compared on a grid of `tolerance`.
inline std::vector<int> weld(const std::vector<Vertex>& points, double tolerance) {
    std::map<std::array<long long, 3>, int> ids;
    std::vector<int> welded(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        std::array<long long, 3> key;
        for (int c = 0; c < 3; ++c)
            key[c] = std::llround(points[i][c] / tolerance);
        welded[i] = ids.emplace(key, static_cast<int>(ids.size())).first->second;
    }
    return welded;
}

inline std::uint64_t edgeKey(int from, int to) {
    return static_cast<std::uint64_t>(static_cast<std::uint32_t>(from)) << 32 |
           static_cast<std::uint32_t>(to);
}

} // namespace detail

// A face's signed volume with the origin: its loops fanned from their first
// points, holes taking away what they wind against.
inline double faceVolume(const PolygonSoup& soup, const Loops& face) {
    double volume = 0.0;
    for (const std::vector<int>& loop : face)
        for (std::size_t i = 1; i + 1 < loop.size(); ++i)
            volume +=
                detail::determinant(soup.points[loop[0]], soup.points[loop[i]], soup.points[loop[i + 1]]) /
                6.0;
    return volume;
}

inline SolidReport checkSolid(const PolygonSoup& soup, double weldTolerance = 1e-9) {
    const std::vector<int> welded = detail::weld(soup.points, weldTolerance);
    std::unordered_map<std::uint64_t, int> directed;
    SolidReport report;
    for (const Loops& face : soup.faces) {
        report.volume += faceVolume(soup, face);
        for (const std::vector<int>& loop : face) {
            for (std::size_t i = 0; i < loop.size(); ++i) {
                const int a = welded[loop[i]];
                const int b = welded[loop[(i + 1) % loop.size()]];
                if (a != b)
                    ++directed[detail::edgeKey(a, b)];
            }
        }
    }
    for (const auto& [edge, count] : directed) {
        const int from = static_cast<int>(edge >> 32);
        const int to = static_cast<int>(edge & 0xffffffffu);
        const auto reverse = directed.find(detail::edgeKey(to, from));
        const int back = reverse == directed.end() ? 0 : reverse->second;
        if (count > 1 || back > 1) {
            ++report.overusedEdges;
        } else if (back == 0) {
            ++report.openEdges;
        } else {
            continue;
        }
        if (report.firstProblem.empty())
            report.firstProblem = "edge " + std::to_string(from) + " -> " + std::to_string(to);
    }
    return report;
}

} // namespace typetest
