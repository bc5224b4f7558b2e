#pragma once

#include <array>
#include <cmath>
#include <map>
#include <string>
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

} // namespace detail

inline SolidReport checkSolid(const PolygonSoup& soup, double weldTolerance = 1e-9) {
    const std::vector<int> welded = detail::weld(soup.points, weldTolerance);
    std::map<std::pair<int, int>, int> directed;
    SolidReport report;
    for (const Loops& face : soup.faces) {
        for (const std::vector<int>& loop : face) {
            // Fanned from the loop's first point, a face's loops sum to its signed volume
            // with the origin, holes taking away what they wind against.
            for (std::size_t i = 1; i + 1 < loop.size(); ++i)
                report.volume += detail::determinant(soup.points[loop[0]], soup.points[loop[i]],
                                                     soup.points[loop[i + 1]]) /
                                 6.0;
            for (std::size_t i = 0; i < loop.size(); ++i) {
                const int a = welded[loop[i]];
                const int b = welded[loop[(i + 1) % loop.size()]];
                if (a != b)
                    ++directed[{a, b}];
            }
        }
    }
    for (const auto& [edge, count] : directed) {
        const auto reverse = directed.find({edge.second, edge.first});
        const int back = reverse == directed.end() ? 0 : reverse->second;
        if (count > 1 || back > 1) {
            ++report.overusedEdges;
        } else if (back == 0) {
            ++report.openEdges;
        } else {
            continue;
        }
        if (report.firstProblem.empty())
            report.firstProblem = "edge " + std::to_string(edge.first) + " -> " + std::to_string(edge.second);
    }
    return report;
}

} // namespace typetest
