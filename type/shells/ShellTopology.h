#pragma once

#include <algorithm>
#include <limits>
#include <vector>

namespace type {

struct Point3 {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

// Axis-aligned box in object space; a default box holds no point.
struct Box3 {
    Point3 min{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity(),
               std::numeric_limits<double>::infinity()};
    Point3 max{-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
               -std::numeric_limits<double>::infinity()};

    bool empty() const { return !(min.x <= max.x && min.y <= max.y && min.z <= max.z); }

    void extend(const Point3& p) {
        min = {std::min(min.x, p.x), std::min(min.y, p.y), std::min(min.z, p.z)};
        max = {std::max(max.x, p.x), std::max(max.y, p.y), std::max(max.z, p.z)};
    }
};

// What the shell walk learns of one vertex.
struct VertexStar {
    Point3 position;
    std::vector<int> vertices; // connected vertices, in the order the mesh gives them
    std::vector<int> faces;    // faces around the vertex; filled only when asked for
};

// The mesh a shell walk floods: its vertex count and the star of each vertex.
// Meshes answer from wherever their topology lives (a host iterator, plain
// arrays), so the walk itself stays free of any host type.
class ShellTopology {
public:
    virtual ~ShellTopology() = default;

    virtual int vertexCount() const = 0;

    // Fills `star` for `vertex`; false when the mesh has no such vertex.
    virtual bool star(int vertex, bool withFaces, VertexStar& star) = 0;
};

} // namespace type
