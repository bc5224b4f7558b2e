#include "export/PreviewRenderer.h"

#include "export/MaterialGroups.h"
#include "export/MeshGeometry.h"
#include "export/PngFile.h"
#include "export/PreviewCamera.h"
#include "export/SceneValidation.h"

#include <GL/osmesa.h>
#include <memory>
#include <string>

namespace oz::exporter {
namespace {

constexpr int kSupersampling = 2; // OSMesa has no multisampling: render larger, then average

// Directions point from the framed bounds toward the camera; y is up.
constexpr Float3 kThreeQuarterView{0.64f, 0.5f, 0.77f};
constexpr Float3 kFrontView{0.0f, 0.0f, 1.0f};

// Every triangle corner with its own position, normal and shaded colour, ready for one draw call.
struct CornerArrays {
    std::vector<Float3> positions;
    std::vector<Float3> normals;
    std::vector<Float4> colors;
    Bounds bounds;
};

// The preview is opaque: alpha of materials and vertex colours is ignored.
Float4 shadedColor(const Float4& material, const ExportMesh& mesh, std::uint32_t vertex) {
    Float4 color{material[0], material[1], material[2], 1.0f};
    if (!mesh.colors.empty())
        for (std::size_t i = 0; i < 3; ++i)
            color[i] *= mesh.colors[vertex][i];
    return color;
}

CornerArrays cornerArrays(const ExportScene& scene) {
    const GroupedScene grouped = groupByMaterial(scene);
    CornerArrays arrays;
    for (std::size_t m = 0; m < scene.meshes.size(); ++m) {
        const ExportMesh& mesh = scene.meshes[m];
        arrays.bounds.merge(triangleBounds(mesh));
        for (const MaterialGroup& group : grouped.groups[m]) {
            const Float4& base = grouped.materials[group.material].baseColor;
            for (std::uint32_t t : group.triangles)
                for (int c = 0; c < 3; ++c) {
                    const std::uint32_t v = mesh.triangles[t][static_cast<std::size_t>(c)];
                    arrays.positions.push_back(mesh.positions[v]);
                    arrays.normals.push_back(cornerNormal(mesh, t, c));
                    arrays.colors.push_back(shadedColor(base, mesh, v));
                }
        }
    }
    return arrays;
}

struct ContextDeleter {
    void operator()(osmesa_context* context) const { OSMesaDestroyContext(context); }
};
using Context = std::unique_ptr<osmesa_context, ContextDeleter>;

// Lights are placed in eye space (identity model-view), so both panels are lit alike whatever the view.
void setUpLighting() {
    const GLfloat ambient[] = {0.18f, 0.18f, 0.18f, 1.0f};
    const GLfloat keyDirection[] = {-0.4f, 0.6f, 0.7f, 0.0f};
    const GLfloat keyColor[] = {0.75f, 0.75f, 0.75f, 1.0f};
    const GLfloat fillDirection[] = {0.7f, -0.1f, 0.5f, 0.0f};
    const GLfloat fillColor[] = {0.3f, 0.3f, 0.32f, 1.0f};
    const GLfloat black[] = {0.0f, 0.0f, 0.0f, 1.0f};

    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, ambient);
    glLightModeli(GL_LIGHT_MODEL_TWO_SIDE, GL_TRUE); // open meshes show their inside
    glLightfv(GL_LIGHT0, GL_POSITION, keyDirection);
    glLightfv(GL_LIGHT0, GL_DIFFUSE, keyColor);
    glLightfv(GL_LIGHT0, GL_SPECULAR, black);
    glLightfv(GL_LIGHT1, GL_POSITION, fillDirection);
    glLightfv(GL_LIGHT1, GL_DIFFUSE, fillColor);
    glLightfv(GL_LIGHT1, GL_SPECULAR, black);
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
    glEnable(GL_LIGHT1);
    glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
    glEnable(GL_COLOR_MATERIAL);
    glShadeModel(GL_SMOOTH);
    glEnable(GL_DEPTH_TEST);
}

void drawPanel(const CornerArrays& arrays, const Float3& towardEye, int x, int width, int height) {
    glViewport(x, 0, width, height);
    const PreviewCamera camera =
        frameBounds(arrays.bounds, towardEye, static_cast<float>(width) / static_cast<float>(height));
    glMatrixMode(GL_PROJECTION);
    glLoadMatrixf(camera.projectionMatrix().data());
    glMatrixMode(GL_MODELVIEW);
    glLoadMatrixf(camera.viewMatrix().data());
    glDrawArrays(GL_TRIANGLES, 0, static_cast<GLsizei>(arrays.positions.size()));
}

// Averages each block of kSupersampling² RGBA pixels into one RGB pixel.
PreviewImage downsample(const std::vector<std::uint8_t>& rgba, int width, int height) {
    PreviewImage image{width, height,
                       std::vector<std::uint8_t>(static_cast<std::size_t>(width) * height * 3)};
    const std::size_t rowStride = static_cast<std::size_t>(width) * kSupersampling * 4;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            for (int channel = 0; channel < 3; ++channel) {
                int sum = 0;
                for (int sy = 0; sy < kSupersampling; ++sy)
                    for (int sx = 0; sx < kSupersampling; ++sx)
                        sum += rgba[(static_cast<std::size_t>(y) * kSupersampling + sy) * rowStride +
                                    (static_cast<std::size_t>(x) * kSupersampling + sx) * 4 + channel];
                image.rgb[(static_cast<std::size_t>(y) * width + x) * 3 + channel] =
                    static_cast<std::uint8_t>((sum + kSupersampling * kSupersampling / 2) /
                                              (kSupersampling * kSupersampling));
            }
    return image;
}

} // namespace

ExportStatus renderPreview(const ExportScene& scene, const PreviewOptions& options, PreviewImage& image) {
    if (options.width < kMinPreviewSide || options.height < kMinPreviewSide ||
        options.width > kMaxPreviewSide || options.height > kMaxPreviewSide)
        return ExportStatus::failure(ExportCode::kInvalidOptions,
                                     "preview size " + std::to_string(options.width) + "x" +
                                         std::to_string(options.height) + " is outside " +
                                         std::to_string(kMinPreviewSide) + " to " +
                                         std::to_string(kMaxPreviewSide) + " pixels per side");
    if (ExportStatus status = validateScene(scene); !status)
        return status;
    const CornerArrays arrays = cornerArrays(scene);

    const int width = options.width * kSupersampling;
    const int height = options.height * kSupersampling;
    std::vector<std::uint8_t> rgba(static_cast<std::size_t>(width) * height * 4);
    const Context context(OSMesaCreateContextExt(OSMESA_RGBA, 24, 0, 0, nullptr));
    if (!context || !OSMesaMakeCurrent(context.get(), rgba.data(), GL_UNSIGNED_BYTE, width, height))
        return ExportStatus::failure(ExportCode::kRenderFailed, "cannot create an off-screen OpenGL context");
    OSMesaPixelStore(OSMESA_Y_UP, 0);

    setUpLighting();
    glClearColor(options.background[0], options.background[1], options.background[2], 1.0f);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_NORMAL_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, arrays.positions.data());
    glNormalPointer(GL_FLOAT, 0, arrays.normals.data());
    glColorPointer(4, GL_FLOAT, 0, arrays.colors.data());

    const int leftWidth = width / 2;
    drawPanel(arrays, kThreeQuarterView, 0, leftWidth, height);
    drawPanel(arrays, kFrontView, leftWidth, width - leftWidth, height);
    glFinish();
    const bool failed = glGetError() != GL_NO_ERROR;
    OSMesaMakeCurrent(nullptr, nullptr, 0, 0, 0);
    if (failed)
        return ExportStatus::failure(ExportCode::kRenderFailed, "OpenGL reported an error while rendering");

    image = downsample(rgba, options.width, options.height);
    return ExportStatus::success();
}

ExportStatus writePreviewPng(const ExportScene& scene, const std::filesystem::path& pngPath,
                             const PreviewOptions& options) {
    PreviewImage image;
    if (ExportStatus status = renderPreview(scene, options, image); !status)
        return status;
    return writePng(image, pngPath);
}

} // namespace oz::exporter
