#pragma once

#include <OpenZyvo/ZPxDeformerNode.h>
#include <memory>

namespace type {

class ElementCache;

// The "vectorAdjust" node: applies the per-character, per-word and per-line
// adjustments the type manipulator records, layered so that moving a word
// carries its characters and widening a character pushes the rest of its
// line, keeps adjusted lines aligned, and publishes each character's
// position and box for the manipulator.
class vectorAdjustments : public ZPxDeformerNode {
public:
    static constexpr unsigned int kTypeId = 0x123C01;
    static constexpr const char* kTypeName = "vectorAdjust";
    // The name the node's error reports give as their source.
    static constexpr const char* kSourceUnit = "vectorAdjustments";

    vectorAdjustments();
    ~vectorAdjustments() override;

    static void* creator();
    static ZStatus initialize();

    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override;
    ZStatus deform(ZDataBlock& block, ZItGeometry& iterator, const ZMatrix& localToWorld,
                   unsigned int multiIndex) override;
    ZStatus setDependentsDirty(const ZPlug& plug, ZPlugArray& affected) override;
    ZStatus preEvaluation(const ZDGContext& context, const ZEvaluationNode& evaluationNode) override;

    static ZObject shellPositions;
    static ZObject extrudeDistanceScalePP;
    static ZObject manipulatorPositionsPP;
    static ZObject manipulatorWordPositionsPP;
    static ZObject manipulatorLinePositionsPP;
    static ZObject manipulatorRotationsPP;
    static ZObject manipulatorWordRotationsPP;
    static ZObject manipulatorLineRotationsPP;
    static ZObject manipulatorScalesPP;
    static ZObject manipulatorWordScalesPP;
    static ZObject manipulatorLineScalesPP;
    static ZObject manipulateId;
    static ZObject manipulatePolygon;
    static ZObject manipulateWord;
    static ZObject manipulateLine;
    static ZObject alignmentAdjustments;
    static ZObject manipulatorMode;
    static ZObject boundingBoxes;
    static ZObject selectionIndexes;
    static ZObject manipulatorTransforms;
    static ZObject alignmentMode;
    static ZObject solidsPerCharacter;
    static ZObject solidsPerWord;
    static ZObject solidsPerLine;
    static ZObject grouping;
    static ZObject vertsPerChar;
    static ZObject vertexGroupIds;

private:
    std::unique_ptr<ElementCache> m_elements;
};

} // namespace type
