#pragma once

#include "export/ExportStatus.h"

#include <filesystem>
#include <string_view>

namespace oz::exporter {

// Writes `bytes` to `path`, replacing the file. The status names the path and the system's reason when
// the file cannot be created or fully written (missing folder, a folder in the way, disk full).
ExportStatus writeFile(const std::filesystem::path& path, std::string_view bytes);

} // namespace oz::exporter
