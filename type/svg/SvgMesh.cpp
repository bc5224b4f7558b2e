#include "svg/SvgMesh.h"

#include "plugin/ApiError.h"
#include "textnode/TextToMesh.h"

#include <OpenZyvo/ZColorArray.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZPointArray.h>

namespace type {

namespace {

constexpr char kUnit[] = "svgNode";

} // namespace

ZStatus svgToMesh(const std::vector<SvgShapeCap>& caps, bool vertexColours, ZObject& meshData,
                  SvgMeshRecord& record) {
    LayoutResult layout;
    PlannedCaps plans;
    plans.reserve(caps.size());
    for (const SvgShapeCap& cap : caps)
        plans.push_back(cap.plan);
    layout.caps = std::move(plans);
    if (const ZStatus built = textToMesh(layout, meshData); !built)
        return built;
    record.vertexTotals = std::move(layout.vertexTotals);
    record.holeInfo = std::move(layout.holeInfo);

    ZStatus status;
    ZFnMesh mesh(meshData, &status);
    if (!status)
        return reportApiError(status, kUnit);
    ZPointArray points;
    if (status = mesh.getPoints(points); !status)
        return reportApiError(status, kUnit);
    ZColorArray colours;
    ZIntArray coloured;
    std::size_t first = 0;
    for (std::size_t k = 0; k < caps.size() && k < record.vertexTotals.size(); ++k) {
        const auto end = static_cast<std::size_t>(record.vertexTotals[k]);
        for (std::size_t v = first; v < end; ++v) {
            points[static_cast<unsigned int>(v)].z = caps[k].z;
            if (vertexColours && caps[k].fill) {
                const Colour& fill = *caps[k].fill;
                colours.append(ZColor(fill.r, fill.g, fill.b, fill.a));
                coloured.append(static_cast<int>(v));
            }
        }
        first = end;
    }
    if (status = mesh.setPoints(points); !status)
        return reportApiError(status, kUnit);
    if (colours.length() > 0) {
        if (status = mesh.setVertexColors(colours, coloured); !status)
            return reportApiError(status, kUnit);
    }
    return ZStatus::kSuccess;
}

} // namespace type
