#include "ExportTestScene.h"
#include "export/StlWriter.h"

#include <cmath>
#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace oz::exporter::test {
namespace {

std::string readBytes(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

template <class T> T readAt(const std::string& bytes, std::size_t offset) {
    T value;
    std::memcpy(&value, bytes.data() + offset, sizeof(T));
    return value;
}

TEST(StlWriter, WritesEveryTriangleWithUnitFacetNormalsFromTheWinding) {
    TempDirectory dir;
    ExportScene scene = framedSquare();
    ExportMesh second = movedSquare({0.0f, 0.0f, 5.0f}, "second");
    second.normals.assign(second.normals.size(), {1.0f, 0.0f, 0.0f}); // STL ignores the mesh's normals
    scene.meshes.push_back(second);
    ASSERT_TRUE(writeStl(scene, dir / "frame.stl"));

    const std::string bytes = readBytes(dir / "frame.stl");
    ASSERT_GE(bytes.size(), 84u);
    EXPECT_NE(bytes.rfind("solid", 0), 0u) << "a binary file must not look like an ASCII one";
    EXPECT_NE(bytes.substr(0, 80).find("zyvo"), std::string::npos);
    const auto count = readAt<std::uint32_t>(bytes, 80);
    EXPECT_EQ(count, 16u);
    ASSERT_EQ(bytes.size(), 84u + 50u * count);

    for (std::size_t t = 0; t < count; ++t) {
        const std::size_t record = 84 + 50 * t;
        const Float3 normal{readAt<float>(bytes, record), readAt<float>(bytes, record + 4),
                            readAt<float>(bytes, record + 8)};
        EXPECT_NEAR(std::sqrt(normal[0] * normal[0] + normal[1] * normal[1] + normal[2] * normal[2]), 1.0f,
                    1e-6f);
        EXPECT_NEAR(normal[2], 1.0f, 1e-6f) << "triangle " << t << " is counter-clockwise seen from +Z";
        const float z = readAt<float>(bytes, record + 12 + 8);
        EXPECT_EQ(z, t < 8 ? 0.0f : 5.0f) << "triangles are written mesh by mesh";
    }
}

TEST(StlWriter, ReportsUnwritablePath) {
    TempDirectory dir;
    const ExportStatus status = writeStl(framedSquare(), dir / "missing" / "frame.stl");
    EXPECT_EQ(status.code, ExportCode::kWriteFailed);
    EXPECT_NE(status.message.find("frame.stl"), std::string::npos) << status.message;
}

} // namespace
} // namespace oz::exporter::test
