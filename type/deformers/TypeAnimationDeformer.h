#pragma once

#include <OpenZyvo/ZPxDeformerNode.h>
#include <memory>
#include <vector>

namespace type {

struct AnimationFrame;
class ElementCache;
struct ElementMotion;

// The "shellDeformer" node: animates every character, word or line of a text
// mesh as a rigid piece, each group sampling the animation channels at its own
// delayed time, so that one keyed channel cascades over the text.
//
// The pieces (vertex groups of the text pipeline, or connected shells) and
// the input points are found once per input geometry and kept until the
// geometry changes. With TYPE_DEFORMER_TIMING=1 in the environment of the
// process that creates the node, every frame prints its setup and move times.
class TypeAnimationDeformer : public ZPxDeformerNode {
public:
    static constexpr unsigned int kTypeId = 0x11BE0D;
    static constexpr const char* kTypeName = "shellDeformer";
    // The name the node's error reports give as their source.
    static constexpr const char* kSourceUnit = "typeAnimationDeformer";

    TypeAnimationDeformer();
    ~TypeAnimationDeformer() override;

    static void* creator();
    static ZStatus initialize();

    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override;
    ZStatus deform(ZDataBlock& block, ZItGeometry& iterator, const ZMatrix& localToWorld,
                   unsigned int multiIndex) override;
    ZStatus setDependentsDirty(const ZPlug& plug, ZPlugArray& affected) override;
    ZStatus preEvaluation(const ZDGContext& context, const ZEvaluationNode& evaluationNode) override;

    static ZObject triggeredByHOVA;
    static ZObject inputPoints;
    static ZObject rotationPivotPointsPP;
    static ZObject scalePivotPointsPP;
    static ZObject time;
    static ZObject solidsPerCharacter;
    static ZObject solidsPerWord;
    static ZObject solidsPerLine;
    static ZObject grouping;
    static ZObject positionInPP;
    static ZObject scaleInPP;
    static ZObject rotationInPP;
    static ZObject translateInPP;
    static ZObject enableAnimation;
    static ZObject randomDelay;
    static ZObject reverseOrder;
    static ZObject animationPositionX;
    static ZObject animationPositionY;
    static ZObject animationPositionZ;
    static ZObject animationPosition;
    static ZObject animationRotationX;
    static ZObject animationRotationY;
    static ZObject animationRotationZ;
    static ZObject animationRotation;
    static ZObject animationScaleX;
    static ZObject animationScaleY;
    static ZObject animationScaleZ;
    static ZObject animationScale;
    static ZObject enablePivotDisplay;
    static ZObject xPivotLocation;
    static ZObject yPivotLocation;
    static ZObject zPivotLocation;
    static ZObject localXRotationPivot;
    static ZObject localYRotationPivot;
    static ZObject localZRotationPivot;
    static ZObject localYScalePivot;
    static ZObject localXScalePivot;
    static ZObject localZScalePivot;
    static ZObject randomSeed;
    static ZObject offsetFrames;
    static ZObject animationMode;
    static ZObject vertsPerChar;
    static ZObject vertexGroupIds;
    static ZObject legacy2018;

private:
    ZStatus readOffsets(ZDataBlock& block, AnimationFrame& frame);
    ZStatus readSettings(ZDataBlock& block, AnimationFrame& frame, bool& pivotDisplay);
    ZStatus sampleChannels(ZDataBlock& block, AnimationFrame& frame);

    std::unique_ptr<ElementCache> m_elements;
    // The motions the element cache's moved points show, for its generation
    // m_appliedFor.
    std::vector<ElementMotion> m_applied;
    unsigned int m_appliedFor = 0;
    // Prints how long each frame took to set up and to move the elements.
    bool m_timing = false;
};

} // namespace type
