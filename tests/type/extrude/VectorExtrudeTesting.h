#pragma once

#include "ExtrudeNodeTesting.h"

#include <OpenZyvo/ZFloatArray.h>
#include <algorithm>
#include <string>
#include <vector>

// Three unit-high faces in the plane z = 0, seen from +z: a unit square at
// x 0..1, a narrow face at x 3..3.2 and a unit square at x 5..6, in a mesh
// shape that feeds vectorExtrude1.
namespace typetest {

inline const char* const kThreeFaces = R"(createNode transform -n "faces";
createNode mesh -n "facesShape" -p "faces";
setAttr -type "mesh" facesShape.inMesh
    12  0 0 0  1 0 0  1 1 0  0 1 0  3 0 0  3.2 0 0  3.2 1 0  3 1 0  5 0 0  6 0 0  6 1 0  5 1 0
    3  1 4 0 1 2 3  1 4 4 5 6 7  1 4 8 9 10 11;
createNode vectorExtrude -n "vectorExtrude1";
connectAttr facesShape.outMesh vectorExtrude1.inputMesh;
)";

// What a solid is, as far as a node's outputs tell it (the character groups
// apart: their ids come from the scene's free group ids).
struct SolidSnapshot {
    std::vector<ZPoint> points;
    std::vector<int> faceCounts;
    std::vector<int> faceConnects;
    std::vector<int> holeInfo;
    std::vector<int> holeVertices;
    std::vector<float> u;
    std::vector<float> v;
    std::vector<int> uvCounts;
    std::vector<int> uvIds;
    std::vector<std::vector<int>> components; // cap, bevel, extrusion
    bool operator==(const SolidSnapshot&) const = default;
};

class VectorExtrudeTest : public TypePluginTest {
protected:
    static void runAll(const std::string& script) {
        for (std::size_t start = 0; start < script.size();) {
            const std::size_t end = script.find(";\n", start);
            const std::string command = script.substr(start, end - start);
            ASSERT_TRUE(run(command)) << command;
            start = end == std::string::npos ? script.size() : end + 2;
        }
    }

    static ZObject meshOf(const std::string& node) {
        ZObject data;
        EXPECT_TRUE(plugNamed(node, "outputMesh").getValue(data)) << node;
        return data;
    }

    static std::vector<int> componentFaces(const std::string& node, const std::string& list) {
        ZObject data;
        EXPECT_TRUE(plugNamed(node, list).getValue(data)) << list;
        std::vector<int> faces;
        if (data.isNull())
            return faces;
        const ZFnComponentListData components(data);
        for (unsigned int i = 0; i < components.length(); ++i) {
            ZIntArray elements;
            ZFnSingleIndexedComponent(components[i]).getElements(elements);
            faces.insert(faces.end(), elements.begin(), elements.end());
        }
        return faces;
    }

    static SolidSnapshot snapshot(const std::string& node) {
        SolidSnapshot s;
        const ZFnMesh mesh(meshOf(node));
        ZPointArray points;
        mesh.getPoints(points);
        s.points = points.asVector();
        ZIntArray counts, connects, holeInfo, holeVertices, uvCounts, uvIds;
        mesh.getVertices(counts, connects);
        mesh.getHoles(holeInfo, holeVertices);
        ZFloatArray u, v;
        mesh.getUVs(u, v);
        mesh.getAssignedUVs(uvCounts, uvIds);
        s.faceCounts = counts.asVector();
        s.faceConnects = connects.asVector();
        s.holeInfo = holeInfo.asVector();
        s.holeVertices = holeVertices.asVector();
        s.u = u.asVector();
        s.v = v.asVector();
        s.uvCounts = uvCounts.asVector();
        s.uvIds = uvIds.asVector();
        for (const char* list : {"capComponents", "bevelComponents", "extrusionComponents"})
            s.components.push_back(componentFaces(node, list));
        return s;
    }

    // The points built from input face `face` of kThreeFaces, every face
    // having the same number of them.
    static std::vector<ZPoint> facePoints(const std::string& node, int face, int faces = 3) {
        const std::vector<ZPoint> all = snapshot(node).points;
        const std::size_t each = all.size() / static_cast<std::size_t>(faces);
        return {all.begin() + static_cast<long>(each * face),
                all.begin() + static_cast<long>(each * (face + 1))};
    }

    static double depth(const std::vector<ZPoint>& points) {
        const auto [low, high] = std::minmax_element(
            points.begin(), points.end(), [](const ZPoint& a, const ZPoint& b) { return a.z < b.z; });
        return high->z - low->z;
    }
};

} // namespace typetest
