#include "geometry/EdgeSubdivision.h"
#include "layout/TypeSettingValues.h"
#include "plugin/AnimationChannels.h"
#include "plugin/AttributeSchema.h"
#include "textnode/FontNode.h"

namespace type {

ZObject fontNode::solidsPerCharacter;
ZObject fontNode::solidsPerWord;
ZObject fontNode::solidsPerLine;
ZObject fontNode::grouping;
ZObject fontNode::vertsPerChar;
ZObject fontNode::characterBoundingBoxesMax;
ZObject fontNode::characterBoundingBoxesMin;
ZObject fontNode::outputMesh;
ZObject fontNode::manipulatorPivots;
ZObject fontNode::holeInfo;
ZObject fontNode::numberOfShells;
ZObject fontNode::textInput;
ZObject fontNode::currentFont;
ZObject fontNode::currentStyle;
ZObject fontNode::writingSystem;
ZObject fontNode::fontError;
ZObject fontNode::homeFolder;
ZObject fontNode::fontList;
ZObject fontNode::styleList;
ZObject fontNode::fontStyleList;
ZObject fontNode::manipulatorPositionsPP;
ZObject fontNode::manipulatorWordPositionsPP;
ZObject fontNode::manipulatorLinePositionsPP;
ZObject fontNode::manipulatorRotationsPP;
ZObject fontNode::manipulatorWordRotationsPP;
ZObject fontNode::manipulatorLineRotationsPP;
ZObject fontNode::manipulatorScalesPP;
ZObject fontNode::manipulatorWordScalesPP;
ZObject fontNode::manipulatorLineScalesPP;
ZObject fontNode::manipulateId;
ZObject fontNode::manipulatePolygon;
ZObject fontNode::manipulateWord;
ZObject fontNode::manipulateLine;
ZObject fontNode::alignmentAdjustments;
ZObject fontNode::manipulatorMode;
ZObject fontNode::manipulatorTransforms;
ZObject fontNode::fontSize;
ZObject fontNode::kerningScale;
ZObject fontNode::spaceWidthScale;
ZObject fontNode::tracking;
ZObject fontNode::leadingScale;
ZObject fontNode::curveResolution;
ZObject fontNode::alignmentMode;
ZObject fontNode::positionAdjust;
ZObject fontNode::rotationAdjust;
ZObject fontNode::scaleAdjust;
ZObject fontNode::enableDistanceFilter;
ZObject fontNode::pointDistanceFilter;
ZObject fontNode::setParity;
ZObject fontNode::removeColinear;
ZObject fontNode::colinearAngle;
ZObject fontNode::animationPositionX;
ZObject fontNode::animationPositionY;
ZObject fontNode::animationPositionZ;
ZObject fontNode::animationPosition;
ZObject fontNode::animationRotationX;
ZObject fontNode::animationRotationY;
ZObject fontNode::animationRotationZ;
ZObject fontNode::animationRotation;
ZObject fontNode::animationScaleX;
ZObject fontNode::animationScaleY;
ZObject fontNode::animationScaleZ;
ZObject fontNode::animationScale;
ZObject fontNode::deformableType;
ZObject fontNode::legacyDecomposition;
ZObject fontNode::preTLDecompose;
ZObject fontNode::maxDivisions;
ZObject fontNode::maxEdgeLength;
ZObject fontNode::animationMessage;
ZObject fontNode::extrudeMessage;
ZObject fontNode::transformMessage;
ZObject fontNode::remeshMessage;
ZObject fontNode::vectorMessages;
ZObject fontNode::generator;
ZObject fontNode::countdown;
ZObject fontNode::changeRate;
ZObject fontNode::randomRange;
ZObject fontNode::length;
ZObject fontNode::decimalPlaces;
ZObject fontNode::randomSeed;
ZObject fontNode::percent;
ZObject fontNode::reverse;
ZObject fontNode::random;
ZObject fontNode::delay;
ZObject fontNode::randomizerMode;
ZObject fontNode::time;
ZObject fontNode::animatedType;
ZObject fontNode::pythonExpression;

ZStatus fontNode::initialize() {
    using D = ZFnData;
    using N = ZFnNumericData;
    using Flags = AttributeSchema::Flags;
    const Flags storable{.storable = true};
    const Flags keyableStorable{.storable = true, .keyable = true};
    const Flags visible{.hidden = false};
    const Flags interfaceOnly{.writable = false, .storable = false, .hidden = true};
    const Flags readWrite{.readable = true, .writable = true};

    AttributeSchema schema(kSourceUnit);

    solidsPerCharacter = schema.typed("solidsPerCharacter", D::kDoubleArray, storable);
    solidsPerWord = schema.typed("solidsPerWord", D::kDoubleArray, storable);
    solidsPerLine = schema.typed("solidsPerLine", D::kDoubleArray, storable);
    grouping = schema.compound("grouping", {solidsPerCharacter, solidsPerWord, solidsPerLine}, readWrite);
    schema.add(grouping);
    vertsPerChar = schema.typed("vertsPerChar", D::kDoubleArray, storable);
    schema.add(vertsPerChar);
    characterBoundingBoxesMax = schema.typed("characterBoundingBoxesMax", D::kVectorArray, storable);
    schema.add(characterBoundingBoxesMax);
    characterBoundingBoxesMin = schema.typed("characterBoundingBoxesMin", D::kVectorArray, storable);
    schema.add(characterBoundingBoxesMin);
    outputMesh = schema.typed("outputMesh", D::kMesh, {.storable = false});
    schema.add(outputMesh);
    manipulatorPivots = schema.typed("manipulatorPivots", D::kVectorArray, storable);
    schema.add(manipulatorPivots);
    holeInfo = schema.typed("holeInfo", D::kIntArray);
    schema.add(holeInfo);
    numberOfShells = schema.numeric("numberOfShells", N::kInt, 0.0);
    schema.add(numberOfShells);

    textInput =
        schema.typed("textInput", D::kString, {.keyable = true, .hidden = false}, "33 44 20 54 79 70 65");
    schema.add(textInput);
    currentFont = schema.typed("currentFont", D::kString, visible);
    schema.add(currentFont);
    currentStyle = schema.typed("currentStyle", D::kString, visible);
    schema.add(currentStyle);
    writingSystem = schema.typed("writingSystem", D::kString, visible);
    schema.add(writingSystem);
    fontError = schema.typed("fontError", D::kString, interfaceOnly);
    schema.add(fontError);
    homeFolder = schema.typed("homeFolder", D::kString, interfaceOnly);
    schema.add(homeFolder);
    fontList = schema.typed("fontList", D::kString, interfaceOnly);
    schema.add(fontList);
    styleList = schema.typed("styleList", D::kString, interfaceOnly);
    schema.add(styleList);
    fontStyleList = schema.typed("fontStyleList", D::kStringArray, interfaceOnly);
    schema.add(fontStyleList);

    manipulatorPositionsPP = schema.typed("manipulatorPositionsPP", D::kVectorArray, storable);
    manipulatorWordPositionsPP = schema.typed("manipulatorWordPositionsPP", D::kVectorArray, storable);
    manipulatorLinePositionsPP = schema.typed("manipulatorLinePositionsPP", D::kVectorArray, storable);
    manipulatorRotationsPP = schema.typed("manipulatorRotationsPP", D::kVectorArray, storable);
    manipulatorWordRotationsPP = schema.typed("manipulatorWordRotationsPP", D::kVectorArray, storable);
    manipulatorLineRotationsPP = schema.typed("manipulatorLineRotationsPP", D::kVectorArray, storable);
    manipulatorScalesPP = schema.typed("manipulatorScalesPP", D::kVectorArray, storable);
    manipulatorWordScalesPP = schema.typed("manipulatorWordScalesPP", D::kVectorArray, storable);
    manipulatorLineScalesPP = schema.typed("manipulatorLineScalesPP", D::kVectorArray, storable);
    manipulateId = schema.numeric("manipulateId", N::kInt, 0.0);
    manipulatePolygon = schema.numeric("manipulatePolygon", N::kInt, 0.0);
    manipulateWord = schema.numeric("manipulateWord", N::kInt, 0.0);
    manipulateLine = schema.numeric("manipulateLine", N::kInt, 0.0);
    alignmentAdjustments = schema.typed("alignmentAdjustments", D::kDoubleArray);
    manipulatorMode = schema.enumeration("manipulatorMode", 1, {{"Character", 0}, {"Word", 1}, {"Line", 2}},
                                         {.writable = true});
    manipulatorTransforms = schema.compound(
        "manipulatorTransforms",
        {manipulatorPositionsPP, manipulatorWordPositionsPP, manipulatorLinePositionsPP,
         manipulatorRotationsPP, manipulatorWordRotationsPP, manipulatorLineRotationsPP, manipulatorScalesPP,
         manipulatorWordScalesPP, manipulatorLineScalesPP, manipulateId, manipulatePolygon, manipulateWord,
         manipulateLine, alignmentAdjustments, manipulatorMode},
        readWrite);
    schema.add(manipulatorTransforms);

    fontSize = schema.numeric("fontSize", N::kFloat, settingsDefaults::kFontSize, keyableStorable,
                              {.softMin = 0.1, .softMax = 100.0});
    schema.add(fontSize);
    kerningScale = schema.numeric("kerningScale", N::kFloat, settingsDefaults::kKerningScale, keyableStorable,
                                  {.softMin = 0.0, .softMax = 5.0});
    schema.add(kerningScale);
    spaceWidthScale = schema.numeric("spaceWidthScale", N::kFloat, settingsDefaults::kSpaceWidthScale,
                                     keyableStorable, {.softMin = 0.0, .softMax = 5.0});
    schema.add(spaceWidthScale);
    tracking = schema.numeric("tracking", N::kFloat, settingsDefaults::kTracking, keyableStorable,
                              {.softMin = -10.0, .softMax = 10.0});
    schema.add(tracking);
    leadingScale = schema.numeric("leadingScale", N::kFloat, settingsDefaults::kLeadingScale, keyableStorable,
                                  {.softMin = 0.0, .softMax = 5.0});
    schema.add(leadingScale);
    curveResolution =
        schema.numeric("curveResolution", N::kInt, settingsDefaults::kCurveResolution, keyableStorable,
                       {.min = curveResolutionLimits::kMin,
                        .max = curveResolutionLimits::kMax,
                        .softMax = curveResolutionLimits::kSoftMax});
    schema.add(curveResolution);
    alignmentMode = schema.enumeration("alignmentMode", static_cast<short>(settingsDefaults::kAlignment),
                                       kAlignmentFields);
    schema.add(alignmentMode);
    positionAdjust = schema.numeric("positionAdjust", N::k3Double, {0.0, 0.0, 0.0});
    schema.add(positionAdjust);
    rotationAdjust = schema.numeric("rotationAdjust", N::k3Double, {0.0, 0.0, 0.0});
    schema.add(rotationAdjust);
    scaleAdjust = schema.numeric("scaleAdjust", N::k3Double, {0.0, 0.0, 0.0});
    schema.add(scaleAdjust);

    enableDistanceFilter = schema.numeric("enableDistanceFilter", N::kBoolean, 0.0);
    schema.add(enableDistanceFilter);
    pointDistanceFilter =
        schema.numeric("pointDistanceFilter", N::kFloat, 0.2, keyableStorable, {.min = 0.0, .softMax = 5.0});
    schema.add(pointDistanceFilter);
    setParity = schema.numeric("setParity", N::kBoolean, 0.0);
    schema.add(setParity);
    removeColinear = schema.numeric("removeColinear", N::kBoolean, 0.0);
    schema.add(removeColinear);
    colinearAngle = schema.numeric("colinearAngle", N::kFloat, 0.2, keyableStorable,
                                   {.min = 0.0, .max = 40.0, .softMax = 5.0});
    schema.add(colinearAngle);

    addAnimationChannels<fontNode>(schema);

    deformableType = schema.numeric("deformableType", N::kBoolean, 0.0);
    schema.add(deformableType);
    legacyDecomposition = schema.numeric("legacyDecomposition", N::kBoolean, 0.0);
    schema.add(legacyDecomposition);
    preTLDecompose = schema.numeric("preTLDecompose", N::kBoolean, 0.0);
    schema.add(preTLDecompose);
    maxDivisions =
        schema.numeric("maxDivisions", N::kInt, EdgeSubdivisionSettings{}.maxDivisions, keyableStorable,
                       {.min = subdivisionLimits::kMinDivisions,
                        .max = subdivisionLimits::kMaxDivisions,
                        .softMax = subdivisionLimits::kSoftMaxDivisions});
    schema.add(maxDivisions);
    maxEdgeLength =
        schema.numeric("maxEdgeLength", N::kFloat, EdgeSubdivisionSettings{}.maxEdgeLength, keyableStorable,
                       {.min = subdivisionLimits::kMinEdgeLength,
                        .softMin = subdivisionLimits::kSoftMinEdgeLength,
                        .softMax = subdivisionLimits::kSoftMaxEdgeLength});
    schema.add(maxEdgeLength);

    animationMessage = schema.message("animationMessage");
    extrudeMessage = schema.message("extrudeMessage");
    transformMessage = schema.message("transformMessage");
    remeshMessage = schema.message("remeshMessage");
    vectorMessages = schema.compound({"vectorMessages", "typeMessages"},
                                     {animationMessage, extrudeMessage, transformMessage, remeshMessage},
                                     {.readable = true});
    schema.add(vectorMessages);

    // The gaps in the values are those of the text routines; see the class comment.
    generator = schema.enumeration("generator", 0,
                                   {{"Off", 0},
                                    {"Frame Number", 1},
                                    {"Scene Time", 2},
                                    {"Random", 6},
                                    {"Animated Text", 8},
                                    {"Python", 9}});
    schema.add(generator);
    countdown = schema.numeric("countdown", N::kInt, 0.0);
    schema.add(countdown);
    changeRate = schema.numeric("changeRate", N::kInt, 1.0, {}, {.min = 1.0, .softMax = 100.0});
    schema.add(changeRate);
    randomRange = schema.numeric("randomRange", N::k2Int, {0.0, 10.0});
    schema.add(randomRange);
    length = schema.numeric("length", N::kInt, 4.0, {}, {.min = 0.0, .softMax = 20.0});
    schema.add(length);
    decimalPlaces = schema.numeric("decimalPlaces", N::kInt, 3.0, {}, {.min = 0.0, .softMax = 10.0});
    schema.add(decimalPlaces);
    // The default lies below the minimum and stays until the user edits it.
    randomSeed = schema.numeric("randomSeed", N::kInt, 0.0, {}, {.min = 1.0, .softMax = 100.0});
    schema.add(randomSeed);
    percent = schema.numeric("percent", N::kInt, 0.0, {}, {.min = 0.0, .softMax = 100.0});
    schema.add(percent);
    reverse = schema.numeric("reverse", N::kBoolean, 0.0);
    schema.add(reverse);
    random = schema.numeric("random", N::kBoolean, 0.0);
    schema.add(random);
    delay = schema.numeric("delay", N::kFloat, 0.0, {}, {.min = 0.0, .softMax = 100.0});
    schema.add(delay);
    randomizerMode = schema.enumeration(
        "randomizerMode", 0, {{"Alphanumeric", 0}, {"Alphabetical", 1}, {"Numeric", 2}, {"Input Text", 3}});
    schema.add(randomizerMode);
    time = schema.unit({"time", "ti"}, ZFnUnitAttribute::kTime, 1.0);
    schema.add(time);
    animatedType = schema.typed("animatedType", D::kString, {.keyable = true, .hidden = false});
    schema.add(animatedType);
    pythonExpression = schema.typed("pythonExpression", D::kString, visible, "round(random.uniform(0,5), 2)");
    schema.add(pythonExpression);

    const ZObject nineArrays[] = {
        manipulatorPositionsPP, manipulatorWordPositionsPP, manipulatorLinePositionsPP,
        manipulatorRotationsPP, manipulatorWordRotationsPP, manipulatorLineRotationsPP,
        manipulatorScalesPP,    manipulatorWordScalesPP,    manipulatorLineScalesPP};
    const auto fromGenerator = [&](std::initializer_list<ZObject> inputs) {
        schema.affects(inputs, {outputMesh, manipulatorPivots, numberOfShells, vertsPerChar,
                                characterBoundingBoxesMax, characterBoundingBoxesMin});
        for (const ZObject& array : nineArrays)
            schema.affects(inputs, {array});
        schema.affects(inputs, {manipulateId, manipulatePolygon, manipulateWord, manipulateLine, holeInfo,
                                alignmentAdjustments, grouping});
    };

    schema.affects({textInput, currentFont},
                   {outputMesh, grouping, manipulatorPivots, numberOfShells, vertsPerChar,
                    characterBoundingBoxesMax, characterBoundingBoxesMin, holeInfo, fontError,
                    manipulatorTransforms});
    schema.affects({currentStyle}, {outputMesh, manipulatorPivots, vertsPerChar, characterBoundingBoxesMax,
                                    characterBoundingBoxesMin, holeInfo, fontError});
    schema.affects({writingSystem},
                   {outputMesh, manipulatorPivots, numberOfShells, vertsPerChar, characterBoundingBoxesMax,
                    characterBoundingBoxesMin, holeInfo, fontError});
    schema.affects({homeFolder}, {outputMesh});
    schema.affects({fontSize}, {outputMesh, manipulatorPivots, manipulatorTransforms, vertsPerChar});
    schema.affects({kerningScale, spaceWidthScale, leadingScale},
                   {outputMesh, manipulatorPivots, manipulatorTransforms});
    schema.affects({tracking},
                   {outputMesh, manipulatorPivots, manipulatorTransforms, manipulatorPositionsPP});
    schema.affects({alignmentMode}, {outputMesh, manipulatorPivots, manipulatorTransforms,
                                     characterBoundingBoxesMax, alignmentAdjustments});
    schema.affects({positionAdjust, rotationAdjust, scaleAdjust}, {manipulatorTransforms});
    schema.affects({curveResolution, enableDistanceFilter, pointDistanceFilter, removeColinear, colinearAngle,
                    deformableType, legacyDecomposition, preTLDecompose, maxDivisions, maxEdgeLength},
                   {outputMesh, vertsPerChar, holeInfo});
    schema.affects({setParity}, {outputMesh});
    fromGenerator({generator});
    schema.affects({countdown, changeRate, randomRange, percent, reverse, random}, {outputMesh});
    schema.affects({length, decimalPlaces, delay, randomizerMode, randomSeed},
                   {outputMesh, grouping, manipulatorPivots, numberOfShells, vertsPerChar,
                    characterBoundingBoxesMax, characterBoundingBoxesMin, holeInfo});
    schema.affects({randomSeed}, {manipulatorTransforms});
    fromGenerator({time, animatedType, pythonExpression});
    schema.affects({time, animatedType, pythonExpression},
                   {solidsPerCharacter, solidsPerWord, solidsPerLine, fontError});

    return schema.status();
}

} // namespace type
