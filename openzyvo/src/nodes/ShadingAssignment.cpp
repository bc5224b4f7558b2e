#include "nodes/ShadingAssignment.h"

#include "nodes/MeshShapeNode.h"
#include "nodes/ShadingEngineNode.h"

#include <OpenZyvo/ZFnGeometryData.h>
#include <OpenZyvo/ZFnSingleIndexedComponent.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPlugArray.h>

namespace oz::nodes {

namespace {

// The shading engine that holds `member` as one of its dagSetMembers, or the null object.
ZObject engineHolding(const ZPlug& member) {
    ZPlugArray destinations;
    member.destinations(destinations);
    for (const ZPlug& destination : destinations) {
        const ZObject node = destination.node();
        if (node.hasFn(ZFn::kShadingEngine) && destination == ShadingEngineNode::dagSetMembers)
            return node;
    }
    return ZObject();
}

// The faces of the object group `id` of the mesh data; none when the group holds other elements.
ZIntArray groupFaces(const ZObject& meshData, int id) {
    ZIntArray faces;
    ZFnGeometryData geometry(meshData);
    if (id < 0 || !geometry.hasObjectGroup(static_cast<unsigned int>(id)))
        return faces;
    ZFnSingleIndexedComponent component(geometry.objectGroupComponent(static_cast<unsigned int>(id)));
    if (component.componentType() == ZFn::kMeshPolygonComponent)
        component.getElements(faces);
    return faces;
}

} // namespace

ZStatus faceShadingEngines(const ZObject& shape, const ZObject& meshData, int faceCount,
                           std::vector<ZObject>& engines) {
    engines.assign(static_cast<std::size_t>(faceCount > 0 ? faceCount : 0), ZObject());
    ZStatus status;
    const ZPlug instances(shape, MeshShapeNode::instObjGroups);
    ZIntArray instanceIndices;
    instances.getExistingArrayAttributeIndices(instanceIndices, &status);
    if (!status)
        return status;
    if (instanceIndices.length() == 0 || instanceIndices[0] != 0)
        return ZStatus::kSuccess;
    const ZPlug instance = instances.elementByLogicalIndex(0);

    std::vector<bool> bound(engines.size(), false);
    const ZPlug groups = instance.child(MeshShapeNode::objectGroups, &status);
    if (!status)
        return status;
    ZIntArray groupIndices;
    groups.getExistingArrayAttributeIndices(groupIndices);
    for (int index : groupIndices) {
        const ZPlug group = groups.elementByLogicalIndex(static_cast<unsigned int>(index));
        const ZObject engine = engineHolding(group);
        if (engine.isNull())
            continue;
        const int id = group.child(MeshShapeNode::objectGroupId).asInt();
        for (int face : groupFaces(meshData, id)) {
            if (face < 0 || face >= faceCount || bound[static_cast<std::size_t>(face)])
                continue;
            engines[static_cast<std::size_t>(face)] = engine;
            bound[static_cast<std::size_t>(face)] = true;
        }
    }

    const ZObject wholeShape = engineHolding(instance);
    if (!wholeShape.isNull())
        for (std::size_t face = 0; face < engines.size(); ++face)
            if (!bound[face])
                engines[face] = wholeShape;
    return ZStatus::kSuccess;
}

} // namespace oz::nodes
