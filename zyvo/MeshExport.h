#pragma once

#include "export/ExportScene.h"

#include <OpenZyvo/ZStatus.h>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace zyvo {

enum class ExportFormat { Obj, Stl, Glb, Png };

// From the extension (.obj, .stl, .glb, .png, in any case); nothing for others.
std::optional<ExportFormat> exportFormatOf(const std::filesystem::path& file);

// Refuses, with an error, files of which one would overwrite what an earlier
// one writes: the same path, however spelled, or the material library of an
// OBJ file.
ZStatus checkDistinctFiles(const std::vector<std::string>& files);

struct PreviewSize {
    int width = 1024;
    int height = 512;
};

// Evaluates the mesh node (a mesh shape, or a transform over one) at the
// current time as an export scene.
ZStatus gatherMesh(const std::string& node, oz::exporter::ExportScene& scene);

// Writes the scene in the file's format, making its folder when missing.
ZStatus writeMesh(const oz::exporter::ExportScene& scene, const std::filesystem::path& file,
                  const PreviewSize& previewSize);

} // namespace zyvo
