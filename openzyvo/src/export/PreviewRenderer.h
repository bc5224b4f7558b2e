#pragma once

#include "export/ExportScene.h"
#include "export/ExportStatus.h"
#include "export/PreviewImage.h"

#include <filesystem>

namespace oz::exporter {

// The sides a preview may have, in pixels; the renderer refuses others.
inline constexpr int kMinPreviewSide = 16;
inline constexpr int kMaxPreviewSide = 4096;

struct PreviewOptions {
    int width = 1024; // both panels together
    int height = 512;
    Float3 background{0.93f, 0.93f, 0.94f};
};

// Renders the scene off-screen (software OpenGL, no display needed) as two panels side by side: a
// three-quarter view from the front, right and above, and a front view. Each panel frames the bounds of
// all meshes; surfaces are Lambert-shaded in their material colour (times any vertex colour) under a key
// and a fill light.
ExportStatus renderPreview(const ExportScene& scene, const PreviewOptions& options, PreviewImage& image);

// renderPreview, then the image as an RGB PNG file.
ExportStatus writePreviewPng(const ExportScene& scene, const std::filesystem::path& pngPath,
                             const PreviewOptions& options = {});

} // namespace oz::exporter
