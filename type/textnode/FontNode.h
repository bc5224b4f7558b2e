#pragma once

#include "textnode/FontNodeCompute.h"

#include <OpenZyvo/ZCallbackIdArray.h>
#include <OpenZyvo/ZNodeMessage.h>
#include <OpenZyvo/ZPxNode.h>

namespace type {

// The "type" node: text and font in, a flat mesh and per-character
// bookkeeping out.
//
// One node, two names: scenes, commands and scripts know the node type as
// "type", while the class and its files keep the name fontNode (FontNode*),
// because the node reports under that name: its errors read "API error
// detected in fontNode at line ...". Renaming the class would change what the
// node reports; renaming the type would break every stored scene.
//
// "generator" offers the fields 0, 1, 2, 6, 8 and 9 only. The text routines
// of 3 (clock), 4 (countdown), 5 (random number) and 7 (keyed text) stay
// reachable the way a host lets a value past an enum's fields: by driving the
// plug through a connection from a plain integer. A value set on the plug
// itself (setAttr, a plug write, a scene file) must be a field.
class fontNode : public ZPxNode {
public:
    static constexpr unsigned int kTypeId = 0x11BE2E;
    static constexpr const char* kTypeName = "type";
    // The name the node's error reports give as their source.
    static constexpr const char* kSourceUnit = "fontNode";

    static void* creator();
    static ZStatus initialize();

    fontNode() = default;
    ~fontNode() override;

    void postConstructor() override;
    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override;
    ZStatus setDependentsDirty(const ZPlug& plug, ZPlugArray& affected) override;
    // The host never evaluates two type nodes at once.
    SchedulingType schedulingType() const override;

    // The node's evaluation and the caches it keeps between evaluations.
    const FontNodeCompute& evaluation() const { return m_compute; }

    // Per-character record (outputs).
    static ZObject solidsPerCharacter;
    static ZObject solidsPerWord;
    static ZObject solidsPerLine;
    static ZObject grouping;
    static ZObject vertsPerChar;
    static ZObject characterBoundingBoxesMax;
    static ZObject characterBoundingBoxesMin;
    static ZObject outputMesh;
    static ZObject manipulatorPivots;
    static ZObject holeInfo;
    static ZObject numberOfShells;

    // Text and font.
    static ZObject textInput;
    static ZObject currentFont;
    static ZObject currentStyle;
    static ZObject writingSystem;
    static ZObject fontError;
    static ZObject homeFolder;
    static ZObject fontList;
    static ZObject styleList;
    static ZObject fontStyleList;

    // What the type manipulator stores per character, word and line.
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
    static ZObject manipulatorTransforms;

    // Layout.
    static ZObject fontSize;
    static ZObject kerningScale;
    static ZObject spaceWidthScale;
    static ZObject tracking;
    static ZObject leadingScale;
    static ZObject curveResolution;
    static ZObject alignmentMode;
    static ZObject positionAdjust;
    static ZObject rotationAdjust;
    static ZObject scaleAdjust;

    // Outline clean-up.
    static ZObject enableDistanceFilter;
    static ZObject pointDistanceFilter;
    static ZObject setParity;
    static ZObject removeColinear;
    static ZObject colinearAngle;

    // Channels the animation deformer reads through the companion links.
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

    // Decomposition.
    static ZObject deformableType;
    static ZObject legacyDecomposition;
    static ZObject preTLDecompose;
    static ZObject maxDivisions;
    static ZObject maxEdgeLength;

    // Links to the companion nodes of a text object.
    static ZObject animationMessage;
    static ZObject extrudeMessage;
    static ZObject transformMessage;
    static ZObject remeshMessage;
    static ZObject vectorMessages;

    // Text source.
    static ZObject generator;
    static ZObject countdown;
    static ZObject changeRate;
    static ZObject randomRange;
    static ZObject length;
    static ZObject decimalPlaces;
    static ZObject randomSeed;
    static ZObject percent;
    static ZObject reverse;
    static ZObject random;
    static ZObject delay;
    static ZObject randomizerMode;
    static ZObject time;
    static ZObject animatedType;
    static ZObject pythonExpression;

private:
    static void attributeChanged(ZNodeMessage::AttributeMessage message, ZPlug& plug, ZPlug& otherPlug,
                                 void* clientData);

    ZCallbackIdArray m_callbackIds;
    FontNodeCompute m_compute;
};

} // namespace type
