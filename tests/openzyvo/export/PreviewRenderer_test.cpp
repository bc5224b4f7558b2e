#include "ExportTestScene.h"
#include "export/PreviewRenderer.h"

#include <gtest/gtest.h>
#include <png.h>

namespace oz::exporter::test {
namespace {

PreviewImage readPng(const std::filesystem::path& path) {
    png_image png{};
    png.version = PNG_IMAGE_VERSION;
    PreviewImage image;
    if (!png_image_begin_read_from_file(&png, path.string().c_str())) {
        ADD_FAILURE() << png.message;
        return image;
    }
    png.format = PNG_FORMAT_RGB;
    image.width = static_cast<int>(png.width);
    image.height = static_cast<int>(png.height);
    image.rgb.resize(PNG_IMAGE_SIZE(png));
    EXPECT_TRUE(png_image_finish_read(&png, nullptr, image.rgb.data(), 0, nullptr)) << png.message;
    return image;
}

using Rgb = std::array<int, 3>;

Rgb at(const PreviewImage& image, int x, int y) {
    const std::uint8_t* p = image.pixel(x, y);
    return {p[0], p[1], p[2]};
}

// The runs of non-background pixels along one row of one panel, as (first x, last x).
std::vector<std::pair<int, int>> shapeRuns(const PreviewImage& image, int y, int x0, int x1,
                                           const Rgb& background) {
    std::vector<std::pair<int, int>> runs;
    for (int x = x0; x < x1; ++x) {
        if (at(image, x, y) == background)
            continue;
        if (runs.empty() || runs.back().second != x - 1)
            runs.emplace_back(x, x);
        else
            runs.back().second = x;
    }
    return runs;
}

bool reddish(const Rgb& c) {
    return c[0] > c[2] + 60;
}
bool bluish(const Rgb& c) {
    return c[2] > c[0] + 60;
}

TEST(PreviewRenderer, FrontPanelShowsTheRingInItsMaterialColoursAroundABackgroundHole) {
    TempDirectory dir;
    ASSERT_TRUE(writePreviewPng(framedSquare(), dir / "frame.png"));
    const PreviewImage image = readPng(dir / "frame.png");
    ASSERT_EQ(image.width, 1024);
    ASSERT_EQ(image.height, 512);

    const Rgb background = at(image, 0, 0);
    EXPECT_GT(background[0], 200) << "light background";
    for (const auto& [x, y] : {std::pair{1023, 0}, {0, 511}, {1023, 511}, {512, 0}, {511, 511}})
        EXPECT_EQ(at(image, x, y), background) << x << "," << y;

    // The front panel is the right half; its middle row crosses left bar, hole, right bar.
    const int middle = 256;
    EXPECT_EQ(at(image, 768, middle), background) << "the hole shows the background";
    const auto runs = shapeRuns(image, middle, 512, 1024, background);
    ASSERT_EQ(runs.size(), 2u);
    const Rgb left = at(image, (runs[0].first + runs[0].second) / 2, middle);
    const Rgb right = at(image, (runs[1].first + runs[1].second) / 2, middle);
    EXPECT_TRUE(reddish(left)) << left[0] << " " << left[1] << " " << left[2];
    EXPECT_TRUE(bluish(right)) << right[0] << " " << right[1] << " " << right[2];
    EXPECT_GT(runs[1].second - runs[0].first, 512 * 3 / 4) << "the bounds fill most of the panel";

    // Framing is centred: the outer edges sit equally far from the panel's sides.
    EXPECT_NEAR(runs[0].first - 512, 1023 - runs[1].second, 3);
}

TEST(PreviewRenderer, ThreeQuarterPanelShowsTheShapeAndMaterialsDiffer) {
    PreviewImage image;
    ASSERT_TRUE(renderPreview(framedSquare(), {256, 128, {1.0f, 1.0f, 1.0f}}, image));
    ASSERT_EQ(image.rgb.size(), 256u * 128u * 3u);

    const Rgb white{255, 255, 255};
    int red = 0, blue = 0, covered = 0;
    for (int y = 0; y < 128; ++y)
        for (int x = 0; x < 128; ++x) {
            const Rgb c = at(image, x, y);
            covered += c != white;
            red += reddish(c);
            blue += bluish(c);
        }
    EXPECT_GT(covered, 128 * 128 / 10);
    EXPECT_GT(red, 100);
    EXPECT_GT(blue, 100);
    EXPECT_EQ(at(image, 64, 64), white) << "the hole is in the middle of the panel";
}

TEST(PreviewRenderer, RejectsBadSizesEmptyScenesAndUnwritablePaths) {
    PreviewImage image;
    EXPECT_EQ(renderPreview(framedSquare(), {0, 512, {}}, image).code, ExportCode::kInvalidOptions);
    EXPECT_EQ(renderPreview(framedSquare(), {100000, 512, {}}, image).code, ExportCode::kInvalidOptions);
    EXPECT_EQ(renderPreview(ExportScene{}, {}, image).code, ExportCode::kEmptyScene);

    TempDirectory dir;
    const ExportStatus status = writePreviewPng(framedSquare(), dir / "missing" / "frame.png");
    EXPECT_EQ(status.code, ExportCode::kWriteFailed);
    EXPECT_NE(status.message.find("frame.png"), std::string::npos) << status.message;
}

} // namespace
} // namespace oz::exporter::test
