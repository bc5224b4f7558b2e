#include "textnode/TextToMesh.h"

#include "geometry/HoleInfo.h"
#include "plugin/ApiError.h"

#include <OpenZyvo/ZFloatVectorArray.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZFnMeshData.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZPointArray.h>
#include <cmath>

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

// Whether merging at `tolerance` would leave the loop fewer than three
// distinct vertices. A text scaled to nothing (a font size of 0, often the
// first key of a grow-in) shrinks every hole to a point; such a hole cuts
// nothing out, so it is left out rather than failing the whole text.
bool collapses(const ZPointArray& loop, double tolerance) {
    const unsigned int count = loop.length();
    unsigned int distinct = 0;
    for (unsigned int i = 0; i < count && distinct < 3; ++i) {
        const ZPoint& previous = loop[(i + count - 1) % count];
        if (std::hypot(loop[i].x - previous.x, loop[i].y - previous.y) > tolerance)
            ++distinct;
    }
    return distinct < 3;
}

// Adds the caps face by face, reusing its point and loop buffers: a long text
// adds thousands of faces. The vertex totals and hole records are read from
// the mesh as it grows, so they describe it whatever the host merged.
class CapBuilder {
public:
    CapBuilder(ZFnMesh& mesh, LayoutResult& layout)
        : m_mesh(mesh)
        , m_lines(layout)
        , m_vertexTotals(layout.vertexTotals)
        , m_holeInfo(layout.holeInfo) {}

    ZStatus add(const ShapeCaps& caps) {
        for (const std::vector<Shape>& character : caps) {
            const double offset = m_lines.next(character.size());
            for (const Shape& shape : character) {
                if (const ZStatus status = addShape(shape, offset); !status)
                    return status;
            }
            if (const ZStatus status = endCharacter(); !status)
                return status;
        }
        return ZStatus::kSuccess;
    }

    ZStatus add(const PlannedCaps& caps) {
        for (const CapFacePlan& plan : caps) {
            if (const ZStatus status = addPlan(plan, m_lines.next(plan.faces.size())); !status)
                return status;
            if (const ZStatus status = endCharacter(); !status)
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
        const int firstVertex = m_mesh.numVertices(&status);
        if (!status)
            return reportApiError(status, kUnit);
        const int face =
            m_mesh.addPolygon(m_points, m_loops, false, kShapeTolerance, ZObject::kNullObj, &status);
        if (!status)
            return reportApiError(status, kUnit);
        // Nothing was merged, so each hole's points follow the outer ones.
        appendHoleInfo(m_holeInfo, shape, face, firstVertex);
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
            if (collapses(m_points, kPlannedHoleTolerance))
                continue;
            const int face = firstFace + static_cast<int>(hole.face);
            const int loopStart = m_mesh.polygonVertexCount(face, &status);
            if (!status)
                return reportApiError(status, kUnit);
            status = m_mesh.addHoles(face, m_points, m_loops, true, kPlannedHoleTolerance);
            if (!status)
                return reportApiError(status, kUnit);
            if (const ZStatus recorded = recordHole(face, loopStart); !recorded)
                return recorded;
        }
        return ZStatus::kSuccess;
    }

    // The hole's points may have merged into vertices of this or an earlier
    // character (or repeats among them dropped), so its loop is read back:
    // the face's vertices from `loopStart` on.
    ZStatus recordHole(int face, int loopStart) {
        if (const ZStatus status = m_mesh.getPolygonVertices(face, m_faceVertices); !status)
            return reportApiError(status, kUnit);
        const auto start = static_cast<unsigned int>(loopStart);
        m_holeInfo.insert(m_holeInfo.end(), {face, static_cast<std::int32_t>(m_faceVertices.length() - start),
                                             m_faceVertices[start]});
        return ZStatus::kSuccess;
    }

    // A character that added no vertex gets no total.
    ZStatus endCharacter() {
        ZStatus status;
        const int vertices = m_mesh.numVertices(&status);
        if (!status)
            return reportApiError(status, kUnit);
        if (vertices > (m_vertexTotals.empty() ? 0.0 : m_vertexTotals.back()))
            m_vertexTotals.push_back(vertices);
        return ZStatus::kSuccess;
    }

    ZFnMesh& m_mesh;
    LineOffsets m_lines;
    std::vector<double>& m_vertexTotals;
    std::vector<std::int32_t>& m_holeInfo;
    ZPointArray m_points;
    ZIntArray m_loops;
    ZIntArray m_faceVertices;
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

ZStatus textToMesh(LayoutResult& layout, ZObject& meshData) {
    layout.vertexTotals.clear();
    layout.holeInfo.clear();
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
