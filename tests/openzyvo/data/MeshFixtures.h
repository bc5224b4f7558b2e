#pragma once

#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZFnMeshData.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZPointArray.h>

// Meshes the data tests share, each built into new mesh data through the public API.
namespace fixtures {

// A unit cube at the origin: 8 vertices, 6 outward quads, 12 edges.
inline ZObject cube() {
    const ZPointArray points{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},
                             {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}};
    const ZIntArray counts{4, 4, 4, 4, 4, 4};
    const ZIntArray connects{0, 3, 2, 1, 4, 5, 6, 7, 0, 1, 5, 4, 1, 2, 6, 5, 2, 3, 7, 6, 3, 0, 4, 7};
    ZObject data = ZFnMeshData().create();
    ZFnMesh().create(8, 6, points, counts, connects, data);
    return data;
}

// Two unit squares in z = 0 that share nothing: vertices 0-3 at x in [0, 1], 4-7 at x in [3, 4].
inline ZObject twoSquares() {
    const ZPointArray points{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},
                             {3, 0, 0}, {4, 0, 0}, {4, 1, 0}, {3, 1, 0}};
    const ZIntArray counts{4, 4};
    const ZIntArray connects{0, 1, 2, 3, 4, 5, 6, 7};
    ZObject data = ZFnMeshData().create();
    ZFnMesh().create(8, 2, points, counts, connects, data);
    return data;
}

// The square [x, x + size] x [y, y + size] in z = 0, counter-clockwise seen from +z.
inline ZPointArray square(double x, double y, double size) {
    return {{x, y, 0}, {x + size, y, 0}, {x + size, y + size, 0}, {x, y + size, 0}};
}

inline void append(ZPointArray& to, const ZPointArray& points) {
    for (const ZPoint& p : points)
        to.append(p);
}

} // namespace fixtures
