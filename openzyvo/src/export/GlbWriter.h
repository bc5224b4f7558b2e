#pragma once

#include "export/ExportScene.h"
#include "export/ExportStatus.h"

#include <filesystem>
#include <vector>

namespace oz::exporter {

// glTF 2.0 binary (.glb): one node and one mesh per exported mesh, one primitive per material group, one
// metallic-roughness material per shading engine (base colour from its surface shader, not metallic, fully
// rough). Attributes are POSITION (with bounds), NORMAL, and TEXCOORD_0 and COLOR_0 when the mesh has them.
ExportStatus writeGlb(const ExportScene& scene, const std::filesystem::path& glbPath);

// How far a point of an animated piece may end up from where the frame has it, as a part of the height of
// the scene at the first frame.
inline constexpr double kAnimationTolerance = 1e-5;

// One animated glTF binary from the same scene at several frames (`frameNumbers` name them in messages,
// `seconds` place them in time, increasing). Each vertex group of each mesh, and what of a mesh lies outside
// its groups, becomes a node of its own with its own mesh and materials, in its shape at the first frame,
// moved by translation, rotation and scale channels sampled at every frame. A piece whose points at some
// frame are not a translation, rotation and scale of that shape fails the export, naming the piece and the
// frame; so do frames whose meshes differ in their vertices.
ExportStatus writeAnimatedGlb(const std::vector<ExportScene>& frames, const std::vector<double>& frameNumbers,
                              const std::vector<double>& seconds, const std::filesystem::path& glbPath);

} // namespace oz::exporter
