#include "ui/ScenePick.h"

#include "graph/Graph.h"
#include "graph/Node.h"
#include "nodes/DagHierarchy.h"

#include <OpenZyvo/ZFloatPoint.h>
#include <OpenZyvo/ZFloatVector.h>
#include <OpenZyvo/ZFnMesh.h>
#include <limits>

namespace oz::ui {

ZObject pickTransform(const ViewRay& ray) {
    const ZFloatPoint source(ray.source);
    const ZFloatVector direction(ray.direction);
    float nearest = std::numeric_limits<float>::max();
    ZObject picked;
    for (const auto& node : Graph::instance().nodes()) {
        if (!node->usable() || node->apiType() != ZFn::kMesh || !node->dagParent)
            continue;
        ZStatus status;
        const ZFnMesh mesh(wrapNode(*node), &status);
        if (!status)
            continue;
        ZFloatPoint hit;
        float distance = 0.0f;
        if (mesh.closestIntersection(source, direction, nullptr, nullptr, false, ZSpace::kWorld, 1e8f, false,
                                     nullptr, hit, &distance, nullptr, nullptr, nullptr, nullptr) &&
            distance < nearest) {
            nearest = distance;
            picked = wrapNode(*node->dagParent);
        }
    }
    return picked;
}

} // namespace oz::ui
