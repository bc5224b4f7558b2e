#pragma once

#include "export/ExportMesh.h"
#include "export/MeshGeometry.h"

#include <array>

namespace oz::exporter {

// A perspective camera aimed at the centre of some bounds from a given direction, placed just far enough
// back that all eight corners of the bounds fit the view with a small margin.
struct PreviewCamera {
    Float3 eye;
    Float3 right, up, back; // orthonormal; the camera looks along -back
    float tanHalfWidth = 0.0f, tanHalfHeight = 0.0f;
    float nearPlane = 0.0f, farPlane = 0.0f;

    // Column-major matrices as OpenGL takes them.
    std::array<float, 16> viewMatrix() const;
    std::array<float, 16> projectionMatrix() const;
};

// `towardEye` points from the bounds to the camera (need not be unit length; must not be vertical);
// `aspect` is the viewport's width over height.
PreviewCamera frameBounds(const Bounds& bounds, const Float3& towardEye, float aspect);

} // namespace oz::exporter
