#pragma once

#include "mesh/FaceLoops.h"
#include "mesh/Triangle.h"
#include "mesh/Vec3.h"

#include <span>
#include <vector>

struct GLUtesselator;

namespace oz::mesh {

// One GLU tessellator set up to cut a face with holes into triangles: odd winding, so holes stay
// open whichever way they wind, and an edge-flag callback, which makes GLU emit plain triangles
// instead of fans and strips. Not thread-safe; keep one per thread and reuse it across faces.
class GluTessellator {
public:
    GluTessellator();
    ~GluTessellator();
    GluTessellator(const GluTessellator&) = delete;
    GluTessellator& operator=(const GluTessellator&) = delete;

    // Appends the triangles of `face` to `out` as indices into the face's vertex list (outer loop,
    // then holes), so that a translated copy of the face can reuse them; wound counter-clockwise
    // about `normal` (pass the zero vector to let GLU find the plane). Returns false and appends
    // nothing when GLU rejects the input. Where loops cross, GLU's new vertices snap to the nearest
    // input vertex, as a triangle may only use the face's own vertices.
    bool tessellate(const FaceLoops& faces, std::span<const Point3> points, int32_t face, Vector3 normal,
                    std::vector<Triangle>& out);

private:
    struct Callbacks;

    GLUtesselator* tess_;
    std::vector<double> coordinates_;
    std::vector<Triangle>* out_ = nullptr;
    const int32_t* firstId_ = nullptr;
    size_t firstOut_ = 0;
    Triangle pending_{};
    int pendingCount_ = 0;
    bool failed_ = false;
};

} // namespace oz::mesh
