#pragma once

#include "../plugin/PluginTesting.h"

#include <OpenZyvoHost/ZHostExport.h>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

namespace typetest {

// Triangles per material of an OBJ export of `node`, by the names the writer gives the materials.
inline std::map<std::string, int> exportedTriangles(const std::string& node) {
    ZHost::MeshScene scene;
    EXPECT_TRUE(ZHost::gatherMeshes({node}, scene));
    const std::filesystem::path file = writeFile(node + ".obj", "");
    EXPECT_TRUE(ZHost::writeMeshes(scene, file.string()));
    std::map<std::string, int> triangles;
    std::ifstream in(file);
    std::string line, material;
    while (std::getline(in, line)) {
        if (line.rfind("usemtl ", 0) == 0)
            material = line.substr(7);
        else if (line.rfind("f ", 0) == 0)
            ++triangles[material];
    }
    return triangles;
}

} // namespace typetest
