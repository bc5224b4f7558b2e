#pragma once

#include <OpenZyvo/ZVectorArray.h>
#include <OpenZyvoUI/ZPxLocatorNode.h>

namespace type {

// The "displayPoints" locator: shows a set of points in the viewport, such as
// the pivots the animation deformer publishes.
class displayPoints : public ZPxLocatorNode {
public:
    static constexpr unsigned int kTypeId = 0x123C00;
    static constexpr const char* kTypeName = "displayPoints";
    static constexpr const char* kDrawClassification = "drawdb/geometry/displayPointsDrawManager";

    static void* creator();
    static ZStatus initialize();

    // The points of a displayPoints node, in its own space.
    static ZVectorArray points(const ZObject& node);

    bool isBounded() const override;
    ZBoundingBox boundingBox() const override;

    static ZObject inputPoints;
};

// The box around `points`; empty for no points.
ZBoundingBox boundsOf(const ZVectorArray& points);

} // namespace type
