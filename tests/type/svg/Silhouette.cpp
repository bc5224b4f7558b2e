#include "Silhouette.h"

#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZPointArray.h>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>
#include <vector>

namespace type::testing {

namespace {

// Empty regions smaller than this are anti-aliasing specks, not holes.
constexpr int kMinHolePixels = 12;

bool covered(const QImage& mask, int x, int y) {
    return qGray(mask.pixel(x, y)) < 128;
}

int enclosedHoles(const QImage& mask) {
    const int w = mask.width();
    const int h = mask.height();
    std::vector<int> region(static_cast<std::size_t>(w * h), -1);
    int holes = 0;
    std::vector<int> stack;
    int next = 0;
    for (int start = 0; start < w * h; ++start) {
        if (region[start] >= 0 || covered(mask, start % w, start / w))
            continue;
        bool touchesBorder = false;
        int size = 0;
        stack.assign(1, start);
        region[start] = next;
        while (!stack.empty()) {
            const int p = stack.back();
            stack.pop_back();
            ++size;
            const int x = p % w;
            const int y = p / w;
            touchesBorder = touchesBorder || x == 0 || y == 0 || x == w - 1 || y == h - 1;
            const int neighbours[4][2] = {{x - 1, y}, {x + 1, y}, {x, y - 1}, {x, y + 1}};
            for (const auto& n : neighbours) {
                if (n[0] < 0 || n[1] < 0 || n[0] >= w || n[1] >= h)
                    continue;
                const int q = n[1] * w + n[0];
                if (region[q] < 0 && !covered(mask, n[0], n[1])) {
                    region[q] = next;
                    stack.push_back(q);
                }
            }
        }
        ++next;
        if (!touchesBorder && size >= kMinHolePixels)
            ++holes;
    }
    return holes;
}

} // namespace

QImage meshSilhouette(const ZFnMesh& mesh, const QRectF& view, int side) {
    QImage mask(side, side, QImage::Format_RGB32);
    mask.fill(Qt::white);
    ZPointArray points;
    mesh.getPoints(points);
    ZIntArray counts;
    ZIntArray vertices;
    mesh.getTriangles(counts, vertices);
    QPainter painter(&mask);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    const double sx = side / view.width();
    const double sy = side / view.height();
    for (unsigned int i = 0; i + 2 < vertices.length(); i += 3) {
        QPointF triangle[3];
        for (unsigned int j = 0; j < 3; ++j) {
            const ZPoint& p = points[static_cast<unsigned int>(vertices[i + j])];
            triangle[j] = {(p.x - view.left()) * sx, (view.bottom() - p.y) * sy};
        }
        painter.drawPolygon(triangle, 3);
    }
    return mask;
}

std::optional<QImage> referenceSilhouette(const QString& svgFile, int side) {
    QTemporaryDir folder;
    const QString png = folder.filePath("reference.png");
    QProcess renderer;
    renderer.start("rsvg-convert",
                   {"-w", QString::number(side), "-h", QString::number(side), "-o", png, svgFile});
    if (!renderer.waitForFinished(60000) || renderer.exitCode() != 0)
        return std::nullopt;
    const QImage picture(png);
    if (picture.isNull())
        return std::nullopt;
    QImage mask(side, side, QImage::Format_RGB32);
    mask.fill(Qt::white);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            if (qAlpha(picture.pixel(x, y)) >= 128)
                mask.setPixel(x, y, qRgb(0, 0, 0));
    return mask;
}

SilhouetteComparison compareSilhouettes(const QImage& reference, const QImage& mesh) {
    long both = 0;
    long either = 0;
    for (int y = 0; y < reference.height(); ++y) {
        for (int x = 0; x < reference.width(); ++x) {
            const bool a = covered(reference, x, y);
            const bool b = covered(mesh, x, y);
            both += a && b;
            either += a || b;
        }
    }
    return {either == 0 ? 1.0 : static_cast<double>(both) / static_cast<double>(either),
            enclosedHoles(reference), enclosedHoles(mesh)};
}

} // namespace type::testing
