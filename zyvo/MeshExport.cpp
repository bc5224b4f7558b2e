#include "MeshExport.h"

#include "export/ExportCollector.h"
#include "export/GlbWriter.h"
#include "export/ObjWriter.h"
#include "export/PreviewRenderer.h"
#include "export/StlWriter.h"
#include "graph/Graph.h"

#include <OpenZyvo/ZGlobal.h>
#include <algorithm>
#include <cctype>
#include <map>

namespace zyvo {

namespace {

void reportError(const std::string& text) {
    ZGlobal::displayError(ZString(text));
}

// The same file however it is spelled: through "..", links or from the
// current folder.
std::filesystem::path resolved(const std::filesystem::path& file) {
    std::error_code error;
    std::filesystem::path path = std::filesystem::weakly_canonical(file, error);
    return error ? std::filesystem::absolute(file, error).lexically_normal() : path;
}

// What writing `file` makes: an OBJ file has its material library beside it.
std::vector<std::filesystem::path> filesWritten(const std::filesystem::path& file) {
    if (exportFormatOf(file) == ExportFormat::Obj)
        return {file, std::filesystem::path(file).replace_extension(".mtl")};
    return {file};
}

} // namespace

std::optional<ExportFormat> exportFormatOf(const std::filesystem::path& file) {
    std::string extension = file.extension().string();
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (extension == ".obj")
        return ExportFormat::Obj;
    if (extension == ".stl")
        return ExportFormat::Stl;
    if (extension == ".glb")
        return ExportFormat::Glb;
    if (extension == ".png")
        return ExportFormat::Png;
    return std::nullopt;
}

ZStatus checkDistinctFiles(const std::vector<std::string>& files) {
    std::map<std::filesystem::path, std::string> writers; // each file written, by the output that writes it
    for (const std::string& file : files) {
        for (const std::filesystem::path& written : filesWritten(file)) {
            const auto [earlier, added] = writers.try_emplace(resolved(written), file);
            if (added)
                continue;
            reportError(resolved(file) == resolved(earlier->second)
                            ? "The output " + file + " is given twice; each output must be a file of its own"
                            : "The outputs " + earlier->second + " and " + file + " would both write " +
                                  written.string() + "; each output must be a file of its own");
            return ZStatus::kInvalidParameter;
        }
    }
    return ZStatus::kSuccess;
}

ZStatus gatherMesh(const std::string& node, oz::exporter::ExportScene& scene) {
    oz::Node* found = oz::Graph::instance().findNode(ZString(node));
    if (!found) {
        reportError("No node is called \"" + node + "\"");
        return ZStatus::kNotFound;
    }
    ZString error;
    const ZStatus status = oz::nodes::collectExportScene({oz::wrapNode(*found)}, scene, &error);
    if (!status)
        reportError("Cannot export \"" + node +
                    "\": " + (error.isEmpty() ? status.errorString() : error).asStdString());
    return status;
}

ZStatus writeMesh(const oz::exporter::ExportScene& scene, const std::filesystem::path& file,
                  const PreviewSize& previewSize) {
    const auto format = exportFormatOf(file);
    if (!format) {
        reportError("Cannot export to " + file.string() + ": use .obj, .stl, .glb or .png");
        return ZStatus::kInvalidParameter;
    }
    if (const auto folder = file.parent_path(); !folder.empty()) {
        std::error_code error;
        std::filesystem::create_directories(folder, error);
    }
    oz::exporter::ExportStatus written;
    switch (*format) {
    case ExportFormat::Obj:
        written = oz::exporter::writeObj(scene, file);
        break;
    case ExportFormat::Stl:
        written = oz::exporter::writeStl(scene, file);
        break;
    case ExportFormat::Glb:
        written = oz::exporter::writeGlb(scene, file);
        break;
    case ExportFormat::Png: {
        oz::exporter::PreviewOptions options;
        options.width = previewSize.width;
        options.height = previewSize.height;
        written = oz::exporter::writePreviewPng(scene, file, options);
        break;
    }
    }
    if (!written) {
        reportError("Cannot export to " + file.string() + ": " + written.message);
        return ZStatus::kFailure;
    }
    return ZStatus::kSuccess;
}

} // namespace zyvo
