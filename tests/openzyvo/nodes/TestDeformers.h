#pragma once

#include <OpenZyvo/ZMatrix.h>
#include <OpenZyvo/ZPxDeformerNode.h>
#include <vector>

// Deformers the tests register, as a plug-in would.
namespace nodestest {

// Moves every point up (+y) by envelope * offset * (multiIndex + 1), then fails when `fail` is
// set. Records each deform() call and what it learnt of dirty input geometry.
class OffsetDeformer : public ZPxDeformerNode {
public:
    static constexpr const char* kTypeName = "testOffsetDeformer";
    static ZObject offset, fail;

    struct Call {
        unsigned int multiIndex;
        float envelope;
        ZMatrix localToWorld;
    };
    std::vector<Call> calls;
    int inputGeomDirtied = 0;
    // Per preEvaluation call, whether an input geometry was among the dirty plugs.
    std::vector<bool> preEvaluationSawInputGeom;

    ZStatus deform(ZDataBlock& block, ZItGeometry& iterator, const ZMatrix& localToWorld,
                   unsigned int multiIndex) override;
    ZStatus setDependentsDirty(const ZPlug& plug, ZPlugArray& affected) override;
    ZStatus preEvaluation(const ZDGContext& context, const ZEvaluationNode& evaluationNode) override;
};

// A deformer that keeps the base's deform(), which moves nothing.
class IdleDeformer : public ZPxDeformerNode {
public:
    static constexpr const char* kTypeName = "testIdleDeformer";
};

void registerTestDeformers();

} // namespace nodestest
