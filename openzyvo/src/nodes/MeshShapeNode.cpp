#include "nodes/MeshShapeNode.h"

#include "data/MatrixData.h"
#include "data/MeshConversion.h"
#include "data/MeshShapeCreator.h"
#include "graph/Graph.h"
#include "graph/PlugRef.h"
#include "nodes/DagHierarchy.h"

#include <OpenZyvo/ZArrayDataBuilder.h>
#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZFnCompoundAttribute.h>
#include <OpenZyvo/ZFnDagNode.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <OpenZyvo/ZFnTypedAttribute.h>
#include <OpenZyvo/ZPlug.h>
#include <tbb/parallel_for.h>
#include <vector>

namespace oz::nodes {

ZObject MeshShapeNode::inMesh, MeshShapeNode::outMesh, MeshShapeNode::worldMesh;
ZObject MeshShapeNode::instObjGroups, MeshShapeNode::objectGroups, MeshShapeNode::objectGroupId,
    MeshShapeNode::objectGrpColor;

namespace {

ZObject meshAttribute(const char* name, const char* shortName, bool output, ZStatus& status) {
    ZFnTypedAttribute fn;
    ZObject attribute = fn.create(name, shortName, ZFnData::kMesh, ZObject::kNullObj, &status);
    if (status && output) {
        fn.setWritable(false);
        fn.setStorable(false);
    }
    return attribute;
}

ZObject compoundArray(const char* name, const char* shortName, std::initializer_list<ZObject> children,
                      ZStatus& status) {
    ZFnCompoundAttribute fn;
    ZObject compound = fn.create(name, shortName, &status);
    for (const ZObject& child : children)
        if (status)
            status = fn.addChild(child);
    if (status)
        status = fn.setArray(true);
    return compound;
}

// The mesh under `matrix`: points move, explicit normals turn with the inverse transpose.
std::shared_ptr<MeshData> transformed(const MeshData& source, const ZMatrix& matrix) {
    auto out = std::make_shared<MeshData>(source);
    mesh::Mesh& mesh = out->mesh;
    std::vector<mesh::Point3> points(mesh.points().begin(), mesh.points().end());
    tbb::parallel_for(tbb::blocked_range<std::size_t>(0, points.size(), 4096), [&](const auto& range) {
        for (std::size_t i = range.begin(); i != range.end(); ++i)
            points[i] = toKernel(toPoint(points[i]) * matrix);
    });
    mesh.setPoints(points);
    if (mesh.hasExplicitNormals()) {
        const ZMatrix normalMatrix = matrix.inverse().transpose();
        std::vector<mesh::Vector3> normals = mesh.normals();
        for (mesh::Vector3& n : normals)
            n = toKernel((toVector(n) * normalMatrix).normal());
        mesh.setNormals(normals);
    }
    return out;
}

ZObject createMeshShape(const ZObject& parent, ZStatus& status) {
    return ZFnDagNode().create(MeshShapeNode::kTypeName, ZString(), parent, &status);
}

} // namespace

ZStatus MeshShapeNode::initialize() {
    ZStatus status;
    inMesh = meshAttribute("inMesh", "i", false, status);
    outMesh = meshAttribute("outMesh", "o", true, status);
    worldMesh = meshAttribute("worldMesh", "w", true, status);
    if (!status)
        return status;
    ZFnTypedAttribute worldFn(worldMesh);
    worldFn.setArray(true);
    worldFn.setUsesArrayDataBuilder(true);

    ZFnNumericAttribute numeric;
    objectGroupId = numeric.create("objectGroupId", "gid", ZFnNumericData::kInt, 0.0, &status);
    if (!status)
        return status;
    objectGrpColor = numeric.create("objectGrpColor", "gco", ZFnNumericData::kInt, 0.0, &status);
    if (!status)
        return status;
    objectGroups = compoundArray("objectGroups", "og", {objectGroupId, objectGrpColor}, status);
    instObjGroups = compoundArray("instObjGroups", "iog", {objectGroups}, status);
    if (!status)
        return status;

    for (const ZObject& attribute : {inMesh, outMesh, worldMesh, instObjGroups})
        if (!(status = addAttribute(attribute)))
            return status;
    for (const auto& [from, to] :
         {std::pair{inMesh, outMesh}, {inMesh, worldMesh}, {DagNode::worldMatrix, worldMesh}})
        if (!(status = attributeAffects(from, to)))
            return status;
    return ZStatus::kSuccess;
}

ZStatus MeshShapeNode::compute(const ZPlug& plug, ZDataBlock& block) {
    if (plug == DagNode::worldMatrix)
        return setWorldMatrix(block, parentWorldMatrix(graphNode()));
    if (plug == worldMesh)
        return computeWorldMesh(block);
    if (!(plug == outMesh))
        return ZStatus::kUnknownParameter;
    ZStatus status;
    const ZObject mesh = block.inputValue(inMesh, &status).data();
    if (!status)
        return status;
    ZDataHandle out = block.outputValue(outMesh, &status);
    if (!status)
        return status;
    if (!(status = out.setZObject(mesh)))
        return status;
    out.setClean();
    return ZStatus::kSuccess;
}

ZStatus MeshShapeNode::computeWorldMesh(ZDataBlock& block) {
    ZStatus status;
    const auto source = ObjectAccess::shared<MeshData>(block.inputValue(outMesh, &status).data());
    if (!status)
        return status;
    const ZPlug worldMatrix0 = ZPlug(thisZObject(), DagNode::worldMatrix).elementByLogicalIndex(0, &status);
    if (!status)
        return status;
    const auto* matrixData = ObjectAccess::as<MatrixData>(block.inputValue(worldMatrix0, &status).data());
    if (!status)
        return status;
    const ZMatrix world = matrixData ? matrixData->value : ZMatrix();

    std::shared_ptr<Data> placed;
    if (source)
        placed = world == ZMatrix::identity ? source : transformed(*source, world);

    ZArrayDataHandle array = block.outputArrayValue(worldMesh, &status);
    if (!status)
        return status;
    ZArrayDataBuilder builder(&block, worldMesh, 1, &status);
    if (!status)
        return status;
    ZDataHandle element = builder.addElement(0, &status);
    if (!status)
        return status;
    if (placed && !(status = element.setZObject(ObjectAccess::wrap(placed))))
        return status;
    if (!(status = array.set(builder)))
        return status;
    return array.setAllClean();
}

const MeshData* MeshShapeNode::meshForRead() {
    Node& node = graphNode();
    m_read = ObjectAccess::shared<MeshData>(PlugAccess::make(node, attributeOf(outMesh)).asZObject());
    return m_read.get();
}

MeshData* MeshShapeNode::meshForWrite() {
    Node& node = graphNode();
    Path path;
    if (!node.usable() || !node.pathTo(attributeOf(inMesh), path) || Graph::instance().driver(node, path))
        return nullptr;
    Slot* slot = node.slot(path);
    if (!slot)
        return nullptr;
    if (!m_stored || slot->data != m_stored) {
        // The stored mesh came from outside (a setAttr or a scene file): edits go to a copy of it,
        // never into a value someone else may hold.
        const auto* current = dynamic_cast<const MeshData*>(slot->data.get());
        auto fresh = current ? std::make_shared<MeshData>(*current) : std::make_shared<MeshData>();
        const ZStatus status = Graph::instance().setValue(node, path, [&](Slot& target, const Attribute&) {
            target.data = fresh;
            return ZStatus(ZStatus::kSuccess);
        });
        if (!status)
            return nullptr;
        m_stored = std::move(fresh);
    }
    return m_stored.get();
}

void MeshShapeNode::meshEdited(Edit) {
    Node& node = graphNode();
    Path path;
    if (!node.usable() || !node.pathTo(attributeOf(inMesh), path))
        return;
    Graph::instance().touch(false);
    Graph::instance().dirty(node, path, false);
}

ZMatrix MeshShapeNode::worldMatrix() const {
    return worldMatrixOf(graphNode());
}

void installMeshShapeCreator() {
    setMeshShapeCreator(createMeshShape);
}

} // namespace oz::nodes
