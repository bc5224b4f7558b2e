#include "export/PngFile.h"

#include "export/FileOutput.h"

#include <png.h>

namespace oz::exporter {

ExportStatus writePng(const PreviewImage& image, const std::filesystem::path& pngPath) {
    if (image.width <= 0 || image.height <= 0 ||
        image.rgb.size() !=
            static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height) * 3)
        return ExportStatus::failure(ExportCode::kInvalidOptions,
                                     "cannot write an empty or malformed image to '" + pngPath.string() +
                                         "'");

    png_image png{};
    png.version = PNG_IMAGE_VERSION;
    png.width = static_cast<png_uint_32>(image.width);
    png.height = static_cast<png_uint_32>(image.height);
    png.format = PNG_FORMAT_RGB;

    // Encoded in memory so that file errors are reported like those of the other writers.
    png_alloc_size_t size = 0;
    if (!png_image_write_get_memory_size(png, size, 0, image.rgb.data(), 0, nullptr))
        return ExportStatus::failure(ExportCode::kWriteFailed,
                                     "cannot encode '" + pngPath.string() + "': " + png.message);
    std::vector<char> encoded(size);
    if (!png_image_write_to_memory(&png, encoded.data(), &size, 0, image.rgb.data(), 0, nullptr))
        return ExportStatus::failure(ExportCode::kWriteFailed,
                                     "cannot encode '" + pngPath.string() + "': " + png.message);
    return writeFile(pngPath, std::string_view(encoded.data(), size));
}

} // namespace oz::exporter
