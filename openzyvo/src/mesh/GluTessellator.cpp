#include "mesh/GluTessellator.h"

#include <GL/glu.h>
#include <cmath>
#include <cstdint>
#include <new>

namespace oz::mesh {

namespace {

// GLU refuses coordinates beyond this with GLU_TESS_COORD_TOO_LARGE; checking first keeps that
// error and NaNs (which can derail its sweep) away from it.
constexpr double kMaxCoordinate = 1e150;

void* idPointer(const int32_t* id) {
    return const_cast<int32_t*>(id);
}

} // namespace

struct GluTessellator::Callbacks {
    static GluTessellator& self(void* data) { return *static_cast<GluTessellator*>(data); }

    static void GLAPIENTRY begin(GLenum, void*) {}
    static void GLAPIENTRY edgeFlag(GLboolean, void*) {}
    static void GLAPIENTRY end(void*) {}

    static void GLAPIENTRY vertex(void* vertexData, void* data) {
        GluTessellator& t = self(data);
        t.pending_[t.pendingCount_++] =
            static_cast<int32_t>(static_cast<const int32_t*>(vertexData) - t.firstId_);
        if (t.pendingCount_ == 3) {
            // Crossings snapped to input vertices can leave a triangle with a repeated corner;
            // it covers nothing, so it is dropped.
            const Triangle& p = t.pending_;
            if (p[0] != p[1] && p[1] != p[2] && p[2] != p[0])
                t.out_->push_back(p);
            t.pendingCount_ = 0;
        }
    }

    static void GLAPIENTRY combine(GLdouble[3], void* vertexData[4], GLfloat weight[4], void** outData,
                                   void*) {
        int best = 0;
        for (int i = 1; i < 4; ++i) {
            if (vertexData[i] && weight[i] > weight[best])
                best = i;
        }
        *outData = vertexData[best];
    }

    static void GLAPIENTRY error(GLenum, void* data) { self(data).failed_ = true; }
};

GluTessellator::GluTessellator()
    : tess_(gluNewTess()) {
    if (!tess_)
        throw std::bad_alloc();
    using Callback = void(GLAPIENTRY*)();
    gluTessProperty(tess_, GLU_TESS_WINDING_RULE, GLU_TESS_WINDING_ODD);
    gluTessCallback(tess_, GLU_TESS_BEGIN_DATA, reinterpret_cast<Callback>(&Callbacks::begin));
    gluTessCallback(tess_, GLU_TESS_EDGE_FLAG_DATA, reinterpret_cast<Callback>(&Callbacks::edgeFlag));
    gluTessCallback(tess_, GLU_TESS_VERTEX_DATA, reinterpret_cast<Callback>(&Callbacks::vertex));
    gluTessCallback(tess_, GLU_TESS_END_DATA, reinterpret_cast<Callback>(&Callbacks::end));
    gluTessCallback(tess_, GLU_TESS_COMBINE_DATA, reinterpret_cast<Callback>(&Callbacks::combine));
    gluTessCallback(tess_, GLU_TESS_ERROR_DATA, reinterpret_cast<Callback>(&Callbacks::error));
}

GluTessellator::~GluTessellator() {
    gluDeleteTess(tess_);
}

bool GluTessellator::tessellate(const FaceLoops& faces, std::span<const Point3> points, int32_t face,
                                Vector3 normal, std::vector<Triangle>& out) {
    const auto ids = faces.faceVertices(face);
    for (const int32_t id : ids) {
        const Point3 p = points[id];
        if (!isFinite(p) || std::abs(p.x) > kMaxCoordinate || std::abs(p.y) > kMaxCoordinate ||
            std::abs(p.z) > kMaxCoordinate)
            return false;
    }
    // GLU keeps pointers to the coordinates until the polygon ends, so the buffer is sized once.
    coordinates_.resize(ids.size() * 3);
    out_ = &out;
    firstId_ = ids.data();
    firstOut_ = out.size();
    pendingCount_ = 0;
    failed_ = false;

    gluTessNormal(tess_, normal.x, normal.y, normal.z);
    gluTessBeginPolygon(tess_, this);
    size_t k = 0;
    for (int32_t l = 0; l < faces.faceLoopCount(face); ++l) {
        gluTessBeginContour(tess_);
        for (const int32_t& id : faces.loop(face, l)) {
            double* xyz = &coordinates_[3 * k++];
            xyz[0] = points[id].x;
            xyz[1] = points[id].y;
            xyz[2] = points[id].z;
            gluTessVertex(tess_, xyz, idPointer(&id));
        }
        gluTessEndContour(tess_);
    }
    gluTessEndPolygon(tess_);
    out_ = nullptr;

    if (failed_ || pendingCount_ != 0) {
        out.resize(firstOut_);
        return false;
    }
    return true;
}

} // namespace oz::mesh
