#include "export/ExportCollector.h"

#include "export/ExportMeshConversion.h"
#include "graph/Graph.h"
#include "nodes/DagHierarchy.h"
#include "nodes/MeshShapeNode.h"
#include "nodes/ShadingAssignment.h"
#include "nodes/ShadingEngineNode.h"

#include <OpenZyvo/ZDagPath.h>
#include <OpenZyvo/ZFnDependencyNode.h>
#include <OpenZyvo/ZFnGeometryData.h>
#include <OpenZyvo/ZFnMesh.h>
#include <OpenZyvo/ZFnSingleIndexedComponent.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZPlug.h>
#include <map>

namespace oz::exporter {

namespace {

void explain(ZString* error, const ZString& text) {
    if (error)
        *error = text;
}

// The mesh shape `node` stands for, or the null object.
ZObject meshShapeOf(const ZObject& node) {
    ZDagPath path;
    if (!ZDagPath::getAPathTo(node, path) || !path.extendToShape())
        return ZObject();
    const ZObject shape = path.node();
    return shape.hasFn(ZFn::kMesh) ? shape : ZObject();
}

ExportMaterial materialOf(const ZObject& engine) {
    ExportMaterial material;
    material.name = ZFnDependencyNode(engine).name().asStdString();
    const ZPlug colour(engine, nodes::ShadingEngineNode::surfaceShader);
    for (unsigned int channel = 0; channel < 3; ++channel)
        material.baseColor[channel] = colour.child(channel).asFloat();
    return material;
}

// Materials of the scene, one per shading engine, in the order the engines are met.
class MaterialTable {
public:
    explicit MaterialTable(ExportScene& scene)
        : m_scene(scene) {}

    std::size_t indexOf(const ZObject& engine) {
        Node* node = nodeOf(engine);
        const auto [it, added] = m_index.emplace(node, m_scene.materials.size());
        if (added)
            m_scene.materials.push_back(materialOf(engine));
        return it->second;
    }

private:
    ExportScene& m_scene;
    std::map<const Node*, std::size_t> m_index;
};

// The shape's triangles, grouped into one primitive per bound shading engine.
void addPrimitives(ConvertedMesh& converted, const std::vector<ZObject>& faceEngines,
                   MaterialTable& materials) {
    std::map<std::size_t, std::size_t> primitiveOfMaterial;
    auto& primitives = converted.mesh.primitives;
    for (std::size_t t = 0; t < converted.triangleFaces.size(); ++t) {
        const ZObject& engine = faceEngines[static_cast<std::size_t>(converted.triangleFaces[t])];
        if (engine.isNull())
            continue;
        const std::size_t material = materials.indexOf(engine);
        const auto [it, added] = primitiveOfMaterial.emplace(material, primitives.size());
        if (added)
            primitives.push_back(ExportPrimitive{material, {}});
        primitives[it->second].triangles.push_back(static_cast<std::uint32_t>(t));
    }
}

// The object groups of the mesh that hold vertices, each named after the mesh and its id.
ZStatus addVertexGroups(const ZObject& meshData, ExportMesh& mesh) {
    const ZFnGeometryData groups(meshData);
    ZStatus status;
    const unsigned int count = groups.objectGroupCount(&status);
    for (unsigned int i = 0; status && i < count; ++i) {
        const unsigned int id = groups.objectGroup(i, &status);
        if (!status || groups.objectGroupType(id) != ZFn::kMeshVertComponent)
            continue;
        ZIntArray members;
        status = ZFnSingleIndexedComponent(groups.objectGroupComponent(id)).getElements(members);
        ExportVertexGroup group{mesh.name + "_group" + std::to_string(id), {}};
        for (int v : members.asVector())
            if (v >= 0 && static_cast<std::size_t>(v) < mesh.positions.size())
                group.vertices.push_back(static_cast<std::uint32_t>(v));
        mesh.vertexGroups.push_back(std::move(group));
    }
    return status;
}

} // namespace

std::vector<ZObject> sceneMeshShapes() {
    std::vector<ZObject> shapes;
    for (const auto& node : Graph::instance().nodes())
        if (node->state == Node::State::Live && node->type->name == nodes::MeshShapeNode::kTypeName)
            shapes.push_back(wrapNode(*node));
    return shapes;
}

ZStatus collectExportScene(const std::vector<ZObject>& nodes, ExportScene& scene, ZString* error) {
    scene = ExportScene();
    MaterialTable materials(scene);
    for (const ZObject& node : nodes) {
        const ZObject shape = meshShapeOf(node);
        if (shape.isNull()) {
            const ZString name = nodeOf(node) ? ZFnDependencyNode(node).name() : ZString("(not a node)");
            explain(error, ZString("cannot export '") + name +
                               "': it is neither a mesh shape nor a transform of one");
            return ZStatus::kInvalidParameter;
        }
        const ZObject meshData = ZPlug(shape, nodes::MeshShapeNode::outMesh).asZObject();
        if (meshData.isNull())
            continue;
        Node& shapeNode = *nodeOf(shape);
        Node* transform = shapeNode.dagParent;
        ConvertedMesh converted;
        ZStatus status =
            convertForExport(meshData, nodes::worldMatrixOf(shapeNode),
                             (transform ? transform->name : shapeNode.name).asStdString(), converted);
        std::vector<ZObject> faceEngines;
        if (status)
            status = nodes::faceShadingEngines(shape, meshData, ZFnMesh(meshData).numPolygons(), faceEngines);
        if (status)
            status = addVertexGroups(meshData, converted.mesh);
        if (!status) {
            explain(error, ZString("cannot export '") + shapeNode.name + "': " + status.errorString());
            return status;
        }
        addPrimitives(converted, faceEngines, materials);
        scene.meshes.push_back(std::move(converted.mesh));
    }
    return ZStatus::kSuccess;
}

} // namespace oz::exporter
