#include "layout/LayoutGrouping.h"

namespace type {

namespace {

double alignmentOffset(AlignmentMode alignment, const BoundingBox& line) {
    const double width = boxMaxCorner(line).x - boxMinCorner(line).x;
    switch (alignment) {
    case AlignmentMode::Centre:
        return width * 0.5;
    case AlignmentMode::Right:
        return width;
    default:
        return 0.0;
    }
}

} // namespace

Point2 boxMinCorner(const BoundingBox& box) {
    return box.empty() ? Point2{} : box.min;
}

Point2 boxMaxCorner(const BoundingBox& box) {
    return box.empty() ? Point2{} : box.max;
}

LayoutGrouping::LayoutGrouping(LayoutResult& result, AlignmentMode alignment)
    : m_result(result)
    , m_alignment(alignment) {}

void LayoutGrouping::addBlank() {
    m_result.shellsPerWord.push_back(m_wordShells);
    m_wordShells = 0;
}

void LayoutGrouping::addCharacter(std::vector<Shape> shapes, const BoundingBox& box) {
    addCounts(shapes.size(), box);
    std::get<ShapeCaps>(m_result.caps).push_back(std::move(shapes));
}

void LayoutGrouping::addCharacter(CapFacePlan plan, const BoundingBox& box) {
    addCounts(plan.faces.size(), box);
    std::get<PlannedCaps>(m_result.caps).push_back(std::move(plan));
}

void LayoutGrouping::addCounts(std::size_t shells, const BoundingBox& box) {
    if (shells > 0) {
        const auto count = static_cast<std::int32_t>(shells);
        m_result.shellsPerCharacter.push_back(count);
        m_lineShells += count;
        m_wordShells += count;
    }
    m_result.boxMin.push_back(boxMinCorner(box));
    m_result.boxMax.push_back(boxMaxCorner(box));
    m_result.pivots.push_back(boxMinCorner(box));
    m_lineBox.extend(box);
}

void LayoutGrouping::endLine() {
    m_result.lineOffsets.push_back(alignmentOffset(m_alignment, m_lineBox));
    m_result.shellsPerLine.push_back(m_lineShells);
    m_result.shellsPerWord.push_back(m_wordShells);
    m_lineBox = {};
    m_lineShells = 0;
    m_wordShells = 0;
}

} // namespace type
