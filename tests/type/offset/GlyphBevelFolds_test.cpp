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

// Every printable ASCII character.
const std::string kPrintable = [] {
    std::string characters;
    for (char c = '!'; c <= '~'; ++c)
        characters += c;
    return characters;
}();

std::vector<Glyph> glyphsOf(const Font& font, const std::string& characters) {
    std::vector<Glyph> glyphs;
    const QRawFont raw = QRawFont::fromFont(QFontDatabase().font(font.family, font.style, kEm));
    if (raw.familyName() != font.family)
        return glyphs;
    for (const char c : characters) {
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

// The glyphs of `fonts` whose bevel strip of some width in `widths` folds.
std::vector<std::string> foldingGlyphs(const std::vector<Font>& fonts, const std::vector<double>& widths,
                                       const Rings& ring, const std::string& characters = kPrintable) {
    std::vector<Glyph> glyphs;
    for (const Font& font : fonts) {
        std::vector<Glyph> more = glyphsOf(font, characters);
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

const Rings distanceField = [](const FaceOutline& face) {
    return [field = DistanceFieldOffset(face, mitres(face), 100)](double d, std::vector<Point2>& out) {
        field.offset(d, out);
    };
};

TEST(GlyphBevelFolds, DistanceFieldBevelsOfEveryPrintableGlyphNeverFold) {
    ASSERT_TRUE(ensureGuiApplication());
    const std::vector<std::string> folding = foldingGlyphs(
        std::vector<Font>(std::begin(kFonts), std::end(kFonts)), {0.01, 0.05, 0.1, 0.2}, distanceField);
    EXPECT_TRUE(folding.empty()) << folding.size() << " folding:\n" << listed(folding);
}

// The lower curve of this S has a point whose two edges the wavefront swung
// almost onto each other within one step; the sampled rings then passed
// through each other between the wavefront's steps.
TEST(GlyphBevelFolds, CornerClosingToASliverStopsBeforeItsQuadsPassThroughEachOther) {
    ASSERT_TRUE(ensureGuiApplication());
    EXPECT_TRUE(foldingGlyphs({{"Liberation Sans", "Regular"}}, {0.2}, distanceField, "S").empty());
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
