#include "TestDeformers.h"

#include "graph/NodeTypeRegistry.h"

#include <OpenZyvo/ZDataBlock.h>
#include <OpenZyvo/ZEvaluationNode.h>
#include <OpenZyvo/ZFnNumericAttribute.h>
#include <OpenZyvo/ZItGeometry.h>
#include <OpenZyvo/ZPlug.h>
#include <OpenZyvo/ZPointArray.h>
#include <gtest/gtest.h>

namespace nodestest {

ZObject OffsetDeformer::offset, OffsetDeformer::fail;

namespace {

ZStatus initializeOffsetDeformer() {
    ZFnNumericAttribute fn;
    OffsetDeformer::offset = fn.create("offset", "off", ZFnNumericData::kDouble, 1.0);
    OffsetDeformer::fail = fn.create("fail", "fl", ZFnNumericData::kBoolean, 0.0);
    for (const ZObject& attribute : {OffsetDeformer::offset, OffsetDeformer::fail}) {
        if (ZStatus status = ZPxNode::addAttribute(attribute); !status)
            return status;
        if (ZStatus status = ZPxNode::attributeAffects(attribute, ZPxGeometryFilter::outputGeom); !status)
            return status;
    }
    return ZStatus::kSuccess;
}

} // namespace

ZStatus OffsetDeformer::deform(ZDataBlock& block, ZItGeometry& iterator, const ZMatrix& localToWorld,
                               unsigned int multiIndex) {
    const float weight = block.inputValue(envelope).asFloat();
    calls.push_back({multiIndex, weight, localToWorld});
    const double lift = weight * block.inputValue(offset).asDouble() * (multiIndex + 1);
    ZPointArray points;
    if (ZStatus status = iterator.allPositions(points); !status)
        return status;
    for (ZPoint& p : points)
        p.y += lift;
    if (ZStatus status = iterator.setAllPositions(points); !status)
        return status;
    return block.inputValue(fail).asBool() ? ZStatus::kFailure : ZStatus::kSuccess;
}

ZStatus OffsetDeformer::setDependentsDirty(const ZPlug& plug, ZPlugArray& affected) {
    if (plug == inputGeom || plug == input)
        ++inputGeomDirtied;
    return ZPxDeformerNode::setDependentsDirty(plug, affected);
}

ZStatus OffsetDeformer::preEvaluation(const ZDGContext&, const ZEvaluationNode& evaluationNode) {
    preEvaluationSawInputGeom.push_back(evaluationNode.dirtyPlugExists(inputGeom));
    return ZStatus::kSuccess;
}

void registerTestDeformers() {
    oz::NodeTypeRegistry& registry = oz::NodeTypeRegistry::instance();
    if (registry.find(OffsetDeformer::kTypeName))
        return;
    ZString error;
    oz::NodeTypeInfo offsetType;
    offsetType.name = OffsetDeformer::kTypeName;
    offsetType.id = ZTypeId(0x7e570001u);
    offsetType.kind = ZPxNode::kDeformerNode;
    offsetType.creator = [] {
        return new OffsetDeformer;
    };
    offsetType.initializer = initializeOffsetDeformer;
    ASSERT_TRUE(registry.registerType(std::move(offsetType), &error)) << error.asChar();

    oz::NodeTypeInfo idleType;
    idleType.name = IdleDeformer::kTypeName;
    idleType.id = ZTypeId(0x7e570002u);
    idleType.kind = ZPxNode::kDeformerNode;
    idleType.creator = [] {
        return new IdleDeformer;
    };
    ASSERT_TRUE(registry.registerType(std::move(idleType), &error)) << error.asChar();
}

} // namespace nodestest
