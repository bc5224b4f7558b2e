#pragma once

#include <OpenZyvo/ZVectorArray.h>
#include <OpenZyvoRender/ZPxDrawOverride.h>

namespace type {

// What the viewport draws for one displayPoints node.
struct PointsDrawData : public ZHWRender::ZUserData {
    ZVectorArray points;
};

// Draws displayPoints nodes: hands the viewport the node's points.
class pointsDrawOverride : public ZHWRender::ZPxDrawOverride {
public:
    static constexpr const char* kRegistrantId = "displayPointsDrawManagerPlugin";

    static ZHWRender::ZPxDrawOverride* creator(const ZObject& node);

    ZHWRender::ZUserData* prepareForDraw(const ZDagPath& objPath, ZHWRender::ZUserData* oldData) override;
    bool isBounded(const ZDagPath& objPath) const override;
    ZBoundingBox boundingBox(const ZDagPath& objPath) const override;

private:
    explicit pointsDrawOverride(const ZObject& node)
        : ZPxDrawOverride(node) {}
};

} // namespace type
