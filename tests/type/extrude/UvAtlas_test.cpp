#include "../geometry/Fixtures.h"
#include "SolidKernel.h"
#include "extrude/FaceShapes.h"
#include "extrude/UvAtlas.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace type {
namespace {

SolidFace squareWithHole(double x) {
    SolidFace face{{}, FaceFrame({0, 0, 1}), 0.0, 0, {}};
    for (const Contour& loop :
         {testing::rectangle(x, 0, x + 4, 4), testing::reversed(testing::rectangle(x + 1, 1, x + 3, 3))}) {
        face.outline.points.insert(face.outline.points.end(), loop.begin(), loop.end());
        face.outline.loopSizes.push_back(static_cast<int>(loop.size()));
    }
    return face;
}

Profile beveled() {
    Profile p;
    p.rings = {{0.0f, 0.0}, {0.1f, 0.1}, {0.1f, 1.0}, {0.0f, 1.1}};
    p.outerFrontEnd = 1;
    p.leadInEnd = 1;
    p.wallsEnd = 3;
    p.innerFrontEnd = 3;
    return p;
}

struct Box {
    float u0 = 2, u1 = -1, v0 = 2, v1 = -1;
};

// The uvs of each face of the solid, as boxes.
std::vector<Box> faceBoxes(const SolidUvs& uvs) {
    std::vector<Box> boxes;
    std::size_t next = 0;
    for (const int count : uvs.faceUvCounts) {
        Box box;
        for (int i = 0; i < count; ++i) {
            const int id = uvs.uvIds[next++];
            box.u0 = std::min(box.u0, uvs.u[id]);
            box.u1 = std::max(box.u1, uvs.u[id]);
            box.v0 = std::min(box.v0, uvs.v[id]);
            box.v1 = std::max(box.v1, uvs.v[id]);
        }
        boxes.push_back(box);
    }
    return boxes;
}

TEST(UvAtlas, EachFaceHasItsTileAndEachKindOfFaceItsBand) {
    const std::vector<SolidFace> faces = {squareWithHole(0), squareWithHole(10)};
    const SolidTopology topology = solidTopology(faces, beveled(), false);
    const SolidUvs uvs = solidUvs(faces, faceShapes(faces), beveled(), topology, false);
    ASSERT_EQ(uvs.faceUvCounts.size(), topology.faceCounts.size());
    ASSERT_EQ(uvs.u.size(), uvs.v.size());
    const std::vector<Box> boxes = faceBoxes(uvs);
    auto band = [&](const std::vector<int>& faces, float v0, float v1) {
        for (const int f : faces) {
            EXPECT_GE(boxes[f].v0, v0) << f;
            EXPECT_LE(boxes[f].v1, v1) << f;
        }
    };
    band(topology.capFaces, 0.0f, 1.0f / 3);
    band(topology.extrusionFaces, 1.0f / 3, 2.0f / 3);
    band(topology.bevelFaces, 2.0f / 3, 1.0f);
    const int perFace = static_cast<int>(topology.faceCounts.size()) / 2;
    for (int f = 0; f < static_cast<int>(boxes.size()); ++f) {
        const float tile = f < perFace ? 0.0f : 0.5f;
        EXPECT_GE(boxes[f].u0, tile) << f;
        EXPECT_LE(boxes[f].u1, tile + 0.5f) << f;
        // No side face runs back across its tile at a loop's seam.
        if (std::find(topology.capFaces.begin(), topology.capFaces.end(), f) == topology.capFaces.end()) {
            EXPECT_LT(boxes[f].u1 - boxes[f].u0, 0.2f) << f;
        }
    }
    // A cap's holes have uvs too: the front cap of a square with a hole has eight.
    EXPECT_EQ(uvs.faceUvCounts[topology.capFaces[0]], 8);
}

// The uvs of a side face follow its corners: corners of one ring share their v, and corners at
// one outline point (one above the other) share their u, seams included.
TEST(UvAtlas, SideFaceCornersShareVAlongARingAndUAcrossRings) {
    const std::vector<SolidFace> faces = {squareWithHole(0), squareWithHole(10)};
    const SolidTopology topology = solidTopology(faces, beveled(), false);
    const SolidUvs uvs = solidUvs(faces, faceShapes(faces), beveled(), topology, false);
    const std::vector<Point3> points = typetest::pointsOf(faces, beveled());
    std::vector<bool> cap(topology.faceCounts.size(), false);
    for (const int f : topology.capFaces)
        cap[static_cast<std::size_t>(f)] = true;
    std::size_t next = 0;
    std::size_t nextId = 0; // caps take ids for their holes too
    int sides = 0;
    for (std::size_t f = 0; f < topology.faceCounts.size(); ++f) {
        const int count = topology.faceCounts[f];
        const int* corners = topology.faceConnects.data() + next;
        const int* ids = uvs.uvIds.data() + nextId;
        next += static_cast<std::size_t>(count);
        nextId += static_cast<std::size_t>(uvs.faceUvCounts[f]);
        if (cap[f])
            continue;
        ++sides;
        for (int i = 0; i < count; ++i) {
            for (int j = i + 1; j < count; ++j) {
                const Point3 a = points[static_cast<std::size_t>(corners[i])];
                const Point3 b = points[static_cast<std::size_t>(corners[j])];
                if (a.z == b.z) {
                    EXPECT_EQ(uvs.v[ids[i]], uvs.v[ids[j]]) << "face " << f << " corners " << i << ", " << j;
                } else if (std::hypot(a.x - b.x, a.y - b.y) < 0.2) {
                    EXPECT_EQ(uvs.u[ids[i]], uvs.u[ids[j]]) << "face " << f << " corners " << i << ", " << j;
                }
            }
        }
    }
    EXPECT_GT(sides, 0);
}

TEST(UvAtlas, WithoutCapsTheSidesFillTwoRows) {
    const std::vector<SolidFace> faces = {squareWithHole(0)};
    const SolidTopology topology = solidTopology(faces, beveled(), true);
    const std::vector<Box> boxes = faceBoxes(solidUvs(faces, faceShapes(faces), beveled(), topology, true));
    for (const int f : topology.extrusionFaces) {
        EXPECT_GE(boxes[f].v0, 0.0f);
        EXPECT_LE(boxes[f].v1, 0.5f);
    }
    for (const int f : topology.bevelFaces) {
        EXPECT_GE(boxes[f].v0, 0.5f);
        EXPECT_LE(boxes[f].v1, 1.0f);
    }
    for (const Box& box : boxes) {
        EXPECT_GE(box.u0, 0.005f - 1e-6f);
        EXPECT_LE(box.u1, 0.985f + 1e-6f);
    }
}

} // namespace
} // namespace type
