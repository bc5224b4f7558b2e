#include "TriangleCrossing.h"
#include "layout/GlyphDecomposition.h"
#include "layout/GuiApplication.h"
#include "layout/ParallelTasks.h"
#include "offset/DistanceFieldOffset.h"

#include <QFontDatabase>
#include <QRawFont>
#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <mutex>
#include <string>

namespace type {
namespace {

using testing::Point3;
using testing::Triangle3;
using testing::trianglesCross;

// Glyphs are read at 100 pixels to the em, so 1 unit is 0.01 em.
constexpr int kEm = 100;
// Curves are flattened as in the benchmark workload.
constexpr int kCurveResolution = 4;
// Rings per bevel.
constexpr int kRings = 8;

struct Font {
    const char* family;
    const char* style;
};

const Font kFonts[] = {
    {"DejaVu Sans", "Book"},         {"DejaVu Sans", "Bold"},      {"DejaVu Sans", "Oblique"},
    {"DejaVu Serif", "Book"},        {"DejaVu Serif", "Bold"},     {"DejaVu Serif", "Italic"},
    {"Liberation Sans", "Regular"},  {"Liberation Sans", "Bold"},  {"Liberation Sans", "Italic"},
    {"Liberation Serif", "Regular"}, {"Liberation Serif", "Bold"}, {"Liberation Serif", "Italic"}};

struct Glyph {
    std::string name;
    std::vector<FaceOutline> faces;
};

std::vector<Glyph> printableGlyphs(const Font& font) {
    std::vector<Glyph> glyphs;
    const QRawFont raw = QRawFont::fromFont(QFontDatabase().font(font.family, font.style, kEm));
    if (raw.familyName() != font.family)
        return glyphs;
    for (char c = '!'; c <= '~'; ++c) {
        const QPainterPath path = raw.pathForGlyph(raw.glyphIndexesForString(QString(QChar(c))).value(0));
        Glyph& glyph = glyphs.emplace_back();
        glyph.name = std::string(font.family) + " " + font.style + " '" + c + "'";
        for (const Shape& shape : decomposeGlyphPath(path, kCurveResolution)) {
            FaceOutline& face = glyph.faces.emplace_back();
            face.points = shape.outer;
            face.loopSizes = {static_cast<int>(shape.outer.size())};
            for (const Contour& hole : shape.holes) {
                face.points.insert(face.points.end(), hole.begin(), hole.end());
                face.loopSizes.push_back(static_cast<int>(hole.size()));
            }
        }
    }
    return glyphs;
}

// Gives a face's offset rings: the face's data is built once, then asked per ring.
using Rings = std::function<std::function<void(double, std::vector<Point2>&)>(const FaceOutline&)>;

// The bevel strip of one face: ring k at offset k w / kRings and that depth,
// each ring edge joined to the next ring's as a quad of two triangles.
void appendStrip(const FaceOutline& face, double width, const Rings& ring, std::vector<Triangle3>& out) {
    const auto offset = ring(face);
    std::vector<std::vector<Point2>> rings(kRings + 1);
    for (int k = 0; k <= kRings; ++k)
        offset(width * k / kRings, rings[k]);
    const auto at = [&](int k, int j) {
        return Point3{rings[k][j].x, rings[k][j].y, width * k / kRings};
    };
    int start = 0;
    for (const int size : face.loopSizes) {
        for (int k = 0; k < kRings; ++k)
            for (int i = 0; i < size; ++i) {
                const int j = start + i, next = start + (i + 1) % size;
                out.push_back({at(k, j), at(k, next), at(k + 1, next)});
                out.push_back({at(k, j), at(k + 1, next), at(k + 1, j)});
            }
        start += size;
    }
}

// Pairs of triangles that pass through each other, found by sweeping boxes along x.
int crossings(const std::vector<Triangle3>& triangles) {
    struct Box {
        double min[3];
        double max[3];
    };
    std::vector<Box> boxes(triangles.size());
    std::vector<int> order(triangles.size());
    for (std::size_t t = 0; t < triangles.size(); ++t) {
        for (int axis = 0; axis < 3; ++axis) {
            const auto coordinate = [axis](const Point3& p) {
                return axis == 0 ? p.x : axis == 1 ? p.y : p.z;
            };
            boxes[t].min[axis] = std::min(
                {coordinate(triangles[t][0]), coordinate(triangles[t][1]), coordinate(triangles[t][2])});
            boxes[t].max[axis] = std::max(
                {coordinate(triangles[t][0]), coordinate(triangles[t][1]), coordinate(triangles[t][2])});
        }
        order[t] = static_cast<int>(t);
    }
    std::sort(order.begin(), order.end(), [&](int a, int b) { return boxes[a].min[0] < boxes[b].min[0]; });
    int found = 0;
    for (std::size_t i = 0; i < order.size(); ++i) {
        const Box& a = boxes[order[i]];
        for (std::size_t j = i + 1; j < order.size() && boxes[order[j]].min[0] <= a.max[0]; ++j) {
            const Box& b = boxes[order[j]];
            if (b.min[1] > a.max[1] || b.max[1] < a.min[1] || b.min[2] > a.max[2] || b.max[2] < a.min[2])
                continue;
            found += trianglesCross(triangles[order[i]], triangles[order[j]]);
        }
    }
    return found;
}

// The glyphs of `fonts` whose bevel strip of some width in `widths` folds.
std::vector<std::string> foldingGlyphs(const std::vector<Font>& fonts, const std::vector<double>& widths,
                                       const Rings& ring) {
    std::vector<Glyph> glyphs;
    for (const Font& font : fonts) {
        std::vector<Glyph> more = printableGlyphs(font);
        EXPECT_FALSE(more.empty()) << font.family << " " << font.style << " is not installed";
        std::move(more.begin(), more.end(), std::back_inserter(glyphs));
    }
    std::vector<std::string> folding;
    std::mutex lock;
    runInParallel(glyphs.size(), [&](std::size_t g) {
        for (const double width : widths) {
            std::vector<Triangle3> strip;
            for (const FaceOutline& face : glyphs[g].faces)
                appendStrip(face, width * kEm, ring, strip);
            if (const int count = crossings(strip)) {
                const std::lock_guard guard(lock);
                folding.push_back(glyphs[g].name + " at " + std::to_string(width) +
                                  " em: " + std::to_string(count));
            }
        }
    });
    std::sort(folding.begin(), folding.end());
    return folding;
}

std::string listed(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names)
        text += name + "\n";
    return text;
}

TEST(GlyphBevelFolds, DistanceFieldBevelsOfEveryPrintableGlyphNeverFold) {
    ASSERT_TRUE(ensureGuiApplication());
    const Rings distanceField = [](const FaceOutline& face) {
        return [field = DistanceFieldOffset(face, mitres(face), 100)](double d, std::vector<Point2>& out) {
            field.offset(d, out);
        };
    };
    const std::vector<std::string> folding = foldingGlyphs(
        std::vector<Font>(std::begin(kFonts), std::end(kFonts)), {0.01, 0.05, 0.1, 0.2}, distanceField);
    EXPECT_TRUE(folding.empty()) << folding.size() << " folding:\n" << listed(folding);
}

TEST(GlyphBevelFolds, PlainMitreBevelsOfWideBevelsFoldSoTheCheckBites) {
    ASSERT_TRUE(ensureGuiApplication());
    const Rings plainMitre = [](const FaceOutline& face) {
        return [&face, found = mitres(face)](double d, std::vector<Point2>& out) {
            out.resize(face.points.size());
            for (std::size_t j = 0; j < out.size(); ++j)
                out[j] = {face.points[j].x + found[j].direction.x * d / found[j].sine,
                          face.points[j].y + found[j].direction.y * d / found[j].sine};
        };
    };
    const std::vector<std::string> narrow = foldingGlyphs({kFonts[0]}, {0.01}, plainMitre);
    const std::vector<std::string> wide = foldingGlyphs({kFonts[0]}, {0.2}, plainMitre);
    EXPECT_GT(wide.size(), 40u) << listed(wide);
    EXPECT_LT(narrow.size(), wide.size());
}

} // namespace
} // namespace type
