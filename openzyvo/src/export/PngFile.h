#pragma once

#include "export/ExportStatus.h"
#include "export/PreviewImage.h"

#include <filesystem>

namespace oz::exporter {

ExportStatus writePng(const PreviewImage& image, const std::filesystem::path& pngPath);

} // namespace oz::exporter
