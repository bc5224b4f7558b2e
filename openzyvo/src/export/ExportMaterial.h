#pragma once

#include <array>
#include <string>

namespace oz::exporter {

// A shading engine as the writers see it: its name and the colour of its surface shader.
struct ExportMaterial {
    std::string name;
    std::array<float, 4> baseColor{0.5f, 0.5f, 0.5f, 1.0f}; // linear RGBA
};

// Faces bound to no shading engine are written with this material.
inline ExportMaterial defaultMaterial() {
    return {"zyvoDefaultGrey", {0.5f, 0.5f, 0.5f, 1.0f}};
}

} // namespace oz::exporter
