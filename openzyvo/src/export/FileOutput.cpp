#include "export/FileOutput.h"

#include <cerrno>
#include <cstring>
#include <fstream>

namespace oz::exporter {
namespace {

ExportStatus failed(const char* what, const std::filesystem::path& path) {
    const int error = errno;
    std::string message = std::string(what) + " '" + path.string() + "'";
    if (error != 0)
        message += ": " + std::string(std::strerror(error));
    return ExportStatus::failure(ExportCode::kWriteFailed, message);
}

} // namespace

ExportStatus writeFile(const std::filesystem::path& path, std::string_view bytes) {
    errno = 0;
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    if (!stream)
        return failed("cannot create", path);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream)
        return failed("cannot write", path);
    return ExportStatus::success();
}

} // namespace oz::exporter
