#include "graph/Node.h"
#include "graph/Report.h"
#include "nodes/DagHierarchy.h"
#include "nodes/GeometryFilterType.h"

#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZFnCompoundAttribute.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <OpenZyvo/ZFnTypedAttribute.h>
#include <OpenZyvo/ZIntArray.h>
#include <OpenZyvo/ZItGeometry.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPlugArray.h>
#include <OpenZyvo/ZPxGeometryFilter.h>
#include <string>

ZObject ZPxGeometryFilter::input;
ZObject ZPxGeometryFilter::inputGeom;
ZObject ZPxGeometryFilter::groupId;
ZObject ZPxGeometryFilter::outputGeom;
ZObject ZPxGeometryFilter::envelope;

namespace {

// Where the geometry of `output` is shown: the world matrix of the first DAG node it flows into,
// through any deformers on the way (a deformer's input[i].inputGeom goes on as its outputGeom[i]).
// `depth` stops a loop of deformers, which the graph would refuse anyway.
ZMatrix localToWorld(const ZPlug& output, int depth = 0) {
    ZPlugArray destinations;
    output.destinations(destinations);
    for (const ZPlug& destination : destinations)
        if (oz::Node* node = oz::nodeOf(destination.node()); node && oz::nodes::isDagNode(*node))
            return oz::nodes::worldMatrixOf(*node);
    if (depth > 64)
        return ZMatrix();
    for (const ZPlug& destination : destinations) {
        if (!(destination.attribute() == ZPxGeometryFilter::inputGeom) || !destination.isChild())
            continue;
        const ZPlug element = destination.parent();
        ZStatus status;
        const ZPlug next = ZPlug(destination.node(), ZPxGeometryFilter::outputGeom)
                               .elementByLogicalIndex(element.logicalIndex(), &status);
        if (status)
            return localToWorld(next, depth + 1);
    }
    return ZMatrix();
}

// outputGeom[index] = input[index].inputGeom with its points moved by deform().
ZStatus deformElement(ZPxGeometryFilter& filter, ZDataBlock& block, unsigned int index) {
    using Filter = ZPxGeometryFilter;
    ZStatus status;
    const ZObject self = filter.thisZObject();
    const ZPlug inputElement = ZPlug(self, Filter::input).elementByLogicalIndex(index, &status);
    const ZPlug geometry = status ? inputElement.child(Filter::inputGeom, &status) : ZPlug();
    const ZPlug output =
        status ? ZPlug(self, Filter::outputGeom).elementByLogicalIndex(index, &status) : ZPlug();
    if (!status)
        return status;
    const ZDataHandle in = block.inputValue(geometry, &status);
    if (!status)
        return status;
    ZDataHandle out = block.outputValue(output, &status);
    if (!status)
        return status;
    if (!(status = out.copy(in)))
        return status;

    if (!out.data().isNull()) {
        ZItGeometry iterator(out.data(), &status);
        if (status)
            status = filter.deform(block, iterator, localToWorld(output), index);
        if (!status) {
            oz::reportError(ZString("deformer '") + filter.name() + "' failed on outputGeom[" +
                            ZString(std::to_string(index)) + "] (" + status.errorString() +
                            "); its input passes through unchanged");
            if (!(status = out.copy(in)))
                return status;
        }
    }
    out.setClean();
    return ZStatus::kSuccess;
}

} // namespace

ZPxGeometryFilter::ZPxGeometryFilter() = default;
ZPxGeometryFilter::~ZPxGeometryFilter() = default;

ZStatus ZPxGeometryFilter::compute(const ZPlug& plug, ZDataBlock& block) {
    if (!(plug == outputGeom))
        return ZStatus::kUnknownParameter;
    if (plug.isElement())
        return deformElement(*this, block, plug.logicalIndex());

    ZIntArray indices;
    ZPlug(thisZObject(), input).getExistingArrayAttributeIndices(indices);
    for (int index : indices)
        if (ZStatus status = deformElement(*this, block, static_cast<unsigned int>(index)); !status)
            return status;
    return block.setClean(outputGeom);
}

ZStatus ZPxGeometryFilter::deform(ZDataBlock&, ZItGeometry&, const ZMatrix&, unsigned int) {
    return ZStatus::kSuccess;
}

namespace oz::nodes {

ZStatus initializeGeometryFilter() {
    using Filter = ZPxGeometryFilter;
    ZStatus status;
    ZFnTypedAttribute typed;
    Filter::inputGeom = typed.create("inputGeom", "ig", ZFnData::kMesh, ZObject::kNullObj, &status);
    if (!status)
        return status;
    typed.setStorable(false);

    ZFnNumericAttribute numeric;
    Filter::groupId = numeric.create("groupId", "gi", ZFnNumericData::kInt, 0.0, &status);
    if (!status)
        return status;

    ZFnCompoundAttribute compound;
    Filter::input = compound.create("input", "ip", &status);
    if (!status)
        return status;
    compound.addChild(Filter::inputGeom);
    compound.addChild(Filter::groupId);
    compound.setArray(true);

    Filter::outputGeom = typed.create("outputGeom", "og", ZFnData::kMesh, ZObject::kNullObj, &status);
    if (!status)
        return status;
    typed.setArray(true);
    typed.setUsesArrayDataBuilder(true);
    typed.setWritable(false);
    typed.setStorable(false);

    Filter::envelope = numeric.create("envelope", "en", ZFnNumericData::kFloat, 1.0, &status);
    if (!status)
        return status;
    numeric.setKeyable(true);
    numeric.setSoftMin(0.0);
    numeric.setSoftMax(1.0);

    for (const ZObject& attribute : {Filter::input, Filter::outputGeom, Filter::envelope})
        if (!(status = ZPxNode::addAttribute(attribute)))
            return status;
    for (const ZObject& cause : {Filter::input, Filter::envelope})
        if (!(status = ZPxNode::attributeAffects(cause, Filter::outputGeom)))
            return status;
    return ZStatus::kSuccess;
}

} // namespace oz::nodes
