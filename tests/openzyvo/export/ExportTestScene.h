#pragma once

#include "export/ExportScene.h"

#include <filesystem>

namespace oz::exporter::test {

inline constexpr Float4 kRed{0.8f, 0.1f, 0.1f, 1.0f};
inline constexpr Float4 kBlue{0.1f, 0.2f, 0.9f, 1.0f};

// A 4 x 4 square with a 2 x 2 hole in the plane z = 0, facing +Z: the ring of eight triangles a cap with
// one hole becomes. Triangles 0-1 are the bottom side, 2-3 right, 4-5 top, 6-7 left; the left and bottom
// sides use material 0 (red), the right and top sides material 1 (blue). Per-corner normals and UVs.
ExportScene framedSquare();

// The square's mesh moved by `offset`, named `name`, with the same primitives.
ExportMesh movedSquare(const Float3& offset, const std::string& name);

// A fresh directory under the system's temporary folder, removed with everything in it at scope exit.
class TempDirectory {
public:
    TempDirectory();
    ~TempDirectory();
    TempDirectory(const TempDirectory&) = delete;
    TempDirectory& operator=(const TempDirectory&) = delete;

    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

} // namespace oz::exporter::test
