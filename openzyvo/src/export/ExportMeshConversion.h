#pragma once

#include "export/ExportMesh.h"

#include <OpenZyvo/ZMatrix.h>
#include <OpenZyvo/ZObject.h>
#include <OpenZyvo/ZStatus.h>
#include <string>
#include <vector>

namespace oz::exporter {

// One mesh as the export writers take it, and for each of its triangles the face it came from.
struct ConvertedMesh {
    ExportMesh mesh;
    std::vector<int> triangleFaces;
};

// Triangulates mesh data (faces with holes cut out) and places it in the world by `toWorld`:
// positions and vertex colours per vertex, normals and "map1" uvs per triangle corner. Under a
// mirroring matrix the triangles are rewound so that they still face outwards. The mesh gets no
// primitives.
ZStatus convertForExport(const ZObject& meshData, const ZMatrix& toWorld, std::string name,
                         ConvertedMesh& out);

} // namespace oz::exporter
