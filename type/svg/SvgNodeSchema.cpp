#include "plugin/AnimationChannels.h"
#include "plugin/AttributeSchema.h"
#include "svg/SvgNode.h"

namespace type {

ZObject svgNode::outputMesh;
ZObject svgNode::vertsPerChar;
ZObject svgNode::holeInfo;
ZObject svgNode::numberOfShells;
ZObject svgNode::solidsPerCharacter;
ZObject svgNode::characterBoundingBoxesMax;
ZObject svgNode::characterBoundingBoxesMin;
ZObject svgNode::pathNames;
ZObject svgNode::pathNamesFromPaste;
ZObject svgNode::shellPositions;
ZObject svgNode::errorIndicator;
ZObject svgNode::legacy2018;
ZObject svgNode::svgFilepath;
ZObject svgNode::svgPaste;
ZObject svgNode::svgMode;
ZObject svgNode::curveResolution;
ZObject svgNode::enableDistanceFilter;
ZObject svgNode::pointDistanceFilter;
ZObject svgNode::removeColinear;
ZObject svgNode::displayVertexColours;
ZObject svgNode::colinearAngle;
ZObject svgNode::zOffset;
ZObject svgNode::animationMessage;
ZObject svgNode::extrudeMessage;
ZObject svgNode::transformMessage;
ZObject svgNode::remeshMessage;
ZObject svgNode::adjustMessage;
ZObject svgNode::vectorMessages;
ZObject svgNode::animationPositionX;
ZObject svgNode::animationPositionY;
ZObject svgNode::animationPositionZ;
ZObject svgNode::animationPosition;
ZObject svgNode::animationRotationX;
ZObject svgNode::animationRotationY;
ZObject svgNode::animationRotationZ;
ZObject svgNode::animationRotation;
ZObject svgNode::animationScaleX;
ZObject svgNode::animationScaleY;
ZObject svgNode::animationScaleZ;
ZObject svgNode::animationScale;
ZObject svgNode::svgSize;
ZObject svgNode::deformableType;
ZObject svgNode::maxDivisions;
ZObject svgNode::maxEdgeLength;
ZObject svgNode::useArtboard;

ZStatus svgNode::initialize() {
    using D = ZFnData;
    using N = ZFnNumericData;
    using Flags = AttributeSchema::Flags;
    const Flags output{.writable = false};
    const Flags transientOutput{.writable = false, .storable = false};
    const Flags keyable{.keyable = true};
    const Flags visibleKeyable{.keyable = true, .hidden = false};
    const Flags storable{.storable = true};
    AttributeSchema schema(kSourceUnit);

    outputMesh = schema.typed("outputMesh", D::kMesh, transientOutput);
    schema.add(outputMesh);
    vertsPerChar = schema.typed("vertsPerChar", D::kDoubleArray, output);
    schema.add(vertsPerChar);
    holeInfo = schema.typed("holeInfo", D::kIntArray, output);
    schema.add(holeInfo);
    numberOfShells = schema.numeric("numberOfShells", N::kInt, 0.0, output);
    schema.add(numberOfShells);
    solidsPerCharacter = schema.typed("solidsPerCharacter", D::kDoubleArray, transientOutput);
    schema.add(solidsPerCharacter);
    characterBoundingBoxesMax = schema.typed("characterBoundingBoxesMax", D::kVectorArray, output);
    schema.add(characterBoundingBoxesMax);
    characterBoundingBoxesMin = schema.typed("characterBoundingBoxesMin", D::kVectorArray, output);
    schema.add(characterBoundingBoxesMin);
    pathNames =
        schema.typed("pathNames", D::kStringArray, {.writable = false, .keyable = true, .hidden = false});
    schema.add(pathNames);
    pathNamesFromPaste = schema.typed("pathNamesFromPaste", D::kStringArray, visibleKeyable);
    schema.add(pathNamesFromPaste);
    shellPositions = schema.typed("shellPositions", D::kVectorArray, transientOutput);
    schema.add(shellPositions);
    errorIndicator = schema.numeric("errorIndicator", N::kBoolean, 0.0, {.writable = false, .hidden = true});
    schema.add(errorIndicator);
    legacy2018 = schema.numeric("legacy2018", N::kBoolean, 0.0);
    schema.add(legacy2018);
    svgFilepath = schema.typed("svgFilepath", D::kString, visibleKeyable);
    schema.add(svgFilepath);
    svgPaste = schema.typed("svgPaste", D::kString, {.hidden = false});
    schema.add(svgPaste);
    svgMode = schema.enumeration("svgMode", static_cast<short>(SvgSourceMode::file),
                                 {{"From File", static_cast<short>(SvgSourceMode::file)},
                                  {"Copy/Paste", static_cast<short>(SvgSourceMode::paste)}});
    schema.add(svgMode);
    curveResolution =
        schema.numeric("curveResolution", N::kInt, 4.0, keyable, {.min = 1, .max = 100, .softMax = 10});
    schema.add(curveResolution);
    enableDistanceFilter = schema.numeric("enableDistanceFilter", N::kBoolean, 1.0);
    schema.add(enableDistanceFilter);
    pointDistanceFilter =
        schema.numeric("pointDistanceFilter", N::kFloat, 0.2, keyable, {.min = 0.0, .softMax = 5.0});
    schema.add(pointDistanceFilter);
    removeColinear = schema.numeric("removeColinear", N::kBoolean, 0.0);
    schema.add(removeColinear);
    displayVertexColours = schema.numeric("displayVertexColours", N::kBoolean, 1.0);
    schema.add(displayVertexColours);
    colinearAngle =
        schema.numeric("colinearAngle", N::kFloat, 0.2, keyable, {.min = 0.0, .max = 40.0, .softMax = 5.0});
    schema.add(colinearAngle);
    zOffset = schema.numeric("zOffset", N::kFloat, 0.001, keyable, {.min = 0.0, .softMax = 5.0});
    schema.add(zOffset);
    animationMessage = schema.message("animationMessage");
    extrudeMessage = schema.message("extrudeMessage");
    transformMessage = schema.message("transformMessage");
    remeshMessage = schema.message("remeshMessage");
    adjustMessage = schema.message("adjustMessage");
    vectorMessages =
        schema.compound({"vectorMessages", "svgMessages"},
                        {animationMessage, extrudeMessage, transformMessage, remeshMessage, adjustMessage});
    schema.add(vectorMessages);
    addAnimationChannels<svgNode>(schema);
    // The soft maximum sits below the default; that is how the slider was
    // first set, and scenes' interfaces expect it.
    svgSize = schema.numeric("svgSize", N::kFloat, 10.0, storable, {.min = 0.0, .softMax = 5.0});
    schema.add(svgSize);
    deformableType = schema.numeric("deformableType", N::kBoolean, 0.0);
    schema.add(deformableType);
    maxDivisions =
        schema.numeric("maxDivisions", N::kInt, 20.0, storable, {.min = 1, .max = 100, .softMax = 30});
    schema.add(maxDivisions);
    maxEdgeLength = schema.numeric("maxEdgeLength", N::kFloat, 5.0, storable,
                                   {.min = 0.01, .softMin = 0.1, .softMax = 15.0});
    schema.add(maxEdgeLength);
    useArtboard = schema.numeric("useArtboard", N::kBoolean, 0.0);
    schema.add(useArtboard);

    const auto outputs = {outputMesh,
                          vertsPerChar,
                          holeInfo,
                          numberOfShells,
                          solidsPerCharacter,
                          characterBoundingBoxesMax,
                          characterBoundingBoxesMin,
                          pathNames,
                          shellPositions,
                          errorIndicator};
    schema.affects({legacy2018}, {outputMesh});
    schema.affects({svgFilepath}, outputs);
    schema.affects({svgPaste}, outputs);
    schema.affects({svgPaste}, {pathNamesFromPaste});
    schema.affects({svgMode}, outputs);
    schema.affects({curveResolution}, {outputMesh, vertsPerChar, holeInfo, shellPositions});
    schema.affects({enableDistanceFilter, pointDistanceFilter},
                   {outputMesh, vertsPerChar, holeInfo, characterBoundingBoxesMin, characterBoundingBoxesMax,
                    shellPositions});
    schema.affects({removeColinear, colinearAngle}, {outputMesh, vertsPerChar, holeInfo});
    schema.affects({displayVertexColours}, {outputMesh});
    schema.affects({zOffset},
                   {outputMesh, characterBoundingBoxesMin, characterBoundingBoxesMax, shellPositions});
    schema.affects({svgSize}, {outputMesh});
    schema.affects({deformableType, maxDivisions, maxEdgeLength, useArtboard},
                   {outputMesh, vertsPerChar, holeInfo});
    return schema.status();
}

} // namespace type
