#include "textnode/TextToMesh.h"

#include "plugin/ApiError.h"

#include <OpenZyvo/ZFloatVectorArray.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZFnMeshData.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZPointArray.h>

namespace type {

namespace {

// Faces of the text-layout path carry their holes; nothing is merged, so the
// tolerance only matters to the host's own checks.
constexpr double kShapeTolerance = 1.0e-10;
constexpr double kPlannedFaceTolerance = 0.1;
constexpr double kPlannedHoleTolerance = 1.0e-10;

constexpr char kUnit[] = "TextToMesh";

// The alignment offset of each character's line. Characters are matched to
// lines through the shell counts, so a character without shells (and so
// without vertices) needs none.
class LineOffsets {
public:
    explicit LineOffsets(const LayoutResult& layout)
        : m_shellsPerLine(layout.shellsPerLine)
        , m_offsets(layout.lineOffsets) {}

    double next(std::size_t shells) {
        if (shells == 0)
            return 0.0;
        while (m_line < m_shellsPerLine.size() && m_lineStart + m_shellsPerLine[m_line] <= m_shell) {
            m_lineStart += m_shellsPerLine[m_line];
            ++m_line;
        }
        m_shell += static_cast<double>(shells);
        return m_line < m_offsets.size() ? m_offsets[m_line] : 0.0;
    }

private:
    const std::vector<double>& m_shellsPerLine;
    const std::vector<double>& m_offsets;
    std::size_t m_line = 0;
    double m_lineStart = 0.0;
    double m_shell = 0.0;
};

int loopCount(const Contour& contour) {
    return static_cast<int>(contour.size());
}

// Adds the caps face by face, reusing its point and loop buffers: a long text
// adds thousands of faces.
class CapBuilder {
public:
    CapBuilder(ZFnMesh& mesh, const LayoutResult& layout)
        : m_mesh(mesh)
        , m_lines(layout) {}

    ZStatus add(const ShapeCaps& caps) {
        for (const std::vector<Shape>& character : caps) {
            const double offset = m_lines.next(character.size());
            for (const Shape& shape : character) {
                if (const ZStatus status = addShape(shape, offset); !status)
                    return status;
            }
        }
        return ZStatus::kSuccess;
    }

    ZStatus add(const PlannedCaps& caps) {
        for (const CapFacePlan& plan : caps) {
            if (const ZStatus status = addPlan(plan, m_lines.next(plan.faces.size())); !status)
                return status;
        }
        return ZStatus::kSuccess;
    }

private:
    void startLoops() {
        m_points.clear();
        m_loops.clear();
    }

    void appendLoop(const Contour& contour, double offset, bool reversed) {
        std::vector<ZPoint>& out = m_points.asVector();
        if (reversed) {
            for (auto p = contour.rbegin(); p != contour.rend(); ++p)
                out.emplace_back(p->x - offset, p->y);
        } else {
            for (const Point2& p : contour)
                out.emplace_back(p.x - offset, p.y);
        }
        m_loops.append(loopCount(contour));
    }

    ZStatus addShape(const Shape& shape, double offset) {
        startLoops();
        appendLoop(shape.outer, offset, false);
        for (const Contour& hole : shape.holes)
            appendLoop(hole, offset, false);
        ZStatus status;
        m_mesh.addPolygon(m_points, m_loops, false, kShapeTolerance, ZObject::kNullObj, &status);
        if (!status)
            return reportApiError(status, kUnit);
        return ZStatus::kSuccess;
    }

    ZStatus addPlan(const CapFacePlan& plan, double offset) {
        ZStatus status;
        const int firstFace = m_mesh.numPolygons(&status);
        if (!status)
            return reportApiError(status, kUnit);
        for (const Contour& face : plan.faces) {
            startLoops();
            appendLoop(face, offset, plan.reversed);
            m_mesh.addPolygon(m_points, m_loops, false, kPlannedFaceTolerance, ZObject::kNullObj, &status);
            if (!status)
                return reportApiError(status, kUnit);
        }
        for (const PlannedHole& hole : plan.holes) {
            startLoops();
            appendLoop(hole.points, offset, plan.reversed);
            status = m_mesh.addHoles(firstFace + static_cast<int>(hole.face), m_points, m_loops, true,
                                     kPlannedHoleTolerance);
            if (!status)
                return reportApiError(status, kUnit);
        }
        return ZStatus::kSuccess;
    }

    ZFnMesh& m_mesh;
    LineOffsets m_lines;
    ZPointArray m_points;
    ZIntArray m_loops;
};

ZStatus faceUp(ZFnMesh& mesh) {
    ZStatus status;
    const int normals = mesh.numNormals(&status);
    if (!status)
        return reportApiError(status, kUnit);
    status = mesh.setNormals(
        ZFloatVectorArray(static_cast<unsigned int>(normals), ZFloatVector(0.0f, 0.0f, 1.0f)));
    if (!status)
        return reportApiError(status, kUnit);
    return ZStatus::kSuccess;
}

} // namespace

ZStatus textToMesh(const LayoutResult& layout, ZObject& meshData) {
    ZStatus status;
    ZFnMeshData dataFn;
    meshData = dataFn.create(&status);
    if (!status)
        return reportApiError(status, kUnit);
    ZFnMesh mesh;
    mesh.create(0, 0, ZPointArray(), ZIntArray(), ZIntArray(), meshData, &status);
    if (!status)
        return reportApiError(status, kUnit);

    CapBuilder builder(mesh, layout);
    status = std::visit([&](const auto& caps) { return builder.add(caps); }, layout.caps);
    if (!status)
        return status;
    return faceUp(mesh);
}

} // namespace type
