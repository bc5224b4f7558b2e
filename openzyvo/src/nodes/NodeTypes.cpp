#include "graph/NodeTypeRegistry.h"
#include "nodes/DagNode.h"
#include "nodes/GeometryFilterType.h"
#include "nodes/GroupIdNode.h"
#include "nodes/LambertNode.h"
#include "nodes/MeshShapeNode.h"
#include "nodes/ShadingEngineNode.h"
#include "nodes/TransformNode.h"

#include <cstdio>

namespace oz::nodes {
namespace {

void reportFailure(const ZString& error) {
    std::fprintf(stderr, "Built-in node type could not be registered: %s\n", error.asChar());
}

NodeTypeInfo typeInfo(const char* name, unsigned int id, ZPxNode::Type kind,
                      std::function<ZPxNode*()> creator, std::function<ZStatus()> initializer,
                      ZFn::Type apiType) {
    NodeTypeInfo info;
    info.name = name;
    info.id = ZTypeId(id);
    info.kind = kind;
    info.creator = std::move(creator);
    info.initializer = std::move(initializer);
    info.apiType = apiType;
    return info;
}

// The DAG, shading and deformer types are the host's own: they register when the runtime
// library loads, as a plug-in's would when it is loaded.
struct Registration {
    Registration() {
        NodeTypeRegistry& registry = NodeTypeRegistry::instance();
        ZString error;
        auto add = [&](NodeTypeInfo info) {
            if (!registry.registerType(std::move(info), &error))
                reportFailure(error);
        };

        NodeTypeInfo dag = typeInfo(DagNode::kTypeName, DagNode::kId, ZPxNode::kDependNode, nullptr,
                                    DagNode::initialize, ZFn::kDagNode);
        dag.abstract = true;
        add(std::move(dag));

        NodeTypeInfo transform =
            typeInfo(TransformNode::kTypeName, TransformNode::kId, ZPxNode::kTransformNode,
                     TransformNode::creator, TransformNode::initialize, ZFn::kTransform);
        transform.parentTypeName = DagNode::kTypeName;
        add(std::move(transform));

        NodeTypeInfo mesh = typeInfo(MeshShapeNode::kTypeName, MeshShapeNode::kId, ZPxNode::kSurfaceShape,
                                     MeshShapeNode::creator, MeshShapeNode::initialize, ZFn::kMesh);
        mesh.fnTypes = {ZFn::kShape};
        mesh.parentTypeName = DagNode::kTypeName;
        add(std::move(mesh));

        add(typeInfo(GroupIdNode::kTypeName, GroupIdNode::kId, ZPxNode::kDependNode, GroupIdNode::creator,
                     GroupIdNode::initialize, ZFn::kGroupId));
        add(typeInfo(ShadingEngineNode::kTypeName, ShadingEngineNode::kId, ZPxNode::kDependNode,
                     ShadingEngineNode::creator, ShadingEngineNode::initialize, ZFn::kShadingEngine));

        NodeTypeInfo lambert = typeInfo(LambertNode::kTypeName, LambertNode::kId, ZPxNode::kDependNode,
                                        LambertNode::creator, LambertNode::initialize, ZFn::kSurfaceShader);
        lambert.classification = "shader/surface";
        add(std::move(lambert));

        NodeTypeInfo filter = typeInfo(kGeometryFilterTypeName, kGeometryFilterId, ZPxNode::kDependNode,
                                       nullptr, initializeGeometryFilter, ZFn::kGeometryFilter);
        filter.abstract = true;
        add(std::move(filter));
        registry.setKindBase(ZPxNode::kDeformerNode, kGeometryFilterTypeName);

        installMeshShapeCreator();
    }
};

const Registration registration;

} // namespace
} // namespace oz::nodes
