#pragma once

#include "SolidCheck.h"
#include "extrude/SolidAssembly.h"

// The solid a kernel built, as a polygon soup for checkSolid.
namespace typetest {

inline PolygonSoup soupOf(const type::SolidTopology& topology, const std::vector<type::Point3>& points) {
    PolygonSoup soup;
    for (const type::Point3& p : points)
        soup.points.push_back({p.x, p.y, p.z});
    std::size_t next = 0;
    for (const int count : topology.faceCounts) {
        soup.faces.push_back({std::vector<int>(topology.faceConnects.begin() + next,
                                               topology.faceConnects.begin() + next + count)});
        next += count;
    }
    for (const type::CapHoles& holes : topology.capHoles) {
        std::size_t start = 0;
        for (const int size : holes.loopSizes) {
            soup.faces[holes.face].push_back(
                std::vector<int>(holes.vertices.begin() + start, holes.vertices.begin() + start + size));
            start += size;
        }
    }
    return soup;
}

} // namespace typetest
