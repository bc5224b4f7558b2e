#include "export/ExportCollector.h"
#include "export/GlbWriter.h"
#include "export/ObjWriter.h"
#include "export/PreviewRenderer.h"
#include "export/StlWriter.h"
#include "graph/Graph.h"
#include "host/MeshSceneData.h"

#include <OpenZyvo/ZGlobal.h>
#include <OpenZyvo/ZTime.h>
#include <algorithm>
#include <cctype>
#include <filesystem>

namespace ZHost {

namespace {

void reportError(const std::string& text) {
    ZGlobal::displayError(ZString(text));
}

} // namespace

struct MeshSceneAccess {
    // A moved-from scene writes as an empty one.
    static const oz::exporter::ExportScene& meshes(const MeshScene& scene) {
        static const oz::exporter::ExportScene empty;
        return scene.m_data ? scene.m_data->scene : empty;
    }
    static oz::exporter::ExportScene& meshes(MeshScene& scene) { return scene.m_data->scene; }
};

std::optional<MeshFormat> meshFormatOf(const std::string& file) {
    std::string extension = std::filesystem::path(file).extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (extension == ".obj")
        return MeshFormat::Obj;
    if (extension == ".stl")
        return MeshFormat::Stl;
    if (extension == ".glb")
        return MeshFormat::Glb;
    if (extension == ".png")
        return MeshFormat::Png;
    return std::nullopt;
}

std::vector<std::string> filesWrittenFor(const std::string& file) {
    if (meshFormatOf(file) == MeshFormat::Obj)
        return {file, std::filesystem::path(file).replace_extension(".mtl").string()};
    return {file};
}

PreviewSize defaultPreviewSize() {
    const oz::exporter::PreviewOptions options;
    return {options.width, options.height};
}

int minPreviewSide() {
    return oz::exporter::kMinPreviewSide;
}

int maxPreviewSide() {
    return oz::exporter::kMaxPreviewSide;
}

ZStatus gatherMeshes(const std::vector<std::string>& nodes, MeshScene& scene) {
    std::vector<ZObject> objects;
    for (const std::string& node : nodes) {
        oz::Node* found = oz::Graph::instance().findNode(ZString(node));
        if (!found) {
            reportError("No node is called \"" + node + "\"");
            return ZStatus::kNotFound;
        }
        objects.push_back(oz::wrapNode(*found));
    }
    MeshScene gathered;
    ZString error;
    const ZStatus status =
        oz::exporter::collectExportScene(objects, MeshSceneAccess::meshes(gathered), &error);
    if (!status) {
        std::string names;
        for (const std::string& node : nodes)
            names += (names.empty() ? "\"" : ", \"") + node + "\"";
        reportError("Cannot export " + names + ": " +
                    (error.isEmpty() ? status.errorString() : error).asStdString());
        return status;
    }
    scene = std::move(gathered);
    return ZStatus::kSuccess;
}

ZStatus writeMeshes(const MeshScene& scene, const std::string& file, const PreviewSize& preview) {
    const auto format = meshFormatOf(file);
    if (!format) {
        reportError("Cannot export to " + file + ": use .obj, .stl, .glb or .png");
        return ZStatus::kInvalidParameter;
    }
    const std::filesystem::path path(file);
    if (const auto folder = path.parent_path(); !folder.empty()) {
        std::error_code error;
        std::filesystem::create_directories(folder, error);
    }
    const oz::exporter::ExportScene& meshes = MeshSceneAccess::meshes(scene);
    oz::exporter::ExportStatus written;
    switch (*format) {
    case MeshFormat::Obj:
        written = oz::exporter::writeObj(meshes, path);
        break;
    case MeshFormat::Stl:
        written = oz::exporter::writeStl(meshes, path);
        break;
    case MeshFormat::Glb:
        written = oz::exporter::writeGlb(meshes, path);
        break;
    case MeshFormat::Png: {
        oz::exporter::PreviewOptions options;
        options.width = preview.width;
        options.height = preview.height;
        written = oz::exporter::writePreviewPng(meshes, path, options);
        break;
    }
    }
    if (!written) {
        reportError("Cannot export to " + file + ": " + written.message);
        return ZStatus::kFailure;
    }
    return ZStatus::kSuccess;
}

ZStatus writeAnimatedMeshes(const std::vector<MeshScene>& frames, const std::vector<double>& frameNumbers,
                            const std::string& file) {
    if (meshFormatOf(file) != MeshFormat::Glb) {
        reportError("Cannot write an animation to " + file + ": use .glb");
        return ZStatus::kInvalidParameter;
    }
    const std::filesystem::path path(file);
    if (const auto folder = path.parent_path(); !folder.empty()) {
        std::error_code error;
        std::filesystem::create_directories(folder, error);
    }
    std::vector<oz::exporter::ExportScene> scenes;
    std::vector<double> seconds;
    for (std::size_t f = 0; f < frames.size(); ++f) {
        scenes.push_back(MeshSceneAccess::meshes(frames[f]));
        seconds.push_back(f < frameNumbers.size() ? ZTime(frameNumbers[f]).as(ZTime::kSeconds) : 0.0);
    }
    const oz::exporter::ExportStatus written =
        oz::exporter::writeAnimatedGlb(scenes, frameNumbers, seconds, path);
    if (!written) {
        reportError("Cannot export to " + file + ": " + written.message);
        return ZStatus::kFailure;
    }
    return ZStatus::kSuccess;
}

} // namespace ZHost
