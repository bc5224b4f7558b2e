#include "LayoutTesting.h"
#include "fonts/FontFace.h"
#include "geometry/ParityNesting.h"
#include "layout/GuiApplication.h"
#include "layout/LegacyPath.h"
#include "layout/PreLayoutPath.h"
#include "layout/TextLayoutPath.h"

#include <QFont>
#include <QRawFont>
#include <array>
#include <cmath>
#include <gtest/gtest.h>

#include FT_OUTLINE_H

namespace type {
namespace {

// Every decomposition path must keep a glyph's filled area within 1 % of the
// font's own outline, measured independently of any flattening: Green's
// theorem, area = 1/2 of the closed integral of (x dy - y dx), over FreeType's
// lines, conics and cubics. The integrand of a cubic is a polynomial of degree
// 5, which three-point Gauss-Legendre quadrature integrates exactly.
class GreenArea {
public:
    static double of(FT_Face face, FT_UInt glyph) {
        if (FT_Load_Glyph(face, glyph, FT_LOAD_NO_SCALE) != 0)
            return -1.0;
        static const FT_Outline_Funcs funcs{moveTo, lineTo, conicTo, cubicTo, 0, 0};
        GreenArea area;
        FT_Outline_Decompose(&face->glyph->outline, &funcs, &area);
        return std::abs(area.m_twiceArea) * 0.5;
    }

private:
    using P = std::array<double, 2>;

    static P point(const FT_Vector* v) { return {static_cast<double>(v->x), static_cast<double>(v->y)}; }
    static GreenArea& of(void* user) { return *static_cast<GreenArea*>(user); }

    // The integral over t in [0, 1] of x y' - y x' for a Bézier curve.
    template <std::size_t N> void addCurve(const std::array<P, N>& c) {
        static constexpr double nodes[] = {0.5 - 0.3872983346207417, 0.5, 0.5 + 0.3872983346207417};
        static constexpr double weights[] = {5.0 / 18.0, 8.0 / 18.0, 5.0 / 18.0};
        for (int q = 0; q < 3; ++q) {
            const double t = nodes[q];
            std::array<P, N> points = c;
            std::array<P, N - 1> derivative{};
            for (std::size_t i = 0; i + 1 < N; ++i)
                derivative[i] = {(N - 1.0) * (c[i + 1][0] - c[i][0]), (N - 1.0) * (c[i + 1][1] - c[i][1])};
            const P at = deCasteljau(points, t);
            const P tangent = deCasteljau(derivative, t);
            m_twiceArea += weights[q] * (at[0] * tangent[1] - at[1] * tangent[0]);
        }
        m_last = c[N - 1];
    }

    template <std::size_t N> static P deCasteljau(std::array<P, N> points, double t) {
        for (std::size_t level = N - 1; level > 0; --level) {
            for (std::size_t i = 0; i < level; ++i)
                points[i] = {points[i][0] + (points[i + 1][0] - points[i][0]) * t,
                             points[i][1] + (points[i + 1][1] - points[i][1]) * t};
        }
        return points[0];
    }

    static int moveTo(const FT_Vector* to, void* user) {
        of(user).m_last = point(to);
        return 0;
    }
    static int lineTo(const FT_Vector* to, void* user) {
        of(user).addCurve<2>({of(user).m_last, point(to)});
        return 0;
    }
    static int conicTo(const FT_Vector* c, const FT_Vector* to, void* user) {
        of(user).addCurve<3>({of(user).m_last, point(c), point(to)});
        return 0;
    }
    static int cubicTo(const FT_Vector* c1, const FT_Vector* c2, const FT_Vector* to, void* user) {
        of(user).addCurve<4>({of(user).m_last, point(c1), point(c2), point(to)});
        return 0;
    }

    P m_last{};
    double m_twiceArea = 0.0;
};

double capArea(const std::vector<Shape>& shapes, double holeShrink) {
    double area = 0.0;
    for (const Shape& shape : shapes) {
        area += std::abs(signedArea(shape.outer));
        for (const Contour& hole : shape.holes)
            area -= std::abs(signedArea(hole)) / (holeShrink * holeShrink);
    }
    return area;
}

// The box rule also attaches a hole to any other face whose box holds it, as
// the slash of a '%' does; only the face the hole lies in loses its area.
double capArea(const CapFacePlan& plan) {
    double area = 0.0;
    for (const Contour& face : plan.faces)
        area += std::abs(signedArea(face));
    for (const PlannedHole& hole : plan.holes) {
        if (containsEvenOdd(plan.faces[hole.face], hole.points[0]))
            area -= std::abs(signedArea(hole.points));
    }
    return area;
}

struct Font {
    const char* family;
    const char* style;
};

class GlyphFidelity : public ::testing::TestWithParam<Font> {
protected:
    void SetUp() override {
        ASSERT_TRUE(ensureGuiApplication());
        const std::string file = testing::fontFile(GetParam().family, GetParam().style);
        ASSERT_FALSE(file.empty()) << GetParam().family;
        auto loaded = FontFace::load(ZString(file), 0);
        ASSERT_TRUE(std::holds_alternative<FontFace>(loaded));
        m_face.emplace(std::move(std::get<FontFace>(loaded)));

        std::u16string text;
        for (char16_t c = 0x21; c <= 0x7e; ++c) {
            m_characters.push_back(c);
            text += c;
            text += u'\n';
        }
        m_settings = testing::settingsFor(GetParam().family, GetParam().style, text);
        m_settings.curveResolution = 8;
    }

    // Expects the areas, in outline units, of each printable ASCII character
    // to match the font's outline drawn at `pixelsPerEm`.
    void expectAreas(const std::vector<double>& areas, double pixelsPerEm, const char* path) {
        ASSERT_EQ(areas.size(), m_characters.size()) << path;
        FT_Face face = m_face->face();
        const double scale = pixelsPerEm / face->units_per_EM;
        for (std::size_t i = 0; i < areas.size(); ++i) {
            const double expected =
                GreenArea::of(face, FT_Get_Char_Index(face, m_characters[i])) * scale * scale;
            EXPECT_NEAR(areas[i], expected, expected * 0.01)
                << path << " '" << static_cast<char>(m_characters[i]) << "'";
        }
    }

    // Character i stands on line i, each line fontSize high.
    void expectOneCharacterPerLine(const LayoutResult& result, const char* path) {
        ASSERT_EQ(result.boxMin.size(), m_characters.size()) << path;
        for (std::size_t i = 0; i < result.boxMin.size(); ++i) {
            const double baseline = -static_cast<double>(i) * m_settings.fontSize;
            EXPECT_GT(result.boxMin[i].y, baseline - 0.4 * m_settings.fontSize) << path << " line " << i;
            EXPECT_LT(result.boxMax[i].y, baseline + m_settings.fontSize) << path << " line " << i;
            EXPECT_LT(result.boxMin[i].x, result.boxMax[i].x) << path << " line " << i;
        }
    }

    std::optional<FontFace> m_face;
    std::vector<char16_t> m_characters;
    TypeSettings m_settings;
};

TEST_P(GlyphFidelity, TextLayoutPathKeepsTheOutlineArea) {
    GlyphOutlineCache cache;
    const LayoutResult result = decomposeTextLayout(m_settings, cache);
    std::vector<double> areas;
    // Holes come back 0.5 % smaller about their box centre, which scales
    // their area by exactly 0.995 squared.
    for (const std::vector<Shape>& shapes : testing::shapesOf(result))
        areas.push_back(capArea(shapes, 0.995) / (result.unitScale * result.unitScale));
    expectAreas(areas, 100.0, "text-layout");
    expectOneCharacterPerLine(result, "text-layout");
}

TEST_P(GlyphFidelity, PreLayoutPathKeepsTheOutlineArea) {
    const LayoutResult result = decomposePreLayout(m_settings);
    std::vector<double> areas;
    for (const CapFacePlan& plan : testing::plansOf(result))
        areas.push_back(capArea(plan) / (result.unitScale * result.unitScale));
    QFont font(GetParam().family);
    font.setStyleName(GetParam().style);
    font.setPointSize(8 * 8 * 10);
    expectAreas(areas, QRawFont::fromFont(font).pixelSize(), "pre-layout");
    expectOneCharacterPerLine(result, "pre-layout");
}

TEST_P(GlyphFidelity, LegacyPathKeepsTheOutlineArea) {
    const LayoutResult result = decomposeLegacy(m_settings, m_face->face());
    std::vector<double> areas;
    for (const CapFacePlan& plan : testing::plansOf(result))
        areas.push_back(capArea(plan) / (result.unitScale * result.unitScale));
    // The legacy outline units are 26.6 fixed point of the face's 100 pixels.
    expectAreas(areas, 6400.0, "legacy");
    expectOneCharacterPerLine(result, "legacy");
}

INSTANTIATE_TEST_SUITE_P(InstalledFonts, GlyphFidelity,
                         ::testing::Values(Font{"DejaVu Sans", "Book"}, Font{"Liberation Serif", "Regular"}),
                         [](const ::testing::TestParamInfo<Font>& info) {
                             return std::string(info.param.family[0] == 'D' ? "DejaVuSans"
                                                                            : "LiberationSerif");
                         });

} // namespace
} // namespace type
