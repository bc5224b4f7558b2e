#pragma once

#include <OpenZyvo/ZApiExport.h>
#include <OpenZyvo/ZStatus.h>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace ZHost {

enum class MeshFormat { Obj, Stl, Glb, Png };

// From the file's extension (.obj, .stl, .glb, .png, in any case); nothing
// for others.
OZ_API std::optional<MeshFormat> meshFormatOf(const std::string& file);

// The files writing `file` makes: an OBJ file has its material library
// (.mtl) beside it.
OZ_API std::vector<std::string> filesWrittenFor(const std::string& file);

// A PNG preview's size in pixels, both panels together.
struct PreviewSize {
    int width = 0;
    int height = 0;
};

// The size a preview has unless the host asks for another.
OZ_API PreviewSize defaultPreviewSize();

// The sides a preview may have, in pixels; the renderer refuses others.
OZ_API int minPreviewSide();
OZ_API int maxPreviewSide();

// Evaluated meshes with their materials, ready to write.
class OZ_API MeshScene {
public:
    MeshScene();
    ~MeshScene();
    MeshScene(MeshScene&&) noexcept;
    MeshScene& operator=(MeshScene&&) noexcept;

    bool isEmpty() const;

private:
    friend struct MeshSceneAccess;
    struct Data;
    std::unique_ptr<Data> m_data;
};

// Evaluates the named nodes (mesh shapes, or transforms over one) at the
// current time into `scene`. An unknown node or one that is not a mesh is an
// error naming it.
OZ_API ZStatus gatherMeshes(const std::vector<std::string>& nodes, MeshScene& scene);

// Writes the scene in the file's format, making its folder when missing;
// `preview` sizes a PNG. Failures are errors naming the file.
OZ_API ZStatus writeMeshes(const MeshScene& scene, const std::string& file,
                           const PreviewSize& preview = defaultPreviewSize());

// Writes the scene at several frames (`frames`, one scene per frame number in `frameNumbers`) as one
// animated glTF binary: each vertex group of a mesh (a character of a text) is a node of its own, moved by
// translation, rotation and scale channels sampled at every frame. A piece that does not move that way, or
// meshes whose vertices change, are errors naming the piece or the frame; nothing is approximated.
OZ_API ZStatus writeAnimatedMeshes(const std::vector<MeshScene>& frames,
                                   const std::vector<double>& frameNumbers, const std::string& file);

} // namespace ZHost
