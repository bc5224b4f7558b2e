#pragma once

#include "SolidCheck.h"
#include "extrude/FaceShapes.h"
#include "extrude/SolidAssembly.h"
#include "offset/Mitres.h"
#include "offset/NormalsOffset.h"

#include <algorithm>
#include <span>
#include <vector>

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

// The solid's points in the topology's order, as a plain list.
inline std::vector<type::Point3> placedPoints(const std::vector<type::SolidFace>& faces,
                                              const type::FaceShapes& shapes, const type::Profile& profile,
                                              const type::RingOffsetter& offsetter) {
    const type::ShapePoints points = type::shapePoints(faces, shapes, profile, offsetter);
    std::vector<type::Point3> out(points.starts.back());
    type::placeShapePoints(
        faces, shapes, points, [&](std::size_t first, std::span<const type::Point3> placed) {
            std::copy(placed.begin(), placed.end(), out.begin() + static_cast<std::ptrdiff_t>(first));
        });
    return out;
}

// The points the kernel builds for `faces`, offsetting every ring with the normals builder.
inline std::vector<type::Point3> pointsOf(const std::vector<type::SolidFace>& faces,
                                          const type::Profile& profile) {
    const type::FaceShapes shapes = type::faceShapes(faces);
    std::vector<std::vector<type::Mitre>> directions;
    for (const int face : shapes.firstFace)
        directions.push_back(type::mitres(faces[static_cast<std::size_t>(face)].outline));
    return placedPoints(
        faces, shapes, profile, [&](std::size_t shape, double d, std::vector<type::Point2>& out) {
            type::normalsOffset(faces[static_cast<std::size_t>(shapes.firstFace[shape])].outline,
                                directions[shape], d, out);
        });
}

} // namespace typetest
