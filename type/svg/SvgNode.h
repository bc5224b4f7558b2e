#pragma once

#include <OpenZyvo/ZPxNode.h>

namespace type {

// The "svgToPoly" node: SVG artwork, from a file or pasted text, in; the
// same flat mesh and per-shape record as the type node out, one shape
// standing where the type node has one character, so that extrusion and
// animation take artwork exactly like text.
class svgNode : public ZPxNode {
public:
    static constexpr unsigned int kTypeId = 0x123C11;
    static constexpr const char* kTypeName = "svgToPoly";
    static constexpr const char* kSourceUnit = "svgNode";

    static void* creator();
    static ZStatus initialize();

    ZStatus compute(const ZPlug& plug, ZDataBlock& block) override;

    static ZObject outputMesh;
    static ZObject vertsPerChar;
    static ZObject holeInfo;
    static ZObject numberOfShells;
    static ZObject solidsPerCharacter;
    static ZObject characterBoundingBoxesMax;
    static ZObject characterBoundingBoxesMin;
    static ZObject pathNames;
    static ZObject pathNamesFromPaste;
    static ZObject shellPositions;
    static ZObject errorIndicator;
    static ZObject legacy2018;
    static ZObject svgFilepath;
    static ZObject svgPaste;
    static ZObject svgMode;
    static ZObject curveResolution;
    static ZObject enableDistanceFilter;
    static ZObject pointDistanceFilter;
    static ZObject removeColinear;
    static ZObject displayVertexColours;
    static ZObject colinearAngle;
    static ZObject zOffset;
    static ZObject animationMessage;
    static ZObject extrudeMessage;
    static ZObject transformMessage;
    static ZObject remeshMessage;
    static ZObject adjustMessage;
    static ZObject vectorMessages;
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
    static ZObject svgSize;
    static ZObject deformableType;
    static ZObject maxDivisions;
    static ZObject maxEdgeLength;
    static ZObject useArtboard;
};

// The modes of "svgMode".
enum class SvgSourceMode : short { file = 1, paste = 2 };

} // namespace type
